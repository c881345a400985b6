#pragma once

#include "client/measurements/MeasurementList.h"
#include "framework/notification/ExNotifiable.h"
#include "platform/util/McHandle.h"

#include <QTimer>
#include <QWidget>

class PanelButton;
class QTreeWidget;
class QTreeWidgetItem;
class SliceViewer;
class StudySession;
class ViewMessage;

/// All measurements with their values: to go to, delete and copy them. Follows the list, and the
/// picked one both ways. What is deleted can be undone. GUI thread only.
class MeasurementsPanel final : public QWidget
{
    Q_OBJECT

public:
    enum Column { Name, Value, Slice, Series, numColumns };

    /// Both must outlive the panel.
    MeasurementsPanel(MeasurementList &list, StudySession &session, QWidget *parent = nullptr);
    ~MeasurementsPanel() override;

    /// Has a viewer move to the measurement's slice and activates it; when none shows its series,
    /// that is opened in the active slice viewer, if that is allowed. Ignored for an unknown id.
    void jumpTo(int id);
    /// The selected ones, or all when none is selected, as lines of cells with tabulators between
    /// them; the first line names the columns. Empty without measurements.
    [[nodiscard]] QString text() const;
    void copy() const;
    void deleteSelected();
    void deleteAll();

Q_SIGNALS:
    /// A series is to be shown in a viewer, if what must be asked before allows it.
    void seriesWanted(const QString &uid, SliceViewer *viewer);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void build();
    void connectList();
    /// Brings the rows up to date, soon and once however often it is asked.
    void updateSoon();
    void updateRows();
    void finishJump(int id);
    /// @return whether the viewer shows the series then.
    [[nodiscard]] bool open(const std::string &seriesUid, SliceViewer &viewer);
    void updateRow(QTreeWidgetItem &item, const Measurement &measurement);
    void updateButtons();
    void selectPicked();
    void pickSelected();
    void showMenu(const QPoint &position);
    [[nodiscard]] McHandle<LoadedSeries> seriesOf(const Measurement &measurement) const;
    [[nodiscard]] std::vector<int> selectedIds() const;
    [[nodiscard]] std::vector<const Measurement *> complete() const;

    MeasurementList &m_list;
    StudySession &m_session;
    QTreeWidget *m_tree;
    ViewMessage *m_message;
    PanelButton *m_copy;
    PanelButton *m_delete;
    PanelButton *m_deleteAll;
    PanelButton *m_undo;
    QTimer m_updateTimer;
    /// Once hidden it waits with all changes until it is shown again.
    bool m_isAsleep = false;
    int m_pendingJump = 0; ///< Where to go once its images are there; 0 for nowhere.
    McHandle<ExNotifiable> m_watch;
};
