#pragma once

#include "client/toolbars/ToolBarLayout.h"
#include "framework/notification/ExNotifiable.h"
#include "framework/tools/ExToolGroup.h"
#include "platform/util/McHandle.h"

#include <QString>

#include <memory>
#include <vector>

class ExToolBar;
class QMainWindow;

/// The tool bars of a window, as the user's file says, or, where there is none or it is damaged, as
/// the file that comes with the program does. Tools that are unknown, or that the user may not use,
/// are left out, and so are separators that would stand beside nothing. Owned by the window. GUI
/// thread only.
class ToolBars
{
public:
    /// Fills the window. A damaged file, and unknown tools in one, are told in a message box once
    /// the event loop runs.
    explicit ToolBars(QMainWindow &window);
    ~ToolBars();
    ToolBars(const ToolBars &) = delete;
    ToolBars &operator=(const ToolBars &) = delete;

    /// What is wrong with the user's file, with its line; empty when nothing is.
    [[nodiscard]] const QString &problem() const { return m_problem; }

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

    QMainWindow &m_window;
    QString m_problem;
    std::vector<std::unique_ptr<ExToolGroup>> m_groups;
    McHandle<ExNotifiable> m_watch;
};
