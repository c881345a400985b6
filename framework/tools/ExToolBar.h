#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "framework/tools/ExToolGroup.h"
#include "framework/viewers/Ex.h"

#include <QCursor>
#include <QToolBar>

class ExActionUI;

/// Tool bar that is at the same time the group of the tools it shows. Shows tools as buttons,
/// groups of tools as one pop-up button each, and gives every tool's button a context menu. Hidden
/// until it is asked to show. Owned by its toolkit parent; tools, actions, groups and other bars
/// may go in any order. GUI thread only.
class MOVARA_FRAMEWORK_EXPORT ExToolBar : public QToolBar, public ExToolGroup
{
    Q_OBJECT

public:
    /// @param parent may be null.
    explicit ExToolBar(QWidget *parent);
    /// @param title becomes window title, object name and tool tip.
    explicit ExToolBar(const QString &title);
    /// A bar with the title, names, button style and actions of another one, and its mark as
    /// defined by the user when that has one. The actions are shared, members are not: the group of
    /// the new bar is empty.
    explicit ExToolBar(const QToolBar &other);
    /// The same; not another address of the other bar's group.
    ExToolBar(const ExToolBar &other);
    ExToolBar &operator=(const ExToolBar &) = delete;
    ~ExToolBar() override;

    /// Adds a tool's action at the end and the tool to the group; one that is there moves to the
    /// end.
    /// @param toolBarFixed whether the tool keeps a button of its own beside a pop-up of the group.
    /// @return the action; null, with nothing added, when the tool's first binding is not an
    /// action.
    ExActionUI *addTool(ExTool &tool, bool toolBarFixed);
    /// Takes an action off the bar and its tool out of the group; null is ignored.
    void removeActionUI(ExActionUI *action);
    /// Adds a group as one button with a menu of its present members. The button stands for the
    /// member activated last when the group brings up its tools, otherwise for @p tool.
    /// @param tool may be null; the only one to be shown when the group has no members.
    /// @return the button's action; null when there is nothing to show.
    ExActionUI *addToolPopup(ExToolGroup &group, ExTool *tool);
    /// Adds the tools of another bar as one button; null is ignored.
    void addPopup(ExToolBar *other);
    /// Adds empty space along the direction of the bar. @param size in device-independent pixels.
    void addSpacer(int size);

    void setVisible(bool visible) override;
    /// What was asked of setVisible() last, whether or not the window around the bar is shown.
    [[nodiscard]] bool isToolBarVisible() const { return m_toolBarVisible; }
    /// Whether the user has put the bar together; false at first.
    void setCustomDefined(bool custom) { m_customDefined = custom; }
    [[nodiscard]] bool customDefined() const { return m_customDefined; }
    /// How the bar is first shown, for the client that places it.
    void setInitialState(Ex::ToolBarState state) { m_initialState = state; }
    [[nodiscard]] Ex::ToolBarState initialState() const { return m_initialState; }

    /// Prints the bar and the keys of its tools to the standard output, as an XML element in the
    /// local 8-bit encoding. Characters that XML reserves are escaped, so that the text can go into
    /// a configuration file as it is.
    void dump() const;

    /// The cursor over the bar is what was set on it, or the arrow: never that of what is around.
    bool event(QEvent *event) override;

public Q_SLOTS:
    /// Shows the context menu of a tool, for the tool button or the menu that sends the signal.
    void showToolsContextMenu(const QPoint &position);
    /// Brings the actions of the menu that sends the signal up to date.
    void subToolMenuAboutToShow();

protected:
    void actionEvent(QActionEvent *event) override;

private:
    void initialize();
    void applyColors();
    void addToolsContextMenu(QAction *action);
    void keepCursor();
    [[nodiscard]] bool hasHandleCursor() const;
    [[nodiscard]] QMenu *createMemberMenu(const ExToolGroup &group);
    ExActionUI *groupAction(ExToolGroup &group, ExTool *tool);

    bool m_toolBarVisible = false;
    /// What was set on the bar, to be set again when the toolkit has taken it away.
    QCursor m_ownCursor{Qt::ArrowCursor};
    bool m_customDefined = false;
    Ex::ToolBarState m_initialState = Ex::TOOL_BAR_DOCKED;
};
