#pragma once

#include "client/links/LinkType.h"
#include "framework/notification/ExNotifiable.h"
#include "platform/util/McHandle.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <vector>

class PanelButton;
class QCheckBox;
class QMenu;
class QTableWidget;
class ViewMessage;
class WorkstationViewer;

/// How the viewers are linked: a row for each way of linking with a switch, a column for each
/// viewer, in the cells the groups. Follows the viewer database by the notifications that tell of
/// its changes, and changes it through ViewerLinks. GUI thread only.
class LinksPanel final : public QWidget
{
    Q_OBJECT

public:
    explicit LinksPanel(QWidget *parent = nullptr);
    ~LinksPanel() override;

    /// Attaches the viewers of the selected cells, or detaches them when all are attached.
    void toggleAttached();
    /// Makes one group of the viewers of the selected cells, in each row.
    void groupSelected();
    /// Makes a group of its own for each viewer of the selected cells.
    void separateSelected();
    /// What can be done with the selected cells of the current row; empty when that holds none.
    void fillMenu(QMenu &menu);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    using Viewers = std::vector<WorkstationViewer *>;

    void build();
    void buildRow(int row, const LinkType &type);
    void connectTable();
    void forgetViewers();
    void updateTable();
    void updateHeader(int column, const WorkstationViewer &viewer);
    void updateCell(int row, int column, const LinkType &type, const WorkstationViewer &viewer);
    void updateButtons();
    void showMenu(const QPoint &position);
    void activateViewer(int column);
    /// Of the selected cells of a row, those that are linked so or could be.
    [[nodiscard]] Viewers chosenIn(int row) const;

    QTableWidget *m_table;
    ViewMessage *m_message;
    PanelButton *m_attach;
    PanelButton *m_group;
    PanelButton *m_separate;
    std::vector<QCheckBox *> m_switches; ///< by row
    Viewers m_viewers; ///< by column, from the second one on
    QPointer<QMenu> m_menu;
    QTimer m_updateTimer;
    /// Once hidden it waits with all changes until it is shown again.
    bool m_isAsleep = false;
    McHandle<ExNotifiable> m_watch;
    McHandle<ExNotifiable> m_deletionWatch;
};
