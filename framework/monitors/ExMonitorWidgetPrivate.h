#pragma once

#include "framework/monitors/ExMonitorWidget.h"
#include "framework/monitors/MonitorWindowSystem.h"

#include <QMainWindow>
#include <QPointer>

#include <utility>

class ExMonitorLayout;
class QStackedWidget;
class QxMenuBar;

/// The monitor widget's data, and the logic of its states.
class ExMonitorWidgetPrivate
{
public:
    using Content = ExMonitorWidget::Content;

    /// The main window of one monitor, and the pages of the contents in it.
    struct Pane
    {
        int monitor = -1;
        QMainWindow *window = nullptr;
        QStackedWidget *stack = nullptr;
        struct Page
        {
            Content *content = nullptr;
            QPointer<QWidget> widget;

            friend bool operator==(const Page &, const Page &) = default;
        };
        QList<Page> pages;
        /// What stands in the main window, breaks included, with the content that it belongs to.
        QList<std::pair<Content *, ExMonitorWidget::ToolBar>> toolBars;

        [[nodiscard]] QWidget *page(const Content *content) const;
        [[nodiscard]] bool shows(const QList<Page> &wanted) const;
        /// The content whose page is in front; null when there is none.
        [[nodiscard]] Content *active() const;
        void releasePages();
        void releaseToolBars();
    };

    explicit ExMonitorWidgetPrivate(ExMonitorWidget &widget);

    [[nodiscard]] static ExMonitorWidgetPrivate &of(ExMonitorWidget &widget) { return *widget.d; }

    void build();
    /// A command from the window system.
    void command(MonitorWindowSystem::Command command);

    [[nodiscard]] Pane *pane(int monitor);
    [[nodiscard]] Pane *pane(const QMainWindow *window);
    /// Brings a content to the front of a pane. False when it has no page there.
    bool activate(Pane &pane, const Content *content);
    /// Has the manager activate a content, unless it is in front of the active main window: what
    /// lies in front on other monitors then stays.
    void bringForward(Content *content);
    /// Makes the panes of these monitors; the first one is always there.
    void makePanes(const QList<int> &monitors);
    void addPane();
    void removeLastPane();
    /// Gives a pane a page for each content that has something to show there. Pages that are there
    /// already are not touched.
    /// @param placed widgets that other panes show; those of this one are added.
    void fillPane(Pane &pane, const QList<Content *> &contents, QList<QWidget *> &placed);
    /// Puts the tool bars of the contents that begin on the pane's monitor in its main window.
    void placeToolBars(Pane &pane, const QList<Content *> &contents);
    void showToolBarsOfActive(const Pane &pane) const;

    ExMonitorWidget &widget;
    /// A Qt::WindowState: normal, minimised or full screen.
    int state = Qt::WindowNoState;
    /// The state to go back to after being minimised; 0 when there is none.
    int storedState = 0;
    /// The native style of a full-screen window while it is minimised; 0 when there is none.
    int savedStyle = 0;
    QList<QMainWindow *> mainWindows;
    /// In the order of the main windows; never empty.
    QList<Pane> panes;
    ExMonitorLayout *layout = nullptr;
    QxMenuBar *menuBar = nullptr;
    ExMenuBarAddOn *addOn = nullptr;
    QAction *macMenu = nullptr;
    mutable QPointer<QMainWindow> lastActive;
    /// The window system's maximised state was reported.
    bool isMaximized = false;
    /// The states are being changed from here: what the window system then reports is no command.
    bool isSwitching = false;
};
