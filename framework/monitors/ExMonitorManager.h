#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "framework/monitors/ExMonitorWidget.h"

#include <QList>
#include <QObject>
#include <QRect>

#include <atomic>
#include <memory>

class ExMonitorManagerPrivate;
class QAction;
class QDialog;
class QMainWindow;
class QToolBar;

/// The monitors of the desktop and what is shown on them: which monitors there are (logical ones,
/// since a wide display may be split into two), which content occupies which, the windows for them,
/// and where windows and dialogs were last. Follows displays that come and go. A monitor is named
/// by its number in monitors() everywhere. Coordinates are global device-independent pixels. One in
/// the process, made on first use. Unknown names, contents and widgets are ignored. GUI thread
/// only, but for pointSizeNormalizeTo96dpi().
class MOVARA_FRAMEWORK_EXPORT ExMonitorManager : public QObject
{
    Q_OBJECT

public:
    /// How much there is to see on a monitor; the thresholds are settings.
    enum MonitorCategory { CategorySmall = 0, CategoryMedium = 1, CategoryLarge = 2 };
    /// What has happened to a window whose geometry is tracked.
    enum TrackingReason { TrackResized = 0, TrackMoved = 1, TrackMaximized = 2 };

    // Keys of settings: sizes in points and pixels (int), thresholds in 2^20 pixels (float).
    static constexpr const char *PROPERTY_FONT_SIZE_SMALL = "UI.MonitorDependent.AppFontSizeSmall";
    static constexpr const char *PROPERTY_FONT_SIZE_MEDIUM = "UI.MonitorDependent.AppFontSizeMed";
    static constexpr const char *PROPERTY_FONT_SIZE_LARGE = "UI.MonitorDependent.AppFontSizeLarge";
    static constexpr const char *PROPERTY_THUMBNAIL_SIZE_SMALL
        = "UI.MonitorDependent.ThumbSizeSmall";
    static constexpr const char *PROPERTY_THUMBNAIL_SIZE_MEDIUM
        = "UI.MonitorDependent.ThumbSizeMed";
    static constexpr const char *PROPERTY_THUMBNAIL_SIZE_LARGE
        = "UI.MonitorDependent.ThumbSizeLarge";
    static constexpr const char *PROPERTY_THUMBNAIL_FONT_SIZE_SMALL
        = "UI.MonitorDependent.ThumbFontSizeSmall";
    static constexpr const char *PROPERTY_THUMBNAIL_FONT_SIZE_MEDIUM
        = "UI.MonitorDependent.ThumbFontSizeMed";
    static constexpr const char *PROPERTY_THUMBNAIL_FONT_SIZE_LARGE
        = "UI.MonitorDependent.ThumbFontSizeLarge";
    static constexpr const char *PROPERTY_THRESHOLD_SMALL = "UI.MonitorDependent.ThresholdSmallMed";
    static constexpr const char *PROPERTY_THRESHOLD_MEDIUM = "UI.MonitorDependent.ThresholdMedBig";
    static constexpr const char *PROPERTY_GRAYSCALE_VIEW = "UI.ViewIsGrayScale";

    static ExMonitorManager &instance();
    ~ExMonitorManager() override;

    // The set of monitors.

    [[nodiscard]] const QList<QRect> &monitors() const;
    [[nodiscard]] int numMonitors() const;
    /// A null rectangle for a number that is out of range.
    [[nodiscard]] QRect monitorRect(unsigned int monitor) const;
    [[nodiscard]] int primaryMonitor() const;
    /// The union of all monitors; null without any.
    [[nodiscard]] QRect totalRect() const;
    /// For each display the monitors it was turned into, one or two; empty for monitors named by
    /// the environment variable MOVARA_MONITORS.
    [[nodiscard]] const QList<QList<int>> &physicalMonitors() const;
    /// Reads the set anew; tells nobody, and moves nothing. Displays that come and go are followed
    /// without it.
    void readMonitorConfiguration();
    /// Whether a monitor is so wide that it spans two screens; then gives its size, else 0 and 0.
    /// Answered once for the process: later readings do not change it.
    bool hasHorizontalSpan(int &width, int &height) const;
    /// Positions in @p rects of the longest row of rectangles of one size that stand edge to edge,
    /// from left to right; of several, the topmost, then leftmost one. Empty for empty input.
    [[nodiscard]] QList<int> contiguousHorizontalMonitors(const QList<QRect> &rects) const;

