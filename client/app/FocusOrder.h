#pragma once

#include "framework/notification/ExNotifiable.h"
#include "platform/util/McHandle.h"

#include <QKeySequence>
#include <QObject>

#include <vector>

class QMainWindow;
class QWidget;
class Workstation;

/// Leads the keyboard focus through the main window. Tab goes from the list of studies through the
/// viewers, in the order of the layout, to the buttons of the tool bars; F6 and Shift+F6 go from
/// one of these areas to the next. A click on a button leaves the focus where it is. GUI thread
/// only.
class FocusOrder final : public QObject
{
public:
    /// To be made when the tool bars are there. What it is given must outlive it.
    FocusOrder(QMainWindow &window, QWidget &list, Workstation &workstation);

private:
    /// Viewers come and go with the layouts.
    void arrange();
    void addKey(const QKeySequence &key, int step);
    void moveToArea(int step);
    /// Which of the areas has the focus, or -1.
    [[nodiscard]] int currentArea() const;
    /// What takes the focus in each area; null where nothing can.
    [[nodiscard]] std::vector<QWidget *> areas() const;
    [[nodiscard]] std::vector<QWidget *> buttons() const;

    QMainWindow &m_window;
    QWidget &m_list;
    Workstation &m_workstation;
    McHandle<ExNotifiable> m_layoutWatch;
};
