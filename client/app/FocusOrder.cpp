#include "client/app/FocusOrder.h"

#include "client/app/NotificationWatch.h"
#include "client/app/Workstation.h"
#include "client/editors/PanelEditors.h"
#include "client/viewers/WorkstationViewer.h"
#include "framework/editors/ExEditor.h"
#include "framework/editors/ExEditorContainer.h"
#include "framework/monitors/ExMonitorManager.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QMainWindow>
#include <QShortcut>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>
#include <utility>

namespace {

bool canTakeFocus(const QWidget *widget)
{
    return widget != nullptr && widget->isVisible() && widget->isEnabled();
}

/// A panel may be in a region that is collapsed.
bool isSeen(const QWidget &widget)
{
    return widget.isVisible() && !widget.visibleRegion().isEmpty();
}

/// What had the focus last in a panel, else what Tab would come to first; null when nothing can.
QWidget *targetIn(QWidget &panel)
{
    if (canTakeFocus(panel.focusWidget())) {
        return panel.focusWidget();
    }
    QWidget *each = panel.nextInFocusChain();
    while (each != &panel
        && !(panel.isAncestorOf(each) && (each->focusPolicy() & Qt::TabFocus) != 0
            && canTakeFocus(each))) {
        each = each->nextInFocusChain();
    }
    return each != &panel || panel.focusPolicy() != Qt::NoFocus ? each : nullptr;
}

/// Whether both are viewers, or both buttons of tool bars.
bool isAlike(const QWidget &one, const QWidget &other)
{
    const auto isViewer = [](const QWidget &widget) {
        return qobject_cast<const ViewerRenderWidget *>(&widget) != nullptr;
    };
    const auto isInBar = [](const QWidget &widget) {
        return qobject_cast<const QToolBar *>(widget.parentWidget()) != nullptr;
    };
    return (isViewer(one) && isViewer(other)) || (isInBar(one) && isInBar(other));
}

QList<QToolBar *> toolBars()
{
    QList<QToolBar *> found;
    for (const ExMonitorWidget *monitor : ExMonitorManager::instance().monitorWidgets()) {
        for (const QMainWindow *window : monitor->mainWindows()) {
            found += window->findChildren<QToolBar *>(QString(), Qt::FindDirectChildrenOnly);
        }
    }
    return found;
}

} // namespace

FocusOrder::FocusOrder(QWidget *list, Workstation &workstation)
    : m_list(list)
    , m_workstation(workstation)
    , m_layoutWatch(new NotificationWatch(
          {ExNotification::VIEWER_LAYOUT_CHANGED, ExNotification::MONITOR_CONFIGURATION_CHANGED},
          [this](const ExNotification & /*notification*/) { arrange(); }))
    , m_windowWatch(new NotificationWatch(
          {ExNotification::SCREEN_RECONFIGURED, ExNotification::MONITOR_CONFIGURATION_CHANGED},
          [this](const ExNotification & /*notification*/) { giveToViewerLater(); }))
{ }

void FocusOrder::addWindow(ExMonitorWidget &window)
{
    for (QWidget *button : buttons()) {
        button->setFocusPolicy(Qt::TabFocus);
    }
    addKey(window, Qt::Key_F6, 1);
    addKey(window, Qt::SHIFT | Qt::Key_F6, -1);
    window.installEventFilter(this);
    arrange();
}

bool FocusOrder::eventFilter(QObject * /*watched*/, QEvent *event)
{
    if (event->type() == QEvent::Show) {
        giveToViewerLater();
    }
    return false;
}

void FocusOrder::giveToViewerLater()
{
    if (!std::exchange(m_isToGive, true)) {
        QMetaObject::invokeMethod(
            this, [this] { giveToViewer(); }, Qt::QueuedConnection);
    }
}

