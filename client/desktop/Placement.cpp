#include "client/desktop/Placement.h"

#include <QRegion>

#include <algorithm>

namespace {

/// One window covers all monitors of a content: no other one may lie between them. One that shows
/// the same as a chosen one does not.
bool standTogether(const QList<int> &chosen, const QList<QRect> &monitors)
{
    QRect covered;
    QRegion shown;
    for (const int monitor : chosen) {
        covered |= monitors[monitor];
        shown += monitors[monitor];
    }
    return std::none_of(monitors.begin(), monitors.end(), [&](const QRect &monitor) {
        return covered.intersects(monitor) && !shown.intersects(monitor);
    });
}

} // namespace

Placement Placement::standard(int primary)
{
    return {{primary}, primary};
}

Placement::Problem Placement::problem(const QList<QRect> &monitors) const
{
    const auto isThere
        = [&monitors](int monitor) { return monitor >= 0 && monitor < monitors.size(); };
    if (viewers.isEmpty() || !std::all_of(viewers.begin(), viewers.end(), isThere)) {
        return Problem::NoViewers;
    }
    if (!isThere(studies)) {
        return Problem::NoStudies;
    }
    return standTogether(viewers, monitors) ? Problem::None : Problem::Apart;
}
