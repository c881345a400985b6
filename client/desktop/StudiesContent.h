#pragma once

#include "framework/monitors/ExMonitorWidget.h"

/// The content "studies": a place for the panel with the list of studies. In a window together with
/// the viewers it shows nothing itself, because the panel stands beside the viewers there.
class StudiesContent final : public ExMonitorWidget::Content
{
public:
    /// Observes both.
    StudiesContent(QWidget &place, ExMonitorWidget::Content &viewers);

    [[nodiscard]] QWidget *widgetForMonitor(
        const ExMonitorWidget::Configuration &configuration, int monitor) override;
    /// Whether the list stands beside the viewers.
    [[nodiscard]] bool isWithViewers();

private:
    QWidget &m_place;
    ExMonitorWidget::Content &m_viewers;
};
