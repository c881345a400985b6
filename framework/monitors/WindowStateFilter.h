#pragma once

#include "framework/monitors/MonitorWindowSystem.h"

#include <QObject>

/// Tells user's commands on monitor windows from the changes of state that the window system has
/// made.
class WindowStateFilter : public QObject
{
    Q_OBJECT

public:
    void attach(ExMonitorWidget &widget);
    void detach(ExMonitorWidget &widget);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    static void commandFor(ExMonitorWidget &widget);
};
