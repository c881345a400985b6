#include "framework/monitors/WindowStateFilter.h"

#include "framework/monitors/ExMonitorWidgetPrivate.h"

#include <QEvent>
#include <QTimer>

void WindowStateFilter::attach(ExMonitorWidget &widget)
{
    widget.installEventFilter(this);
}

void WindowStateFilter::detach(ExMonitorWidget &widget)
{
    widget.removeEventFilter(this);
}

bool WindowStateFilter::eventFilter(QObject *watched, QEvent *event)
{
    auto *const widget = qobject_cast<ExMonitorWidget *>(watched);
    if (widget != nullptr && event->type() == QEvent::WindowStateChange
        && !ExMonitorWidgetPrivate::of(*widget).isSwitching) {
        // The command makes a new native window: not inside an event of the present one.
        QTimer::singleShot(0, widget, [widget] { commandFor(*widget); });
    }
    return false;
}

void WindowStateFilter::commandFor(ExMonitorWidget &widget)
{
    using Command = MonitorWindowSystem::Command;
    ExMonitorWidgetPrivate &d = ExMonitorWidgetPrivate::of(widget);
    const bool isMinimized = widget.windowState().testFlag(Qt::WindowMinimized);
    const bool isMaximized = widget.windowState().testFlag(Qt::WindowMaximized);
    if (isMinimized && d.state != Qt::WindowMinimized) {
        d.command(Command::Minimize);
    } else if (!isMinimized && d.state == Qt::WindowMinimized) {
        d.command(Command::Restore);
    } else if (isMaximized && d.state == Qt::WindowNoState) {
        d.command(Command::Maximize);
    }
}
