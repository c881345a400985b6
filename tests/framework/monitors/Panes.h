#pragma once

#include "framework/monitors/ExMonitorManager.h"
#include "tests/support/Prelude.h"

inline ExMonitorManager &manager()
{
    return ExMonitorManager::instance();
}

/// Names the monitors that there are to be, such as "800x600,640x480".
inline void setMonitors(const char *variable)
{
    qputenv("MOVARA_MONITORS", variable);
    manager().readMonitorConfiguration();
}

/// Content with a widget on each of its monitors.
class Panes : public ExMonitorWidget::Content
{
public:
    explicit Panes(const char *name) { setShortName(QLatin1String(name)); }
    Panes(const Panes &) = delete;
    Panes &operator=(const Panes &) = delete;
    ~Panes() override { manager().removeContent(this); }

    QWidget *widgetForMonitor(
        const ExMonitorWidget::Configuration &configuration, int monitor) override
    {
        return configuration.monitors.contains(monitor) && monitor >= 0
            ? &widgets.at(static_cast<std::size_t>(monitor))
            : nullptr;
    }

    std::array<QWidget, 9> widgets;
};
