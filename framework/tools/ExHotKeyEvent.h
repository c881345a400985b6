#pragma once

#include <QKeySequence>

class ExBaseViewer;

/// A keyboard shortcut that was pressed. A value.
struct ExHotKeyEvent
{
    /// The viewer in which it was pressed; may be null. Not owned.
    const ExBaseViewer *viewer = nullptr;
    QKeySequence sequence;
};
