#pragma once

#include "framework/notification/ExNotifiable.h"
#include "platform/util/McHandle.h"

#include <QKeySequence>
#include <QObject>
#include <QPointer>

#include <vector>

class ExMonitorWidget;
class QWidget;
class Workstation;

/// Leads the keyboard focus through the windows. In each of them Tab goes from the list of studies
/// through the viewers, in the order of the layout, to the buttons of the tool bars. F6 and
/// Shift+F6 go from one of these areas to the next, in whatever window that is; after the viewers
/// they visit each other panel that is seen. A click on a button leaves the focus where it is. When
/// windows have been shown or arranged anew the active viewer has it, in a window without it the
/// list, unless something to type into or choose from does. GUI thread only.
class FocusOrder final : public QObject
{
public:
    /// @param list of studies; null when there is none. @param workstation must outlive it.
    FocusOrder(QWidget *list, Workstation &workstation);

    /// Has the keys work in a window.
    void addWindow(ExMonitorWidget &window);
    /// Viewers come and go with the layouts, windows with the monitors, and the list is moved from
    /// one place to another.
    void arrange();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// What F6 goes to.
    struct Area
    {
        QWidget *target = nullptr; ///< takes the focus; null where nothing can
        const QWidget *whole = nullptr; ///< holds what belongs to the area; null for viewers, bars
    };

    void arrangeIn(const QWidget &window);
    void addKey(QWidget &window, const QKeySequence &key, int step);
    void moveToArea(int step);
    /// Once all that is under way with the windows is done.
    void giveToViewerLater();
    void giveToViewer();
    /// The list, the viewers, other panels, the tool bars.
    [[nodiscard]] std::vector<Area> areas() const;
    /// Which of them has the focus, or -1.
    [[nodiscard]] static int currentArea(const std::vector<Area> &areas);
    /// Of the tool bars of all windows.
    [[nodiscard]] static std::vector<QWidget *> buttons();

    QPointer<QWidget> m_list;
    Workstation &m_workstation;
    bool m_isToGive = false;
    McHandle<ExNotifiable> m_layoutWatch;
    McHandle<ExNotifiable> m_windowWatch;
};
