#pragma once

#include <QList>
#include <QRect>
#include <QSize>

/// Rectangles of monitors and windows, without any window.
namespace MonitorMath {

/// Positions of the longest row of rectangles of one size and top that stand edge to edge, from
/// left to right; of several, the topmost, then leftmost one. Rectangles that are not valid begin
/// no row.
[[nodiscard]] QList<int> longestRow(const QList<QRect> &rects);
/// Width times height without overflow.
[[nodiscard]] qint64 area(const QRect &rect);
/// The rectangle of a window, shrunk and moved as little as needed to lie inside @p area.
[[nodiscard]] QRect movedInside(const QRect &rect, const QRect &area);
/// The middle of a rectangle, @p percent of its width and height.
[[nodiscard]] QRect middle(const QRect &rect, int percent);
/// Whether a remembered rectangle can be used on a monitor: wholly on it, or clipped, but with its
/// top edge and at least 100 by 100 pixels on it.
[[nodiscard]] bool isReachable(const QRect &rect, const QRect &area);
/// A rectangle of this size, shrunk to @p area, in the middle of it.
[[nodiscard]] QRect centred(const QSize &size, const QRect &area);

} // namespace MonitorMath
