#pragma once

#include <QSize>
#include <QString>

#include <functional>
#include <vector>

class QWidget;

/// Times from wheel steps to finished paint, and their table on the standard output; what the
/// workstation shares with the program that it is measured beside. GUI thread only.
namespace ScrollMeasure {

/// Sends a step of the wheel to the middle of a widget and runs the event loop until all is
/// painted.
/// @param steps as the user turns it: negative is towards the user.
/// @param isPainted asked after each round of the event loop; must not be true from an earlier
/// paint.
/// @return milliseconds.
[[nodiscard]] double wheelToPaint(
    QWidget &widget, int steps, const std::function<bool()> &isPainted);

void printHead();
/// @param milliseconds of the steps, at least one.
/// @param pixels of each of the pictures that are painted.
void printRow(const QString &scenario, std::vector<double> milliseconds, const QSize &pixels);

} // namespace ScrollMeasure
