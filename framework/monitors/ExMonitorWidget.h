#pragma once

#include "framework/MovaraFrameworkExport.h"

#include <QList>
#include <QPointer>
#include <QRect>
#include <QString>
#include <QToolBar>
#include <QWidget>

#include <memory>
#include <optional>

class ExMenuBarAddOn;
class ExMonitorWidgetPrivate;
class QAction;
class QMainWindow;
class QMenuBar;

/// Top-level window on one monitor, or over several that stand together: one main window for each
/// monitor, and in them the contents that the monitor manager has placed here. Full screen means a
/// frameless window of the monitors' size, not the platform's own mode. Closing it ends the user's
/// session; the window stays until the application goes. Made and placed by ExMonitorManager. GUI
/// thread only.
class MOVARA_FRAMEWORK_EXPORT ExMonitorWidget : public QWidget
{
    Q_OBJECT

public:
    /// Where a content is shown.
    struct MOVARA_FRAMEWORK_EXPORT Configuration
    {
        /// Numbers of the monitors (ExMonitorManager::monitors()) that it occupies.
        QList<int> monitors;
        /// The normal geometry before the last move, in global device-independent pixels.
        QRect previousGeometry;
        /// The geometry while neither full screen nor maximised; null when there was none yet.
        QRect normalGeometry;
        bool fullScreen = false;
        /// Wants a window of its own also where the window of another content covers its monitors.
        bool ownWindow = false;

        friend bool operator==(const Configuration &, const Configuration &) = default;

        /// "0,1;x|y|width|height;x|y|width|height;true;false", in the order of the fields.
        [[nodiscard]] QString toString() const;
        /// Nothing for a text of another form.
        [[nodiscard]] static std::optional<Configuration> fromString(const QString &text);
    };

    /// Something that the client shows on monitors: named, with a widget for each monitor that it
    /// occupies. Kept by whoever made it, for as long as the manager knows it.
    class MOVARA_FRAMEWORK_EXPORT Content
    {
    public:
        Content() = default;
        Content(const Content &) = default;
        Content &operator=(const Content &) = default;
        virtual ~Content();

        /// For menus and titles.
        [[nodiscard]] const QString &longName() const { return m_longName; }
        void setLongName(const QString &name) { m_longName = name; }
        /// For buttons and tabs.
        [[nodiscard]] const QString &shortName() const { return m_shortName; }
        void setShortName(const QString &name) { m_shortName = name; }

        /// The widget to show on a monitor, always the same one for the same arguments; the main
        /// window that shows it becomes its parent. Null for nothing there, as in the base.
        /// @param configuration the record with the monitors that are there. @param monitor one of
        /// them; -1 when there is none at all.
        [[nodiscard]] virtual QWidget *widgetForMonitor(
            const Configuration &configuration, int monitor);
        /// The content's placement has been set. The base does nothing.
        virtual void configurationChanged(const Configuration &configuration);

    private:
        QString m_longName;
        QString m_shortName;
    };

    /// A content of one widget, shown on the first of its monitors.
    class MOVARA_FRAMEWORK_EXPORT SingleMonitorContent : public Content
    {
    public:
        /// @param widget null gives a content that shows nothing.
        SingleMonitorContent(const QString &identifier, QWidget *widget);

        [[nodiscard]] const QString &identifier() const { return m_identifier; }
        void setIdentifier(const QString &identifier) { m_identifier = identifier; }
        /// Null once the widget is gone.
        [[nodiscard]] QWidget *singleMonitorWidget() const { return m_widget; }
        /// The one widget, whatever the arguments.
        [[nodiscard]] QWidget *widgetForMonitor(
            const Configuration &configuration, int monitor) override;

    private:
        QString m_identifier;
        QPointer<QWidget> m_widget;
    };

    /// A tool bar in a list of tool bars, in the order in which they are laid out.
    class MOVARA_FRAMEWORK_EXPORT ToolBar
    {
    public:
        /// @param visible whether it is shown at first.
        ToolBar(QToolBar *toolBar, bool visible, Qt::ToolBarArea area);

        /// Null once the tool bar is gone, and for a break.
        [[nodiscard]] QToolBar *toolBar() const { return m_toolBar; }
        [[nodiscard]] bool isVisible() const { return m_visible; }
        [[nodiscard]] Qt::ToolBarArea area() const { return m_area; }
        /// Whether the entry is a tool bar, rather than a break.
        [[nodiscard]] bool isToolBar() const { return m_isToolBar; }

    protected:
        explicit ToolBar(Qt::ToolBarArea area);

