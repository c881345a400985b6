#pragma once

#include "client/desktop/ViewerPage.h"
#include "client/editors/PanelRecord.h"
#include "client/editors/PanelsPart.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

class Desktop;
class ExEditor;
class ExEditorRegion;

/// Where the panels are: beside the viewers, in the studies' own window, floating or closed.
/// Follows the contents when they are placed on other monitors, so that no panel gets lost, and
/// remembers it all for each number of monitors. Owned by the work session; goes before the panels
/// do. GUI thread only.
class PanelPlaces final : public QObject
{
    Q_OBJECT

public:
    /// Puts the panels into the windows when these are arranged. @param desktop must outlive it.
    explicit PanelPlaces(Desktop &desktop);
    /// Keeps the places.
    ~PanelPlaces() override;

    /// Whether the user sees a panel now: it floats, or is in front of its tabs in a region that is
    /// not collapsed.
    [[nodiscard]] bool isSeen(const QString &name) const;
    /// Brings a panel to the user, wherever it is; ignored for one that the user has no right to.
    void show(const QString &name);
    void close(const QString &name);
    /// Only the studies, beside the viewers or in their own window.
    void reset();

    /// As text of a versioned form.
    [[nodiscard]] QByteArray layout() const;
    /// @return whether it could be read; otherwise the log tells, and the panels are as after
    /// reset().
    bool setLayout(const QByteArray &layout);

Q_SIGNALS:
    /// A panel is somewhere else, or another one in front.
    void changed();

protected:
    /// Floating windows that are moved or resized.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void pagesChanged();
    void arranged();
    void follow(ExEditorRegion &region);
    void followWindows();
    void noteChange();
    void write();
    /// Puts the panels of a page that goes on the one that stays.
    void leave(const ViewerPage &page);
    void moveAll(const ExEditorRegion &from, ExEditorRegion &to);
    static void moveTo(ExEditor &editor, ExEditorRegion &region, int subRegion);
    void bringForward();
    void placeStudies();
    void noteStudiesPage(ViewerPage *page);
    [[nodiscard]] ViewerPage *pageOfStudies() const;
    [[nodiscard]] bool restore(const PanelRecord &record);
    [[nodiscard]] static bool restorePage(const PanelRecord::Page &record, ViewerPage &page);
    static void clear();
    [[nodiscard]] QList<ExEditorRegion *> regions() const;

    Desktop &m_desktop;
    PanelsPart m_part;
    QList<QPointer<ViewerPage>> m_pages;
    int m_numMonitors = 0;
    /// Beside which viewers the studies stood last; null for their own window.
    QPointer<ViewerPage> m_studiesPage;
    bool m_haveStudiesStood = false;
    /// A layout of more pages than there are yet.
    QByteArray m_awaiting;
    QTimer m_write;
    bool m_isMoving = false;
};
