#pragma once

#include "framework/MovaraFrameworkExport.h"

#include <QMainWindow>

/// Main window of one monitor in a monitor widget; its context menu hides and synchronizes tool
/// bars. Owned by the monitor widget.
class MOVARA_FRAMEWORK_EXPORT ExMainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit ExMainWindow(QWidget *parent = nullptr);

    /// A new menu about tool bars, for the caller to delete; empty without the right to the tool
    /// "View.ShowToolBars", disabled outside a monitor widget.
    QMenu *createPopupMenu() override;

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
};
