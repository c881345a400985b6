#pragma once

class ExMonitorWidget;

/// What monitor windows need of the window system. One in the process; each window system has its
/// own. GUI thread only.
class MonitorWindowSystem
{
public:
    /// What the user asks for by the title bar, the system menu or the task bar.
    enum class Command { Maximize, Minimize, Restore };

    MonitorWindowSystem() = default;
    MonitorWindowSystem(const MonitorWindowSystem &) = delete;
    MonitorWindowSystem &operator=(const MonitorWindowSystem &) = delete;
    virtual ~MonitorWindowSystem() = default;

    static MonitorWindowSystem &instance();

    /// From now on the user's commands on this window go to ExMonitorWidgetPrivate::command().
    /// Called again for every native window that the widget gets.
    virtual void attach(ExMonitorWidget &widget) = 0;
    /// The widget is going.
    virtual void detach(ExMonitorWidget &widget) = 0;
    /// Gives a minimised frameless window the style by which the task bar can restore it.
    /// @return the style that it had; 0 where windows need none.
    virtual int makeRestorable(ExMonitorWidget &widget) = 0;
    /// Puts a style from makeRestorable() back.
    virtual void setStyle(ExMonitorWidget &widget, int style) = 0;
    /// Brings the window above all others and leaves it there as an ordinary one.
    virtual void raiseAndRelease(ExMonitorWidget &widget) = 0;
    /// Whether a window that is maximised is told of its move before it is told of its state.
    [[nodiscard]] virtual bool movesBeforeMaximizing() const = 0;
};
