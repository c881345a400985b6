// Windows: the user's commands are caught before they are carried out.
#include "framework/monitors/ExMonitorWidgetPrivate.h"
#include "framework/monitors/MonitorWindowSystem.h"
#include "framework/monitors/win32/WindowProcedureHook.h"

#include <bit>

namespace {

void *handleOf(const ExMonitorWidget &widget)
{
    return std::bit_cast<void *>(widget.winId());
}

void receive(void *context, WindowProcedureHook::Command command)
{
    using Command = MonitorWindowSystem::Command;
    auto &widget = *static_cast<ExMonitorWidget *>(context);
    switch (command) {
    case WindowProcedureHook::Command::Maximize:
        ExMonitorWidgetPrivate::of(widget).command(Command::Maximize);
        break;
    case WindowProcedureHook::Command::Minimize:
        ExMonitorWidgetPrivate::of(widget).command(Command::Minimize);
        break;
    case WindowProcedureHook::Command::Restore:
        ExMonitorWidgetPrivate::of(widget).command(Command::Restore);
        break;
    }
}

class WindowProcedureSystem final : public MonitorWindowSystem
{
public:
    void attach(ExMonitorWidget &widget) override
    {
        WindowProcedureHook::install(handleOf(widget), receive, &widget);
    }
    void detach(ExMonitorWidget &widget) override
    {
        WindowProcedureHook::deinstall(handleOf(widget));
    }
    int makeRestorable(ExMonitorWidget &widget) override
    {
        return WindowProcedureHook::makeRestorable(handleOf(widget));
    }
    void setStyle(ExMonitorWidget &widget, int style) override
    {
        WindowProcedureHook::setStyle(handleOf(widget), style);
    }
    void raiseAndRelease(ExMonitorWidget &widget) override
    {
        WindowProcedureHook::raiseAndRelease(handleOf(widget));
    }
    [[nodiscard]] bool movesBeforeMaximizing() const override { return true; }
};

} // namespace

MonitorWindowSystem &MonitorWindowSystem::instance()
{
    static WindowProcedureSystem system;
    return system;
}
