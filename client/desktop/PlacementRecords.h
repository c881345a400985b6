#pragma once

#include "framework/monitors/ExMonitorWidget.h"

#include <QString>

/// Where the contents were last, in the settings that survive restarts: one record for each content
/// and number of monitors, so that each desk that a computer is carried to has places of its own.
namespace PlacementRecords {

/// An empty record when there is none.
[[nodiscard]] ExMonitorWidget::Configuration read(const QString &content, int numMonitors);
/// Writes only what has changed.
void write(const QString &content, int numMonitors, const ExMonitorWidget::Configuration &record);

/// Where the panels are, as text; empty when there is none.
[[nodiscard]] QString readPanels(int numMonitors);
void writePanels(int numMonitors, const QString &record);

} // namespace PlacementRecords