    // Sizes that depend on the monitor.

    /// By the first monitor of the widget's first content; CategorySmall when there is none.
    [[nodiscard]] MonitorCategory monitorCategory(ExMonitorWidget *widget) const;
    /// Font size on thumbnails, in points at 96 dpi, for the monitor that a widget (may be null) is
    /// on.
    [[nodiscard]] int imageSeriesFontSize(QWidget *widget) const;
    /// Size of thumbnails in pixels for the monitor that a widget (may be null) is on.
    [[nodiscard]] int imageSeriesThumbnailSize(QWidget *widget) const;
    /// Points that are at the logical resolution as large as the given ones at 96 dpi. The
    /// resolution is that of the first widget ever asked about in the GUI thread; before, the
    /// result is negative. Any thread; others pass null or are not looked at.
    float pointSizeNormalizeTo96dpi(const QWidget *widget, float points) const;

    // Contents.

    /// Sets what makes the content with this name on demand; a null or empty name is ignored.
    static void registerContent(const char *name, ExMonitorWidget::Content *(*factory)());
    /// The content with this name, made on the first request and kept; null when there is none.
    static ExMonitorWidget::Content *getContent(const char *name);
    /// Adds a content at the end, unless it is there or null.
    void addContent(ExMonitorWidget::Content *content);
    /// In the order in which they were added.
    [[nodiscard]] const QList<ExMonitorWidget::Content *> &contents() const;
    /// Takes a content out that is going to be destroyed. One with a name is made anew when it is
    /// asked for again.
    void removeContent(ExMonitorWidget::Content *content);
    /// Sets where the content is to be shown, adds it when it is new, and tells it.
    /// applyConfigurations() shows it there.
    void setConfiguration(
        ExMonitorWidget::Content *content, const ExMonitorWidget::Configuration &configuration);
    /// An empty record for an unknown content.
    [[nodiscard]] ExMonitorWidget::Configuration configuration(
        ExMonitorWidget::Content *content) const;
    /// Gives every content a window. Contents that share monitors share the window of the one with
    /// the most monitors when that covers theirs, unless a record asks for a window of its own; the
    /// others get one each. Windows that exist are used before new ones are made. Numbers of
    /// monitors that are not there count as the primary one. Windows on screen take the states of
    /// the records; hidden ones stay hidden until setAllWidgetsVisible().
    void applyConfigurations();
    /// The monitors that a content gets: those of its record that are there, ascending; else the
    /// primary one; none without any monitor.
    [[nodiscard]] QList<int> occupiedMonitors(ExMonitorWidget::Content *content) const;
    /// Brings a content to the front in its window.
    void activate(ExMonitorWidget::Content *content);
    /// One checkable action for each content that the widget can bring to the front; owned by the
    /// widget.
    QList<QAction *> createContentActions(ExMonitorWidget *widget);
    /// The tool bars that come with a content, in the main window of its first monitor; they are
    /// shown while the content is the active one there.
    void setToolBars(
        ExMonitorWidget::Content *content, const QList<ExMonitorWidget::ToolBar> &toolBars);
    [[nodiscard]] QList<ExMonitorWidget::ToolBar> toolBars(ExMonitorWidget::Content *content) const;

    // Windows.

