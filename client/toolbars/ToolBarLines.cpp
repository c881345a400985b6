#include "client/toolbars/ToolBarLines.h"

#include "framework/monitors/ExMonitorWidget.h"

#include <QMainWindow>
#include <QToolBar>

#include <algorithm>
#include <tuple>
#include <utility>

namespace {

/// Of a tool bar: it begins a line because it did not fit.
constexpr const char *ownLine = "ownLine";

/// In the order in which they stand.
QList<QToolBar *> barsIn(const QMainWindow &window, Qt::ToolBarArea area)
{
    QList<QToolBar *> bars = window.findChildren<QToolBar *>(QString(), Qt::FindDirectChildrenOnly);
    bars.removeIf([&](QToolBar *bar) {
        return window.toolBarArea(bar) != area || bar->isHidden() || bar->isFloating();
    });
    std::sort(bars.begin(), bars.end(), [](const QToolBar *a, const QToolBar *b) {
        return std::tuple(a->y(), a->x()) < std::tuple(b->y(), b->x());
    });
    return bars;
}

void setOwnLine(QMainWindow &window, QToolBar &bar, bool on)
{
    on ? window.insertToolBarBreak(&bar) : window.removeToolBarBreak(&bar);
    bar.setProperty(ownLine, on);
}

void arrangeLines(QMainWindow &window, Qt::ToolBarArea area)
{
    int used = 0;
    for (QToolBar *bar : barsIn(window, area)) {
        const bool beginsLine = window.toolBarBreak(bar);
        const bool isUsers = beginsLine && !bar->property(ownLine).toBool();
        const int width = bar->sizeHint().width();
        const bool mustBegin = used > 0 && used + width > window.width();
        if (!isUsers && mustBegin != beginsLine) {
            setOwnLine(window, *bar, mustBegin);
        }
        used = isUsers || mustBegin ? width : used + width;
    }
}

} // namespace

void ToolBarLines::addWindow(ExMonitorWidget &window)
{
    m_windows.append(&window);
    connect(&window, &ExMonitorWidget::widgetResized, this, &ToolBarLines::arrangeLater);
    arrangeLater();
}

void ToolBarLines::addToolBar(QToolBar &toolBar)
{
    connect(&toolBar, &QToolBar::orientationChanged, this, &ToolBarLines::arrangeLater);
    connect(&toolBar, &QToolBar::topLevelChanged, this, &ToolBarLines::arrangeLater);
    connect(&toolBar, &QToolBar::visibilityChanged, this, &ToolBarLines::arrangeLater);
}

void ToolBarLines::arrangeLater()
{
    // Only then do the bars stand where the window has put them.
    if (!std::exchange(m_isToArrange, true)) {
        QMetaObject::invokeMethod(
            this, [this] { arrange(); }, Qt::QueuedConnection);
    }
}

void ToolBarLines::arrange()
{
    m_isToArrange = false;
    for (const QPointer<ExMonitorWidget> &window : m_windows) {
        for (QMainWindow *main : window ? window->mainWindows() : QList<QMainWindow *>()) {
            arrangeLines(*main, Qt::TopToolBarArea);
            arrangeLines(*main, Qt::BottomToolBarArea);
        }
    }
}

void ToolBarLines::undo()
{
    for (const QPointer<ExMonitorWidget> &window : m_windows) {
        for (QMainWindow *main : window ? window->mainWindows() : QList<QMainWindow *>()) {
            for (QToolBar *bar : main->findChildren<QToolBar *>()) {
                if (bar->property(ownLine).toBool()) {
                    setOwnLine(*main, *bar, false);
                }
            }
        }
    }
}
