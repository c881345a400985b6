#pragma once

#include "framework/monitors/ExMonitorWidget.h"

/// The content "studies": the list of studies. In a window together with the viewers it shows
/// nothing itself, because the list stands beside the viewers there.
class StudiesContent final : public ExMonitorWidget::Content
{
public:
    /// Observes both.
    StudiesContent(QWidget &panel, ExMonitorWidget::Content &viewers);

    [[nodiscard]] QWidget *widgetForMonitor(
        const ExMonitorWidget::Configuration &configuration, int monitor) override;
    /// Whether the list stands beside the viewers on this monitor.
    [[nodiscard]] bool isBesideViewers(int monitor);

private:
    [[nodiscard]] bool isWithViewers();

    QWidget &m_panel;
    ExMonitorWidget::Content &m_viewers;
};