void FocusOrder::giveToViewer()
{
    m_isToGive = false;
    const WorkstationViewer *const viewer = m_workstation.activeViewer();
    for (QWidget *target :
        {viewer == nullptr ? nullptr : static_cast<QWidget *>(viewer->widget()), m_list.data()}) {
        if (!canTakeFocus(target)) {
            continue;
        }
        // Of its window, whether that has the keyboard now or gets it when it is activated.
        const QWidget *const focused = target->window()->focusWidget();
        if (!canTakeFocus(focused) || qobject_cast<const QAbstractButton *>(focused) != nullptr) {
            target->setFocus(Qt::OtherFocusReason);
        }
    }
}

void FocusOrder::addKey(QWidget &window, const QKeySequence &key, int step)
{
    auto *const shortcut = new QShortcut(key, &window);
    connect(shortcut, &QShortcut::activated, this, [this, step] { moveToArea(step); });
}

void FocusOrder::arrange()
{
    for (const ExMonitorWidget *window : ExMonitorManager::instance().monitorWidgets()) {
        arrangeIn(*window);
    }
}

void FocusOrder::arrangeIn(const QWidget &window)
{
    std::vector<QWidget *> order{m_list};
    for (const WorkstationViewer *viewer : m_workstation.viewers()) {
        order.push_back(viewer->widget());
    }
    const std::vector<QWidget *> last = buttons();
    order.insert(order.end(), last.begin(), last.end());
    std::erase_if(order, [&window](const QWidget *widget) {
        return widget == nullptr || widget->window() != &window;
    });
    for (std::size_t i = 1; i < order.size(); ++i) {
        QWidget::setTabOrder(order[i - 1], order[i]);
    }
}

void FocusOrder::moveToArea(int step)
{
    const std::vector<Area> all = areas();
    const int count = static_cast<int>(all.size());
    const int current = currentArea(all);
    int next = current < 0 && step < 0 ? 0 : current;
    for (int tried = 0; tried < count; ++tried) {
        next = (next + step + count) % count;
        QWidget *const widget = all[static_cast<std::size_t>(next)].target;
        if (canTakeFocus(widget) && isSeen(*widget)) {
            widget->activateWindow();
            widget->setFocus(Qt::ShortcutFocusReason);
            return;
        }
    }
}

int FocusOrder::currentArea(const std::vector<Area> &areas)
{
    const QWidget *const focused = QApplication::focusWidget();
    if (focused == nullptr) {
        return -1;
    }
    const auto holds = [focused](const Area &area) {
        return area.target != nullptr
            && (area.whole != nullptr ? area.whole->isAncestorOf(focused)
                                      : isAlike(*area.target, *focused));
    };
    const auto found = std::find_if(areas.begin(), areas.end(), holds);
    return found == areas.end() ? -1 : static_cast<int>(found - areas.begin());
}

std::vector<FocusOrder::Area> FocusOrder::areas() const
{
    const WorkstationViewer *const viewer = m_workstation.activeViewer();
    const std::vector<QWidget *> all = buttons();
    const auto button = std::find_if(all.begin(), all.end(), &canTakeFocus);
    std::vector<Area> areas{{}, {viewer == nullptr ? nullptr : viewer->widget(), nullptr}};
    for (const ExEditor *editor : PanelEditors::living()) {
        QWidget *const panel = editor->widgetForMonitor(0);
        if (panel == nullptr || !isSeen(*panel)) {
            continue;
        }
        // With the tabs or the strip of its window, which belong to it.
        const QWidget *const whole
            = editor->isFloating() ? editor->floater() : editor->editorContainer();
        if (panel->isAncestorOf(m_list)) {
            areas.front() = {m_list, whole};
        } else {
            areas.push_back({targetIn(*panel), whole});
        }
    }
    areas.push_back({button == all.end() ? nullptr : *button, nullptr});
    return areas;
}

std::vector<QWidget *> FocusOrder::buttons()
{
    std::vector<QWidget *> found;
    for (const QToolBar *bar : toolBars()) {
        for (QAction *action : bar->actions()) {
            if (auto *const button = qobject_cast<QToolButton *>(bar->widgetForAction(action))) {
                found.push_back(button);
            }
        }
    }
    return found;
}
