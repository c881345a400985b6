#pragma once

#include "client/desktop/Placement.h"
#include "client/desktop/StudiesContent.h"
#include "client/desktop/ViewersContent.h"
#include "client/toolbars/ToolBarLines.h"
#include "framework/editors/ExEditorRegion.h"
#include "framework/monitors/ExMonitorWidget.h"
#include "framework/notification/ExNotifiable.h"
#include "platform/util/McHandle.h"

#include <QObject>
#include <QPointer>
#include <QSize>
#include <QTimer>

/// The workstation's windows on the monitors: the contents "viewers" and "studies", where they are,
/// and what is remembered of it. The windows themselves are the monitor manager's. One in the
/// process, owned by the work session. GUI thread only.
class Desktop final : public QObject
{
    Q_OBJECT

public:
    Desktop();
    /// Keeps the places, then closes the windows.
    ~Desktop() override;

    /// Makes the windows, by the records or, without any, everything on the primary monitor. Not
    /// shown yet.
    void arrange();
    /// Shows the windows; the keyboard is with the active viewer.
    void show();
    /// The tool bars that come with the viewers.
    void setToolBars(const QList<ExMonitorWidget::ToolBar> &toolBars);
    /// Has the viewers' window begin framed and with this size, and nothing be remembered.
    void startWithSize(const QSize &size);
    /// Whether places are kept for the next start; they are at first.
    void setRemembering(bool remembering) { m_isRemembering = remembering; }
    [[nodiscard]] bool isRemembering() const { return m_isRemembering; }

    [[nodiscard]] Placement placement();
    /// Moves the contents; one that has no problem on the present monitors. Viewers on several
    /// monitors fill them.
    void place(const Placement &placement);

    [[nodiscard]] QList<ViewerArea *> areas() const { return m_viewers.areas(); }
    /// Those with the areas.
    [[nodiscard]] QList<ViewerPage *> pages() const { return m_viewers.pages(); }
    /// The page beside whose viewers the studies stand; null when they have a window of their own.
    [[nodiscard]] ViewerPage *studiesPage();
    /// The place for panels that fills the studies' own window; without a window while the studies
    /// stand beside viewers.
    [[nodiscard]] ExEditorRegion &studiesRegion() { return *m_region; }
    /// The window with the viewers, or the first part of it; null before arrange().
    [[nodiscard]] ExMonitorWidget *viewersWindow();
    /// All windows that show something, that with the viewers first.
    [[nodiscard]] QList<ExMonitorWidget *> windows();
    /// What the window with the viewers is called; the others are called after what they show.
    void setTitle(const QString &title);

Q_SIGNALS:
    /// Areas that are not among these any longer are destroyed after it.
    void areasChanged(const QList<ViewerArea *> &areas);
    /// The contents have been placed, or placed anew.
    void arranged();
    /// The windows have come up.
    void shown();
    /// There is a window that there was not before.
    void windowAdded(ExMonitorWidget *window);

private:
    void readRecords();
    void writeRecords();
    void saveToolBarStates();
    /// After windows have got other contents.
    void adopt();
    void adoptWindow(ExMonitorWidget &window);
    void monitorsChanged();

    QPointer<ExEditorRegion> m_region;
    ViewersContent m_viewers;
    StudiesContent m_studies;
    ToolBarLines m_toolBarLines;
    QString m_title;
    QSize m_size;
    bool m_isRemembering = true;
    /// So many monitors there have been at most: more of them are a desk not seen yet.
    int m_mostMonitors = 0;
    QTimer m_write;
    QList<QPointer<ExMonitorWidget>> m_known;
    McHandle<ExNotifiable> m_watch;
};
