#include "framework/tools/ExMenuTrigger.h"

#include "framework/tools/ExActionUI.h"

#include <QMenu>

ExMenuTrigger::ExMenuTrigger(const char *name, QObject *receiver, const char *slot,
    QObject *supportsReceiver, const char *supportsSlot)
    : ExTrigger(name)
{
    setActivatable(false);
    if (receiver != nullptr && slot != nullptr) {
        QObject::connect(this, SIGNAL(trigger(bool)), receiver, slot);
    }
    connectSupportsViewer(supportsReceiver, supportsSlot);
}

ExMenuTrigger::ExMenuTrigger(const char *name, const QStringList &subMenuKeys,
    QObject *supportsReceiver, const char *supportsSlot)
    : ExTrigger(name)
    , m_subMenuKeys(subMenuKeys)
{
    setActivatable(false);
    createSubMenu(this, SLOT(slotAboutToShow()));
    connectSupportsViewer(supportsReceiver, supportsSlot);
}

ExMenuTrigger::~ExMenuTrigger() = default;

void ExMenuTrigger::connectSupportsViewer(QObject *receiver, const char *slot)
{
    if (receiver != nullptr && slot != nullptr) {
        QObject::connect(this, SIGNAL(supports(const ExBaseViewer *)), receiver, slot);
    }
}

void ExMenuTrigger::createSubMenu(QObject *receiver, const char *slot)
{
    ExActionUI *const own = action();
    auto *const menu = new QMenu;
    // The action does not own its menu, and outlives the event loop.
    QObject::connect(own, &QObject::destroyed, menu, [menu] { delete menu; });
    menu->addActions(ExActionUI::createActions(m_subMenuKeys, menu));
    if (QMenu *const previous = own->menu()) {
        previous->deleteLater();
    }
    own->setMenu(menu);
    if (receiver != nullptr && slot != nullptr) {
        QObject::connect(menu, SIGNAL(aboutToShow()), receiver, slot);
    }
}

ExActionUI *ExMenuTrigger::action()
{
    return ExActionUI::createAction(*this);
}

bool ExMenuTrigger::supportsViewer(const ExBaseViewer *viewer) const
{
    if (receivers(SIGNAL(supports(const ExBaseViewer *))) == 0) {
        return true;
    }
    return Q_EMIT supports(viewer);
}

bool ExMenuTrigger::process(ExBaseViewer *viewer, bool on)
{
    return supportsViewer(viewer) && receivers(SIGNAL(trigger(bool))) > 0 && Q_EMIT trigger(on);
}

void ExMenuTrigger::slotAboutToShow()
{
    const auto *const menu = qobject_cast<QMenu *>(sender());
    const QList<QAction *> actions = menu == nullptr ? QList<QAction *>() : menu->actions();
    for (QAction *action : actions) {
        if (auto *const ui = qobject_cast<ExActionUI *>(action)) {
            ui->update(nullptr);
        }
    }
}