    /// A new window, hidden, without contents and not owned: the next applyConfigurations() gives
    /// it contents that have none. The manager tracks it until it is destroyed.
    ExMonitorWidget *createMonitorWidget();
    /// All windows, in the order in which they were made.
    [[nodiscard]] QList<ExMonitorWidget *> monitorWidgets() const;
    /// The window that is or was last the active one, else the first; null when there is none.
    [[nodiscard]] ExMonitorWidget *activeMonitorWidget() const;
    /// The window that shows a content; null while there is none.
    [[nodiscard]] ExMonitorWidget *monitorWidget(ExMonitorWidget::Content *content) const;
    /// The contents that a window shows, in the order in which they were added.
    [[nodiscard]] QList<ExMonitorWidget::Content *> contents(ExMonitorWidget *widget) const;
    /// The monitors that a window's contents occupy, ascending.
    [[nodiscard]] QList<int> monitors(ExMonitorWidget *widget) const;
    /// The rectangle of those monitors; of the primary one, or of the desktop, when there are none.
    [[nodiscard]] QRect fullScreenRect(ExMonitorWidget *widget) const;
    /// The geometry for a window in its frame: the remembered one, brought inside what its screen
    /// leaves free; else four fifths of its first monitor.
    [[nodiscard]] QRect normalWindowRect(ExMonitorWidget *widget) const;
    /// Shows all windows with contents, full screen or not as the records say, the active one last,
    /// or hides them.
    void setAllWidgetsVisible(bool visible);
    /// Remembers a window's geometry in the records of its contents.
    void trackDefaultGeometry(ExMonitorWidget *widget, TrackingReason reason);
    /// Sets the font of the monitor's category on every window.
    void updateFonts();

    void toggleToolBars(ExMonitorWidget *widget);
    [[nodiscard]] bool areToolBarsHidden(ExMonitorWidget *widget) const;
    /// Gives main windows the tool-bar layout of the window's active one: those of the given
    /// monitors and those of the other windows. Tool bars belong together by object name.
    void synchronizeToolBars(ExMonitorWidget *widget, const QList<int> &monitors);
    /// Writes the tool-bar layout of every main window to the user's settings, or restores it.
    void saveOrRestoreToolBarStates(bool save);

    // Dialogs and other named windows.

    /// Remembers a widget's geometry under its object name; nothing without one.
    void widgetGeometryStore(const QWidget &widget);
    /// Puts a widget where it was, when it can be reached there; else at @p fallback, else with its
    /// size hint, at least @p minWidth by @p minHeight, in the middle of the monitor. Nothing
    /// without an object name.
    void widgetGeometryRestore(QWidget &widget, const QRect &fallback, int minWidth, int minHeight);
    /// Centres a dialog about a point, on the screen with its top-left corner, or nearest to it.
    static void positionDialog(QDialog *dialog, const QPoint &centre);
    /// Centres a dialog over its parent; nothing without one.
    static void adjustDialogPosition(QDialog *dialog);
    /// The middle of a monitor, @p percent of its width and height.
    [[nodiscard]] QRect defaultGeometry(int monitor, int percent) const;
    /// From now on new windows take the font of their monitor, and new dialogs are centred over
    /// their parents. Further calls do nothing.
    static void installAutomaticFontAndDialogAdjustment();

public Q_SLOTS:
    void slotWidgetResized(ExMonitorWidget *widget);
    void slotWidgetMoved(ExMonitorWidget *widget);
    void slotWidgetMaximized(ExMonitorWidget *widget);
    void slotWidgetClosed(ExMonitorWidget *widget);
    /// Brings the content of the sending action to the front.
    void slotContentTriggered(bool on);

private:
    ExMonitorManager();

    friend class ExMonitorWidgetPrivate;

    /// Shows or hides a tool bar of a window; while the window's are hidden, not before they are
    /// shown again.
    void setToolBarVisible(const ExMonitorWidget *widget, QToolBar *bar, bool visible);

    std::unique_ptr<ExMonitorManagerPrivate> d;
    /// Logical resolution of the first widget asked about; negative before.
    mutable std::atomic<float> m_dpi = -1.0F;
};
