#include "platform/display/ExDisplayConfig.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <tuple>

namespace {

ExDisplayInfo infoOf(const QScreen &screen)
{
    const QRect area = screen.geometry();
    return {area.x(), area.y(), area.width(), area.height(),
        &screen == QGuiApplication::primaryScreen(), screen.name(), screen.serialNumber(),
        screen.devicePixelRatio()};
}

bool inOneRow(const ExDisplayInfo &a, const ExDisplayInfo &b)
{
    const int shared = std::min(a.y + a.height, b.y + b.height) - std::max(a.y, b.y);
    return 2 * shared >= std::min(a.height, b.height);
}

/// Rows begin with the display that ends first: one that stands beside two rows then belongs to the
/// upper one, and does not make one row of both.
bool endsBefore(const ExDisplayInfo &a, const ExDisplayInfo &b)
{
    const int endOfA = a.y + a.height;
    const int endOfB = b.y + b.height;
    return std::tie(endOfA, a.y, a.x, a.name) < std::tie(endOfB, b.y, b.x, b.name);
}

auto fromLeft(const ExDisplayInfo &display)
{
    return std::tie(display.x, display.y, display.name);
}

void orderByPosition(std::vector<ExDisplayInfo> &displays)
{
    std::sort(displays.begin(), displays.end(), endsBefore);
    for (auto row = displays.begin(); row != displays.end();) {
        // Those beside the first one left follow it, wherever they are in the list.
        const ExDisplayInfo first = *row;
        const auto end = std::stable_partition(
            row, displays.end(), [&](const auto &d) { return inOneRow(first, d); });
        std::sort(row, end, [](const auto &a, const auto &b) { return fromLeft(a) < fromLeft(b); });
        row = end;
    }
}

} // namespace

void ExDisplayConfig::getDisplayInfo(std::vector<ExDisplayInfo> &displays)
{
    displays.clear();
    if (!qobject_cast<QGuiApplication *>(QCoreApplication::instance())) {
        return;
    }
    const QList<QScreen *> screens = QGuiApplication::screens();
    for (const QScreen *const screen : screens) {
        displays.push_back(infoOf(*screen));
    }
    orderByPosition(displays);
}