    private:
        QPointer<QToolBar> m_toolBar;
        bool m_visible = true;
        Qt::ToolBarArea m_area;
        bool m_isToolBar;
    };

    /// The tool bars after it in the same area begin a new line.
    class MOVARA_FRAMEWORK_EXPORT ToolBarBreak : public ToolBar
    {
    public:
        explicit ToolBarBreak(Qt::ToolBarArea area);
    };

    ExMonitorWidget();
    ~ExMonitorWidget() override;

    /// The monitor widget that contains a widget, or is it; null for none and for null.
    [[nodiscard]] static ExMonitorWidget *parentWidget(QWidget *widget);
    using QWidget::parentWidget;

    // Main windows.

    /// The one of the first monitor; it has the menu bar, and stays whatever is shown.
    [[nodiscard]] QMainWindow *mainWindow() const;
    /// In the order of the monitors.
    [[nodiscard]] const QList<QMainWindow *> &mainWindows() const;
    /// The one with the keyboard focus; the one that had it last, or the first, when none has.
    [[nodiscard]] QMainWindow *activeMainWindow() const;
    /// The main window of a monitor; null when the widget does not occupy it.
    [[nodiscard]] QMainWindow *mainWindowForMonitor(int monitor) const;
    /// The monitors occupied, in the order of the main windows.
    [[nodiscard]] QList<int> monitors() const;
    [[nodiscard]] QMenuBar *menuBar() const;
    [[nodiscard]] ExMenuBarAddOn *menuBarAddOn() const;

    // Contents. Several of them on one monitor lie behind one another; one is active there.

    /// The content that is active in the active main window. @param orFirst the widget's first
    /// content when none is active there; else null.
    [[nodiscard]] Content *activeContent(bool orFirst) const;
    [[nodiscard]] bool isContentActive(const Content *content, int monitor) const;
    [[nodiscard]] bool isContentActive(const Content *content, const QMainWindow *window) const;
    /// Whether the content has something to show on the monitor, so that it can be brought to the
    /// front there.
    [[nodiscard]] bool isContentActivatable(const Content *content, int monitor) const;
    [[nodiscard]] bool isContentActivatable(
        const Content *content, const QMainWindow *window) const;
    /// Brings the content to the front on one monitor. False when it cannot be.
    bool activateContent(Content *content, int monitor);
    bool activateContent(Content *content, QMainWindow *window);
    /// The same on all monitors where the content has something to show.
    bool activateContent(Content *content);

    /// Takes all contents and tool bars out of the main windows; they are not destroyed.
    void clear();
    /// Arranges main windows, contents and tool bars as the manager's records say. What was active
    /// stays active.
    void doLayout();

    void setCornerWidgetVisible(bool visible);
    /// Sets the actions of the application's own menu, which stands before the others.
    void setMacMenu(const QList<QAction *> &actions);
    /// Takes a font for the window and everything in it.
    virtual void changeFont(const QFont &font);

    // States.

    /// Whether the state is full screen; a minimised window is not.
    [[nodiscard]] bool isFullScreen() const;
    /// Whether the window system shows the window maximised, and widgetMaximized() was emitted.
    [[nodiscard]] bool isMaximizedBySystem() const;
    /// Gives the window its frame and its normal geometry. @param relayout whether to arrange its
    /// contents anew.
    void showNormal(bool relayout);
    void showMinimized();
    /// Goes back to the state before the window was minimised.
    void showStored();

public Q_SLOTS:
    /// Fills the monitors, without a frame. @param notify whether to tell of it.
    void showFullScreen(bool notify = true);
    /// Nothing while minimised.
    void minimizeWidget();
    /// From full screen back to normal, and tells of it; nothing in the other states.
    void restoreWidget();
    /// Ends the session; the window stays.
    void closeWidget();
    /// Hides the tool bars, or shows those that it had hidden.
    void toggleToolBars();
    /// Gives the monitors that the sending action names the tool-bar layout of this window.
    void synchronizeToolBars();

Q_SIGNALS:
    void widgetCreated(ExMonitorWidget *widget);
    /// The window is being destroyed: only its address may be used.
    void widgetClosed(ExMonitorWidget *widget);
    void widgetResized(ExMonitorWidget *widget);
    /// Comes after widgetMoved(), whatever the window system's own order.
    void widgetMaximized(ExMonitorWidget *widget);
    void widgetMoved(ExMonitorWidget *widget);

protected:
    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void moveEvent(QMoveEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    friend class ExMonitorWidgetPrivate;

    void setFlagsKeepingIcon(Qt::WindowFlags flags);

    std::unique_ptr<ExMonitorWidgetPrivate> d;
};
