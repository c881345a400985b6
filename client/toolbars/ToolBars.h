#pragma once

#include "client/toolbars/ToolBarLayout.h"
#include "framework/monitors/ExMonitorWidget.h"
#include "framework/notification/ExNotifiable.h"
#include "framework/tools/ExToolGroup.h"
#include "platform/util/McHandle.h"

#include <QString>

#include <memory>
#include <vector>

class ExToolBar;

/// The tool bars of the viewers, as the user's file says, or, where there is none or it is damaged,
/// as the file that comes with the program does. Tools that are unknown, or that the user may not
/// use, are left out, and so are separators that would stand beside nothing. The tool bars belong
/// to the window that they stand in, without one to this. GUI thread only.
class ToolBars
{
public:
    /// Makes the tool bars. A damaged file, and unknown tools in one, are told in a message box
    /// once the event loop runs.
    ToolBars();
    ~ToolBars();
    ToolBars(const ToolBars &) = delete;
    ToolBars &operator=(const ToolBars &) = delete;

    /// In their order, for ExMonitorManager::setToolBars().
    [[nodiscard]] const QList<ExMonitorWidget::ToolBar> &entries() const { return m_entries; }

    /// The user's file, which need not be there: beside the settings.
    static QString userFile();
    /// Makes the user's file from the present one of the program, unless it is there. @return what
    /// went wrong; empty when nothing did.
    static QString createUserFile();

private:
    [[nodiscard]] ToolBarLayout layout();
    void noteUnknownTools(const ToolBarLayout &own);
    void addBar(const ToolBarLayout::Bar &bar);
    void addItem(ExToolBar &toolBar, const ToolBarLayout::Item &item);
    void addPopup(ExToolBar &toolBar, const ToolBarLayout::Item &item);
    /// Has the buttons of pop-ups stand for what is active, also where that was not chosen here.
    void showActiveTools();

    QList<ExMonitorWidget::ToolBar> m_entries;
    QObject m_context; ///< What is to be told is told while it is there.
    QString m_problem; ///< with the user's file, for the user; empty when there is none
    std::vector<std::unique_ptr<ExToolGroup>> m_groups;
    McHandle<ExNotifiable> m_watch;
};
