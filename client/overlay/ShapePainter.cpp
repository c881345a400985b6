#include "client/overlay/ShapePainter.h"

#include "client/overlay/HaloText.h"

#include <QFontMetrics>
#include <QLineF>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>
#include <limits>

namespace {

constexpr qreal gap = 10;
constexpr qreal border = 8;
constexpr qreal handleRadius = 4;
const QColor halo(0, 0, 0, 200);

/// How much of a place a shape's line runs through, in pixels.
qreal lengthInside(const QPolygonF &line, const QRectF &place)
{
    if (!line.boundingRect().adjusted(-1, -1, 1, 1).intersects(place)) {
        return 0;
    }
    qreal sum = 0;
    for (qsizetype i = 0; i + 1 < line.size(); ++i) {
        const QLineF side(line[i], line[i + 1]);
        const int steps = std::max(1, static_cast<int>(side.length() / 4));
        for (int step = 0; step < steps; ++step) {
            if (place.contains(side.pointAt((step + 0.5) / steps))) {
                sum += side.length() / steps;
            }
        }
    }
    return sum;
}

/// Right of, left of, below, above the shape, then at its ends, then further up and down.
QVector<QRectF> candidates(const QPolygonF &line, const QSizeF &size)
{
    const QRectF shape = line.boundingRect();
    const qreal middleX = shape.center().x() - size.width() / 2;
    const qreal middleY = shape.center().y() - size.height() / 2;
    QVector<QRectF> places{{{shape.right() + gap, middleY}, size},
        {{shape.left() - gap - size.width(), middleY}, size},
        {{middleX, shape.bottom() + gap}, size},
        {{middleX, shape.top() - gap - size.height()}, size}};
    for (const QPointF &end : {line.last(), line.first()}) {
        for (const int x : {0, 1}) {
            for (const int y : {0, 1}) {
                places.append({{end.x() + (x == 0 ? gap : -gap - size.width()),
                                   end.y() + (y == 0 ? gap : -gap - size.height())},
                    size});
            }
        }
    }
    constexpr int steps = 6;
    const QVector<QRectF> nearest = places;
    for (int step = 1; step <= steps; ++step) {
        const qreal shift = step * (size.height() / 2 + 2);
        for (const QRectF &place : nearest) {
            places << place.translated(0, shift) << place.translated(0, -shift);
        }
    }
    return places;
}

qreal coveredArea(const QRectF &a, const QRectF &b)
{
    const QRectF both = a.intersected(b);
    return both.width() * both.height();
}

QRectF broughtInside(QRectF place, const QRectF &room)
{
    place.moveLeft(std::max(room.left(), std::min(place.left(), room.right() - place.width())));
    place.moveTop(std::max(room.top(), std::min(place.top(), room.bottom() - place.height())));
    return place;
}

/// How bad a place is: text over text is worse than a line through it.
qreal costOf(
    const QRectF &place, const QVector<OverlayContent::Shape> &shapes, const QVector<QRectF> &taken)
{
    constexpr qreal ofTexts = 10;
    constexpr qreal ofLines = 20;
    qreal cost = 0;
    for (const OverlayContent::Shape &shape : shapes) {
        cost += ofLines * lengthInside(shape.line, place.adjusted(-3, -3, 3, 3));
    }
    for (const QRectF &other : taken) {
        cost += ofTexts * coveredArea(place, other);
    }
    return cost;
}

/// Of equally good ones the first.
QRectF bestPlace(const QVector<QRectF> &wishes, const QRectF &room,
    const QVector<OverlayContent::Shape> &shapes, const QVector<QRectF> &taken)
{
    QRectF best;
    qreal leastCost = std::numeric_limits<qreal>::max();
    for (const QRectF &wish : wishes) {
        const QRectF place = broughtInside(wish, room);
        const qreal cost = costOf(place, shapes, taken);
        if (cost < leastCost) {
            leastCost = cost;
            best = place;
        }
        if (leastCost == 0) {
            break;
        }
    }
    return best;
}

} // namespace

ShapePainter::ShapePainter(QPainter &painter, HaloText &text, const QSize &size)
    : m_painter(painter)
    , m_text(text)
    , m_size(size)
{ }

void ShapePainter::paint(
    const QVector<OverlayContent::Shape> &shapes, const QVector<QRectF> &covered)
{
    m_painter.save();
    m_painter.setRenderHint(QPainter::Antialiasing);
    QVector<QSizeF> sizes;
    for (const OverlayContent::Shape &shape : shapes) {
        paintLine(shape);
        paintHandles(shape);
        sizes.append(labelSize(shape));
    }
    const QVector<QRectF> places = labelPlaces(shapes, sizes, m_size, covered);
    for (qsizetype i = 0; i < shapes.size(); ++i) {
        paintLabel(shapes[i], places[i]);
    }
    m_painter.restore();
}

QVector<QRectF> ShapePainter::labelPlaces(const QVector<OverlayContent::Shape> &shapes,
    const QVector<QSizeF> &sizes, const QSize &viewer, const QVector<QRectF> &covered)
{
    const QRectF room = QRectF(QPointF(), viewer).adjusted(border, border, -border, -border);
    QVector<QRectF> places;
    for (qsizetype i = 0; i < shapes.size(); ++i) {
        const bool hasLabel = !sizes[i].isEmpty() && !shapes[i].line.isEmpty();
        places.append(hasLabel
                ? bestPlace(candidates(shapes[i].line, sizes[i]), room, shapes, covered + places)
                : QRectF());
    }
    return places;
}

void ShapePainter::paintLine(const OverlayContent::Shape &shape)
{
    QPainterPath path;
    path.addPolygon(shape.line);
    const qreal width = shape.isPicked ? 2 : 1.4;
    m_painter.strokePath(path, QPen(halo, width + 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    m_painter.strokePath(
        path, QPen(shape.color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void ShapePainter::paintHandles(const OverlayContent::Shape &shape)
{
    // Of others a small mark where an open line ends, since ends are what was measured.
    const bool isOpen = shape.line.isEmpty() || shape.line.first() != shape.line.last();
    const qreal radius = shape.isPicked ? handleRadius : isOpen ? 2 : 0;
    if (radius == 0) {
        return;
    }
    for (const QPointF &handle : shape.handles) {
        m_painter.setPen(QPen(halo, 1));
        m_painter.setBrush(shape.color);
        m_painter.drawEllipse(handle, radius, radius);
    }
}

void ShapePainter::paintLabel(const OverlayContent::Shape &shape, const QRectF &place)
{
    QPointF anchor = place.topLeft();
    for (const QString &line : shape.label) {
        m_text.draw(
            m_painter, anchor, Qt::AlignLeft | Qt::AlignTop, line, m_painter.font(), shape.color);
        anchor.ry() += HaloText::lineHeight(m_painter.font());
    }
}

QSizeF ShapePainter::labelSize(const OverlayContent::Shape &shape) const
{
    const QFontMetrics metrics(m_painter.font());
    int width = 0;
    for (const QString &line : shape.label) {
        width = std::max(width, metrics.horizontalAdvance(line) + 4);
    }
    return {static_cast<qreal>(width),
        static_cast<qreal>(shape.label.size() * HaloText::lineHeight(m_painter.font()))};
}
