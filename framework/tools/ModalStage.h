#pragma once

#include "platform/util/McHandle.h"

#include <map>
#include <memory>
#include <vector>

class ExBaseViewer;
class ExModal;
class ExNotifiable;
class ExTool;

/// The modal tools at work, in the order of their activation, those that wait for an active viewer,
/// and what becomes of them when viewers come and change. One for the process, never destroyed.
/// Knows the tools by plain pointer; they leave before they go. GUI thread only.
class ModalStage
{
public:
    static ModalStage &instance();

    /// Of every modal tool, when it comes and goes.
    void toolMade();
    void toolGone(ExModal *tool);

    [[nodiscard]] bool isAtWork(const ExModal *tool) const;
    /// Puts a tool to work on all viewers that it supports.
    void enter(ExModal *tool);
    /// Has the tool begin as soon as there is an active viewer.
    void wait(ExModal *tool);
    /// The tool leaves all viewers, and works and waits no more. Gives whether it was at work.
    bool leave(ExModal *tool);
    /// Puts the tools at work on a viewer that is on show; those that do not support it any more
    /// leave it.
    void join(ExBaseViewer *viewer);
    /// Has those that wait begin, when there is an active viewer.
    void beginWaiting();
    /// Shows the hint of the tool that is asked first on the active viewer.
    void showHint();
    /// Takes the sub-tools of a tool off the context tool bar. Only its address is used.
    void removeSubTools(const ExModal *tool);
    /// Brings the context tool bar up to date with the tools at work.
    void refreshToolBar();

    /// Keeps a tool from being destroyed by what it calls; a null handle for one that nobody holds,
    /// which its owner deletes: a handle of ours would be the first and the last.
    static McHandle<ExModal> keep(ExModal *tool);

private:
    ModalStage() = default;

    void place(ExModal *tool, ExBaseViewer &viewer);
    void retireDisplaced();
    /// Takes off the context tool bar what has left the groups at work; of what another one of them
    /// still has the caller puts it back.
    void removeLeftSubTools();

    std::vector<ExModal *> m_atWork;
    std::vector<ExModal *> m_waiting;
    /// Tools that had to leave a viewer, and may have none left.
    std::vector<ExModal *> m_displaced;
    /// Subscribes anew with the first tool, as every tool does that is made after the dispatcher
    /// has let all subscribers go.
    std::unique_ptr<ExNotifiable> m_watch;
    /// Sub-tools that were put on the context tool bar, by the tool that they belong to.
    std::map<const ExModal *, std::vector<McHandle<ExTool>>> m_subTools;
    int m_numTools = 0;
};
