#include "client/app/ScrollMeasure.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QWheelEvent>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace {

constexpr int wheelStep = 120;

/// The value below which @p part of the sorted ones lie.
double quantile(const std::vector<double> &sorted, double part)
{
    const auto rank = std::ceil(part * static_cast<double>(sorted.size())) - 1;
    return sorted[static_cast<std::size_t>(std::max(rank, 0.0))];
}

} // namespace

double ScrollMeasure::wheelToPaint(
    QWidget &widget, int steps, const std::function<bool()> &isPainted)
{
    const QPointF middle = QRectF(widget.rect()).center();
    QWheelEvent event(middle, widget.mapToGlobal(middle), QPoint(), QPoint(0, steps * wheelStep),
        Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QElapsedTimer clock;
    clock.start();
    QApplication::sendEvent(&widget, &event);
    while (!isPainted()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

void ScrollMeasure::printHead()
{
    std::printf(
        "%-44s %9s %8s %8s %8s %8s\n", "scenario", "viewer", "median", "95 %", "99 %", "max");
}

void ScrollMeasure::printRow(
    const QString &scenario, std::vector<double> milliseconds, const QSize &pixels)
{
    std::sort(milliseconds.begin(), milliseconds.end());
    std::printf("%-44s %9s %8.3f %8.3f %8.3f %8.3f\n", qPrintable(scenario),
        qPrintable(QStringLiteral("%1x%2").arg(pixels.width()).arg(pixels.height())),
        quantile(milliseconds, 0.5), quantile(milliseconds, 0.95), quantile(milliseconds, 0.99),
        milliseconds.back());
    std::fflush(stdout);
}
