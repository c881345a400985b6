#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "framework/tools/ExToolUI.h"

#include <QAction>
#include <QStringList>

class ExDecoration;
class QMenu;
class QPushButton;
class QToolButton;

/// Binding of a tool as a toolkit action: checkable when the tool has a state, plain when it is a
/// command. Text, icon, tool tip and shortcut come from the application's decoration provider. Made
/// only by the static functions; owned by a hidden widget that lives as long as the toolkit's
/// application object, and so not held by McHandle. GUI thread only.
class MOVARA_FRAMEWORK_EXPORT ExActionUI : public QAction, public ExToolUI
{
    Q_OBJECT

public:
    ~ExActionUI() override;
    void ref() const = delete;
    void unref() const = delete;

    /// A new action for the tool. The shortcut of any but the tool's first one stays local to the
    /// widgets it is added to.
    static ExActionUI *cloneAction(ExTool &tool);
    /// The tool's first action, made when there is none: all places that show the tool share it.
    /// Null when the tool's first binding is of another kind.
    static ExActionUI *createAction(ExTool &tool);
    /// The action of the tool with this key, which is created on demand; null for a key that is
    /// unknown or that the user has no right to. "separator", in any case, gives a new separator
    /// owned by @p parent.
    static QAction *createAction(const char *key, QWidget *parent);
    /// The actions of several keys, in order; keys without an action are left out.
    static QList<QAction *> createActions(const QStringList &keys, QWidget *parent);
    /// A new menu with the actions of several keys, owned by @p parent. Null when it would hold no
    /// action but separators.
    static QMenu *createMenu(const QString &title, const QStringList &keys, QWidget *parent);
    /// Has a button show the tool's action; gives the action.
    static ExActionUI *bind(QToolButton *button, ExTool &tool);
    /// Has a button trigger the tool's action; gives the action.
    static ExActionUI *bind(QPushButton *button, ExTool &tool);
    /// The same by key. Without an action the button is hidden and null given.
    static QAction *bind(QToolButton *button, const char *key);
    /// Shows the list of all shortcuts.
    static void showShortCutList();

    /// Whether the action is checked.
    [[nodiscard]] bool isActive() const override;
    /// Shows the tool's state, without triggering anything.
    void update(ExBaseViewer *viewer) override;
    /// This action itself.
    [[nodiscard]] QAction *action() const override;
    void setTool(ExTool *tool) override;

    /// Takes text, icon, tool tip and shortcut of a key. A key that the provider does not know is
    /// told on the standard output. Null for the provider does nothing.
    virtual void setDecoration(const ExDecoration *decoration, const char *key);
    /// Sets the shortcut from its text form, in the local 8-bit encoding, and enters it as the
    /// tool's hot key. "NUM+" in it is dropped, with all keys but the first. Empty or null text
    /// clears shortcut and hot key.
    virtual void setShortCut(const char *text);

    /// One press of a shortcut acts once, also where several actions in a window have it: actions
    /// of one tool count as one, and different tools are asked in the order of ExHotKeys.
    bool event(QEvent *event) override;

public Q_SLOTS:
    void slot_actionToggled(bool on);
    void slot_actionTriggered(bool on);
    /// Lets the user edit the settings that belong to the tool, or, when it names none, look at all
    /// settings.
    void slot_editProperties();

protected:
    ExActionUI();

    /// Whether the shortcut stays local to the widgets that show the action.
    void setLocalShortCut(bool local) { m_localShortCut = local; }

    /// The user has toggled the action: switches the tool. Unchecking a standard tool only has the
    /// action checked again.
    virtual void actionToggled(bool on);
    /// The user has triggered the action: runs the tool.
    virtual void actionTriggered(bool on);

private:
    [[nodiscard]] bool isSharedWithOtherTools() const;

    /// The tool had an action already: the shortcut of this one stays local to its widget.
    bool m_localShortCut = false;
    /// The text differs between the tool's active and inactive state.
    bool m_stateDependentText = true;
};
