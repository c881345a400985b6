#pragma once

#include "framework/monitors/ExMonitorManager.h"
#include "tests/support/Prelude.h"

inline ExMonitorManager &manager()
{
    return ExMonitorManager::instance();
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
