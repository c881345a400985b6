#include "framework/monitors/ExMainWindow.h"

#include "framework/monitors/ExMonitorManager.h"
#include "platform/rights/UserFunctionPermissions.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QMenu>
#include <QPointer>

#include <memory>

ExMainWindow::ExMainWindow(QWidget *parent)
    : QMainWindow(parent)
{
    // A main window makes itself a window of its own; this one is part of the monitor's.
    setWindowFlags(Qt::Widget);
}

QMenu *ExMainWindow::createPopupMenu()
{
    auto menu = std::make_unique<QMenu>(this);
    ExMonitorWidget *const monitorWidget = ExMonitorWidget::parentWidget(this);
    const bool allowed
        = Zel::UserFunctionPermissions::instance().haveToolPermission("View.ShowToolBars", true);
    if (!allowed) {
        return menu.release();
    }
    ExMonitorManager &manager = ExMonitorManager::instance();
    QAction *const showAll = menu->addAction(tr("Show All"));
    showAll->setCheckable(true);
    showAll->setChecked(!manager.areToolBarsHidden(monitorWidget));

    QAction *const synchronize = menu->addAction(tr("Synchronize with other monitors"));
    synchronize->setData(QVariant::fromValue(manager.monitors(monitorWidget)));
    if (monitorWidget == nullptr) {
        menu->setEnabled(false);
        return menu.release();
    }
    connect(showAll, &QAction::triggered, monitorWidget, &ExMonitorWidget::toggleToolBars);
    connect(synchronize, &QAction::triggered, monitorWidget, &ExMonitorWidget::synchronizeToolBars);
    return menu.release();
}

void ExMainWindow::contextMenuEvent(QContextMenuEvent *event)
{
    event->ignore();
    // While the menu is open a display may go, and with it this window and its menu.
    const QPointer<QMenu> menu = createPopupMenu();
    if (menu != nullptr && !menu->isEmpty()) {
        menu->move(event->globalPos());
        menu->exec(event->globalPos());
        event->accept();
    }
    delete menu;
}
