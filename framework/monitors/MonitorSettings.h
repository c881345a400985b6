#pragma once

#include "platform/properties/KxProperty.h"

#include <QList>
#include <QRect>
#include <QString>

/// The settings that depend on monitors. All but the two named here are registered when the pool is
/// first used.
namespace MonitorSettings {

/// The value of one of the settings of sizes (int); 0 for another key.
[[nodiscard]] int size(const char *key);
/// The value of one of the thresholds (float, units of 2^20 pixels); 0 for another key.
[[nodiscard]] float threshold(const char *key);
/// "UI.SplitMonitorConfig": for each display, non-zero to split it into two monitors. Registered on
/// first use.
[[nodiscard]] KxProperty<QList<int>> &splitConfig();
/// "UI.DialogPositionSize." followed by the name: where a named window was last. Registered on
/// first use.
[[nodiscard]] KxProperty<QRect> &geometry(const QString &objectName);
/// What the store holds for that, without registering anything; null when absent.
[[nodiscard]] QRect storedGeometry(const QString &objectName);

} // namespace MonitorSettings
