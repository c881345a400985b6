// Tool bars of the monitor windows: hiding, matching, remembering.
#include "framework/monitors/ExMonitorManager.h"

#include "framework/monitors/ExMonitorManagerPrivate.h"
#include "platform/properties/KxPropertyPool.h"

#include <QMainWindow>
#include <QToolBar>

#include <algorithm>

namespace {

QList<QToolBar *> toolBarsOf(const QMainWindow &window)
{
    QList<QToolBar *> bars = window.findChildren<QToolBar *>(QString(), Qt::FindDirectChildrenOnly);
    bars.erase(std::remove_if(bars.begin(), bars.end(),
                   [](const QToolBar *bar) { return bar->objectName().isEmpty(); }),
        bars.end());
    return bars;
}

QToolBar *toolBarNamed(const QMainWindow &window, const QString &name)
{
    const QList<QToolBar *> bars = toolBarsOf(window);
    const auto found = std::find_if(bars.begin(), bars.end(),
        [&name](const QToolBar *bar) { return bar->objectName() == name; });
    return found == bars.end() ? nullptr : *found;
}

/// Tool bars in the order in which they stand: by line, then along it.
QList<QToolBar *> inOrder(const QMainWindow &window)
{
    QList<QToolBar *> bars = toolBarsOf(window);
    const auto place = [](const QToolBar *bar) {
        const bool lies = bar->orientation() == Qt::Horizontal;
        return std::pair(lies ? bar->y() : bar->x(), lies ? bar->x() : bar->y());
    };
    std::stable_sort(bars.begin(), bars.end(),
        [&](const QToolBar *a, const QToolBar *b) { return place(a) < place(b); });
    return bars;
}

void copyLayout(const QMainWindow &from, QMainWindow &to)
{
    for (const QToolBar *const model : inOrder(from)) {
        auto *const bar = toolBarNamed(to, model->objectName());
        if (bar == nullptr) {
            continue;
        }
        const Qt::ToolBarArea area = from.toolBarArea(model);
        to.removeToolBarBreak(bar);
        if (from.toolBarBreak(const_cast<QToolBar *>(model))) {
            to.addToolBarBreak(area);
        }
        to.addToolBar(area, bar);
        bar->setVisible(!model->isHidden());
    }
}

/// The setting that keeps the layout of a main window.
KxProperty<QString> &stateProperty(const QMainWindow &window)
{
    KxPropertyPool &pool = KxPropertyPool::instance();
    return pool.property<QString>(QLatin1String("UI.ToolBarState.") + window.objectName(),
        QString(), pool.registrySerializer());
}

void saveState(const QMainWindow &window)
{
    stateProperty(window).change(QString::fromLatin1(window.saveState().toBase64()));
}

void restoreState(QMainWindow &window)
{
    const QString state = stateProperty(window).value();
    if (!state.isEmpty()) {
        window.restoreState(QByteArray::fromBase64(state.toLatin1()));
    }
}

} // namespace

void ExMonitorManager::toggleToolBars(ExMonitorWidget *widget)
{
    if (widget == nullptr) {
        return;
    }
    if (areToolBarsHidden(widget)) {
        const QList<QPointer<QToolBar>> bars = d->hiddenToolBars.at(widget);
        d->hiddenToolBars.erase(widget);
        for (const QPointer<QToolBar> &bar : bars) {
            // It may be gone, or stand elsewhere by now.
            if (bar != nullptr
                && widget->mainWindows().contains(qobject_cast<QMainWindow *>(bar->parent()))) {
                bar->show();
            }
        }
        return;
    }
    QList<QPointer<QToolBar>> &hidden = d->hiddenToolBars[widget];
    for (const QMainWindow *const window : widget->mainWindows()) {
        for (QToolBar *const bar : toolBarsOf(*window)) {
            if (!bar->isHidden()) {
                hidden.append(bar);
                bar->hide();
            }
        }
    }
}

void ExMonitorManager::setToolBarVisible(const ExMonitorWidget *widget, QToolBar *bar, bool visible)
{
    const auto hidden = d->hiddenToolBars.find(widget);
    if (hidden == d->hiddenToolBars.end()) {
        bar->setVisible(visible);
        return;
    }
    bar->hide();
    hidden->second.removeAll(bar);
    if (visible) {
        hidden->second.append(bar);
    }
}

bool ExMonitorManager::areToolBarsHidden(ExMonitorWidget *widget) const
{
    return d->hiddenToolBars.count(widget) != 0;
}

void ExMonitorManager::synchronizeToolBars(ExMonitorWidget *widget, const QList<int> &monitors)
{
    if (widget == nullptr) {
        return;
    }
    const QMainWindow *const model = widget->activeMainWindow();
    for (ExMonitorWidget *const other : monitorWidgets()) {
        for (const int monitor : other->monitors()) {
            QMainWindow *const window = other->mainWindowForMonitor(monitor);
            if (window != model && (other != widget || monitors.contains(monitor))) {
                copyLayout(*model, *window);
            }
        }
    }
}

void ExMonitorManager::saveOrRestoreToolBarStates(bool save)
{
    for (const ExMonitorWidget *const widget : monitorWidgets()) {
        for (QMainWindow *const window : widget->mainWindows()) {
            if (save) {
                saveState(*window);
            } else {
                restoreState(*window);
            }
        }
    }
}
