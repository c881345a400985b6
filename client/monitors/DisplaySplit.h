#pragma once

#include <QList>

/// Splitting wide displays into two monitors.
namespace DisplaySplit {

/// For each display whether it is split now, in the order of ExMonitorManager::physicalMonitors().
[[nodiscard]] QList<int> current();
/// Splits these displays, keeps that for the user, and shows it at once: contents stay on their
/// displays, those of a display that is split now on both of its halves, and those of a half on the
/// display that becomes whole. Tells of it by MONITOR_CONFIGURATION_CHANGED.
/// @param split non-zero for a display to be split; as many as there are displays.
/// @return whether it could be kept.
bool apply(const QList<int> &split);

} // namespace DisplaySplit
