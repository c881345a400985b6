#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

class ExMonitorWidget;
class QMainWindow;
class QToolBar;

/// Gives tool bars that do not fit beside each other a further line, and takes it back when they
/// do. Lines that the user has made stay. GUI thread only.
class ToolBarLines final : public QObject
{
public:
    /// Arranges the bars in a window now and whenever it changes its size.
    void addWindow(ExMonitorWidget &window);
    /// Arranges when one of them has been moved or shown.
    void addToolBar(QToolBar &toolBar);
    /// Takes back all lines that it has made, so that only the user's are kept in a state.
    void undo();

private:
    void arrangeLater();
    void arrange();

    QList<QPointer<ExMonitorWidget>> m_windows;
    bool m_isToArrange = false;
};
