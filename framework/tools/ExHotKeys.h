#pragma once

#include "framework/MovaraFrameworkExport.h"

#include <QKeySequence>

#include <vector>

class ExBaseViewer;
class ExTool;
class QWidget;

/// Process-wide registry of the keyboard shortcuts of tools. A global tool has its sequence for
/// itself among the global tools; tools that are not global may share one. A tool that goes leaves
/// the registry by itself. GUI thread only.
class MOVARA_FRAMEWORK_EXPORT ExHotKeys
{
public:
    ExHotKeys() = delete;

    /// Binds a tool to a sequence, in place of the one it has; an empty sequence only takes that
    /// away. A global tool takes the sequence over from the global tool that has it. All actions of
    /// the tool show the new shortcut. Null is ignored.
    static void setHotKey(ExTool *tool, const QKeySequence &sequence);
    /// The global tool that has this sequence, or null.
    static ExTool *findHotKey(const QKeySequence &sequence);
    /// Every tool that has a hot key, in key order, within a key as they came.
    static std::vector<ExTool *> hotKeyTools();
    /// Offers a pressed sequence to its tools, in the order in which they came, until one consumes
    /// it.
    /// @param viewer where it was pressed; may be null. @return whether a tool has consumed it.
    static bool triggerHotKey(const QKeySequence &sequence, const ExBaseViewer *viewer);
    /// Has the present hot keys work in a further window too, as they do where the tools' actions
    /// are shown. Not for modal windows.
    static void addTo(QWidget &window);
    /// Shows a window with all shortcuts and their tools; does not wait for it. It deletes itself
    /// when it is closed.
    static void showHotKeyList();
};
