#include "framework/monitors/MonitorMath.h"

#include <algorithm>
#include <array>
#include <limits>
#include <map>
#include <set>

namespace {

using Corners = std::array<int, 4>;

Corners cornersOf(const QRect &rect)
{
    return {rect.left(), rect.top(), rect.right(), rect.bottom()};
}

/// The rectangle beside this one; one that is not valid at the end of the coordinates.
QRect neighbour(const QRect &rect, int step)
{
    const qint64 left = qint64{rect.left()} + qint64{step} * rect.width();
    const qint64 right = left + rect.width() - 1;
    using Limits = std::numeric_limits<int>;
    if (left < Limits::min() || right > Limits::max()) {
        return {};
    }
    return {
        QPoint(static_cast<int>(left), rect.top()), QPoint(static_cast<int>(right), rect.bottom())};
}

/// Walks over equal rectangles edge to edge, in one direction.
class RowWalk
{
public:
    explicit RowWalk(const QList<QRect> &rects)
    {
        // Of equal rectangles the first one stands in rows.
        for (qsizetype i = 0; i < rects.size(); ++i) {
            m_places.try_emplace(cornersOf(rects.at(i)), static_cast<int>(i));
        }
    }

    QList<int> row(const QRect &start, int place) const
    {
        QList<int> left = side(start, -1);
        std::reverse(left.begin(), left.end());
        return left << place << side(start, 1);
    }

private:
    QList<int> side(const QRect &start, int step) const
    {
        QList<int> found;
        for (QRect next = neighbour(start, step); next.isValid(); next = neighbour(next, step)) {
            const auto at = m_places.find(cornersOf(next));
            if (at == m_places.end()) {
                break;
            }
            found.append(at->second);
        }
        return found;
    }

    std::map<Corners, int> m_places;
};

/// Without its fraction, and small enough that a monitor can be grown by it.
int limited(double length)
{
    constexpr double largest = 1 << 29;
    return static_cast<int>(std::clamp(length, -largest, largest));
}

bool standsBefore(const QRect &a, const QRect &b)
{
    return a.top() != b.top() ? a.top() < b.top() : a.left() < b.left();
}

} // namespace

QList<int> MonitorMath::longestRow(const QList<QRect> &rects)
{
    const RowWalk walk(rects);
    QList<int> longest;
    std::set<Corners> seen;
    for (qsizetype i = 0; i < rects.size(); ++i) {
        // The row of a rectangle that stands in a row found before is that row.
        if (!rects.at(i).isValid() || seen.count(cornersOf(rects.at(i))) != 0) {
            continue;
        }
        const QList<int> row = walk.row(rects.at(i), static_cast<int>(i));
        for (const int place : row) {
            seen.insert(cornersOf(rects.at(place)));
        }
        if (row.size() > longest.size()
            || (row.size() == longest.size()
                && standsBefore(rects.at(row.first()), rects.at(longest.first())))) {
            longest = row;
        }
    }
    return longest;
}

qint64 MonitorMath::area(const QRect &rect)
{
    return qint64{rect.width()} * rect.height();
}

QRect MonitorMath::movedInside(const QRect &rect, const QRect &area)
{
    const QSize size = rect.size().boundedTo(area.size());
    const int left = std::clamp(rect.left(), area.left(), area.right() - size.width() + 1);
    const int top = std::clamp(rect.top(), area.top(), area.bottom() - size.height() + 1);
    return {QPoint(left, top), size};
}

QRect MonitorMath::middle(const QRect &rect, int percent)
{
    // Of both sides together, in percent.
    const double cut = 100.0 - percent;
    const int dx = limited(rect.width() * cut * 0.005);
    const int dy = limited(rect.height() * cut * 0.005);
    return rect.adjusted(dx, dy, -dx, -dy);
}

bool MonitorMath::isReachable(const QRect &rect, const QRect &area)
{
    constexpr int least = 100;
    if (!rect.isValid()) {
        return false;
    }
    const QRect clipped = rect & area;
    return clipped == rect
        || (clipped.isValid() && clipped.top() == rect.top() && clipped.width() >= least
            && clipped.height() >= least);
}

QRect MonitorMath::centred(const QSize &size, const QRect &area)
{
    const QSize fitting = size.boundedTo(area.size());
    const int x = area.left() + static_cast<int>((area.width() - fitting.width()) * 0.5);
    const int y = area.top() + static_cast<int>((area.height() - fitting.height()) * 0.5);
    return {QPoint(x, y), fitting};
}
