#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "framework/tools/ExTrigger.h"

#include <QObject>
#include <QStringList>

class ExActionUI;

/// A trigger whose command and viewer test are slots of other objects, and which can carry a
/// sub-menu of further tools. Receivers and slots may be null; slots are written with SLOT(). GUI
/// thread only.
class MOVARA_FRAMEWORK_EXPORT ExMenuTrigger : public QObject, public ExTrigger
{
    Q_OBJECT

public:
    /// A command. @param slot a slot "bool (bool)". @param supportsSlot a slot "bool (const
    /// ExBaseViewer*)".
    ExMenuTrigger(const char *name, QObject *receiver, const char *slot, QObject *supportsReceiver,
        const char *supportsSlot);
    /// A sub-menu of the tools with these keys.
    ExMenuTrigger(const char *name, const QStringList &subMenuKeys, QObject *supportsReceiver,
        const char *supportsSlot);
    ~ExMenuTrigger() override;

    void connectSupportsViewer(QObject *receiver, const char *slot);
    /// Makes the sub-menu of this trigger's action anew. @param slot called when the menu is about
    /// to show.
    void createSubMenu(QObject *receiver, const char *slot);
    /// This trigger's action.
    ExActionUI *action();

    /// What the receiver of "supports" says; true without one. No volume is asked for: menus are
    /// there before images.
    [[nodiscard]] bool supportsViewer(const ExBaseViewer *viewer) const override;
    /// Has the receiver of "trigger" run the command, when there is one and the viewer is
    /// supported.
    bool process(ExBaseViewer *viewer, bool on) override;

protected:
    using ExTrigger::supports;

Q_SIGNALS:
    /// The command is to be run; the last receiver answers whether it was.
    bool trigger(bool on);
    /// The last receiver answers whether the viewer is supported.
    bool supports(const ExBaseViewer *viewer) const;

public Q_SLOTS:
    /// Refreshes the states of the actions in the menu that sent the signal.
    void slotAboutToShow();

private:
    QStringList m_subMenuKeys;
};
