#include "client/panels/MeasurementsPanel.h"

#include "client/app/NotificationWatch.h"
#include "client/loading/EntryTexts.h"
#include "client/loading/StudySession.h"
#include "client/measurements/MeasurementPlace.h"
#include "client/measurements/MeasurementTexts.h"
#include "client/overlay/OverlayColors.h"
#include "client/panels/PanelButton.h"
#include "client/panels/ViewKeys.h"
#include "client/panels/ViewMessage.h"
#include "client/viewers/SliceViewer.h"
#include "client/viewers/WorkstationViewerManager.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QMenu>
#include <QPainter>
#include <QPointer>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <set>
#include <utility>

namespace {

constexpr int idRole = Qt::UserRole;

int idOf(const QTreeWidgetItem &item)
{
    return item.data(0, idRole).toInt();
}

/// The colour in which it is drawn over the images.
QIcon swatch(int id)
{
    constexpr int side = 12;
    QPixmap pixmap(side, side);
    pixmap.fill(OverlayColors::measurement(id - 1));
    QIcon icon(pixmap);
    icon.addPixmap(pixmap, QIcon::Selected);
    return icon;
}

/// The phase of a series that is seen; the first one where none is.
int shownPhase(const LoadedSeries &series)
{
    for (const WorkstationViewer *viewer : WorkstationViewerManager::all()) {
        if (viewer->series() == &series) {
            return viewer->phase();
        }
    }
    return 0;
}

QString seriesName(const LoadedSeries &series)
{
    const SeriesInfo &info = series.info();
    QStringList parts{info.modality, info.seriesNumber, info.seriesDescription, info.studyDate};
    parts.removeAll(QString());
    return parts.join(u' ');
}

SliceViewer *viewerToUse()
{
    if (auto *const active = dynamic_cast<SliceViewer *>(WorkstationViewerManager::active())) {
        return active;
    }
    for (WorkstationViewer *viewer : WorkstationViewerManager::all()) {
        if (auto *const slice = dynamic_cast<SliceViewer *>(viewer)) {
            return slice;
        }
    }
    return nullptr;
}

} // namespace

MeasurementsPanel::MeasurementsPanel(MeasurementList &list, StudySession &session, QWidget *parent)
    : QWidget(parent)
    , m_list(list)
    , m_session(session)
    , m_tree(new QTreeWidget)
    , m_message(new ViewMessage(*m_tree))
    , m_copy(new PanelButton(QStringLiteral("Copy"), QStringLiteral("copy"),
          tr("Copy the selected measurements, or all, as text (Ctrl+C)")))
    , m_delete(new PanelButton(QStringLiteral("Delete"), QStringLiteral("delete"),
          tr("Delete the selected measurements (Del)")))
    , m_deleteAll(new PanelButton(
          QStringLiteral("DeleteAll"), QStringLiteral("delete-all"), tr("Delete all measurements")))
    , m_undo(new PanelButton(QStringLiteral("Undo"), QStringLiteral("undo"),
          tr("Bring back deleted or moved measurements (Ctrl+Z)")))
{
    setObjectName(QStringLiteral("Measurements"));
    setWindowTitle(tr("Measurements"));
    build();
    connectList();
    updateRows();
}

MeasurementsPanel::~MeasurementsPanel() = default;

void MeasurementsPanel::build()
{
    constexpr int space = 4;
    constexpr int nameWidth = 116;
    constexpr int valueWidth = 144;
    constexpr int sliceWidth = 116;
    m_tree->setColumnCount(numColumns);
    m_tree->setHeaderLabels({tr("Name"), tr("Value"), tr("Slice"), tr("Series")});
    m_tree->setColumnWidth(Name, nameWidth);
    m_tree->setColumnWidth(Value, valueWidth);
    m_tree->setColumnWidth(Slice, sliceWidth);
    m_tree->setRootIsDecorated(false);
    m_tree->setUniformRowHeights(true);
    m_tree->setAllColumnsShowFocus(true);
    m_tree->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_tree->setContextMenuPolicy(Qt::CustomContextMenu);
    m_tree->setAccessibleName(tr("Measurements"));
    auto *const buttons = new QHBoxLayout;
    buttons->setSpacing(space);
    for (PanelButton *button : {m_copy, m_delete, m_deleteAll, m_undo}) {
        buttons->addWidget(button);
    }
    buttons->addStretch();
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(space, space, space, space);
    layout->setSpacing(space);
    layout->addWidget(m_tree);
    layout->addLayout(buttons);
}

void MeasurementsPanel::connectList()
{
    m_updateTimer.setSingleShot(true);
    connect(&m_updateTimer, &QTimer::timeout, this, &MeasurementsPanel::updateRows);
    connect(&m_list, &MeasurementList::changed, this, &MeasurementsPanel::updateSoon);
    connect(&m_session, &StudySession::busyChanged, this, &MeasurementsPanel::updateSoon);
    m_watch = new NotificationWatch(
        {ExNotification::VIEWER_VOLUME_CHANGED, ExNotification::TIMESERIES_CHANGED,
            ExNotification::VOLUME_LOADED},
        [this](const ExNotification &) { updateSoon(); });
    connect(m_tree, &QTreeWidget::itemSelectionChanged, this, &MeasurementsPanel::pickSelected);
    connect(m_tree, &QTreeWidget::itemActivated, this,
        [this](const QTreeWidgetItem *item) { jumpTo(idOf(*item)); });
    connect(m_tree, &QWidget::customContextMenuRequested, this, &MeasurementsPanel::showMenu);
    connect(m_copy, &QToolButton::clicked, this, &MeasurementsPanel::copy);
    connect(m_delete, &QToolButton::clicked, this, &MeasurementsPanel::deleteSelected);
    connect(m_deleteAll, &QToolButton::clicked, this, &MeasurementsPanel::deleteAll);
    connect(m_undo, &QToolButton::clicked, this, [this] { m_list.undo(); });
    auto *const keys = new ViewKeys(*m_tree);
    keys->add(QKeySequence::Copy, [this] { copy(); });
    keys->add(Qt::Key_Delete, [this] { deleteSelected(); });
}

std::vector<const Measurement *> MeasurementsPanel::complete() const
{
    std::vector<const Measurement *> found;
    for (const Measurement &each : m_list.all()) {
        if (each.isComplete) {
            found.push_back(&each);
        }
    }
    return found;
}

void MeasurementsPanel::updateSoon()
{
    m_updateTimer.start();
}

void MeasurementsPanel::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (m_isAsleep) {
        m_isAsleep = false;
        updateRows();
    }
}

void MeasurementsPanel::hideEvent(QHideEvent *event)
{
    m_isAsleep = true;
    QWidget::hideEvent(event);
}

void MeasurementsPanel::updateRows()
{
    if (m_isAsleep) {
        return;
    }
    const QSignalBlocker blocker(m_tree);
    const auto shown = complete();
    // Both are in the order of the ids.
    for (int i = 0; i < static_cast<int>(shown.size()); ++i) {
        const Measurement &measurement = *shown[static_cast<std::size_t>(i)];
        while (i < m_tree->topLevelItemCount() && idOf(*m_tree->topLevelItem(i)) < measurement.id) {
            delete m_tree->takeTopLevelItem(i);
        }
        if (i == m_tree->topLevelItemCount() || idOf(*m_tree->topLevelItem(i)) != measurement.id) {
            m_tree->insertTopLevelItem(i, new QTreeWidgetItem);
        }
        updateRow(*m_tree->topLevelItem(i), measurement);
    }
    while (m_tree->topLevelItemCount() > static_cast<int>(shown.size())) {
        delete m_tree->takeTopLevelItem(m_tree->topLevelItemCount() - 1);
    }
    selectPicked();
    updateButtons();
    m_message->setMessage(shown.empty()
            ? tr("Nothing has been measured.\n\nChoose Distance, Angle or Region in the tool bar, "
                 "then click or drag in an image.")
            : QString());
    if (const int id = std::exchange(m_pendingJump, 0)) {
        finishJump(id);
    }
}

/// The images may be there now, still to come, or never come: then the viewer is free for others.
void MeasurementsPanel::finishJump(int id)
{
    const Measurement *const found = m_list.find(id);
    if (found == nullptr) {
        return;
    }
    if (MeasurementPlace::viewerFor(*found) != nullptr) {
        jumpTo(id);
    } else if (m_session.isLoaded(found->seriesUid) && m_session.isBusy()) {
        m_pendingJump = id;
    }
}

void MeasurementsPanel::updateRow(QTreeWidgetItem &item, const Measurement &measurement)
{
    const auto series = seriesOf(measurement);
    const bool hasImages = series && series->images() != nullptr;
    const QStringList results = hasImages
        ? MeasurementTexts::result(measurement, m_list, *series, shownPhase(*series))
        : QStringList();
    if (idOf(item) != measurement.id) {
        item.setData(0, idRole, measurement.id);
        item.setIcon(Name, swatch(measurement.id));
        constexpr int rowHeight = 24;
        item.setSizeHint(Name, {0, rowHeight});
    }
    item.setText(Name, measurement.name);
    item.setText(Value, results.join(QStringLiteral(",  ")));
    item.setToolTip(Value, results.join(u'\n'));
    item.setText(Slice, hasImages ? MeasurementPlace::sliceText(measurement, *series) : QString());
    item.setText(Series, series ? seriesName(*series) : tr("no longer open"));
    item.setToolTip(Series, item.text(Series));
    item.setToolTip(Name, tr("Double-click to go to it"));
}

McHandle<LoadedSeries> MeasurementsPanel::seriesOf(const Measurement &measurement) const
{
    for (const WorkstationViewer *viewer : WorkstationViewerManager::all()) {
        if (viewer->series() != nullptr && viewer->series()->uid() == measurement.seriesUid) {
            return viewer->series();
        }
    }
    return m_session.loaded(measurement.seriesUid);
}

void MeasurementsPanel::selectPicked()
{
    const int picked = m_list.picked();
    const std::vector<int> selected = selectedIds();
    if (std::find(selected.begin(), selected.end(), picked) != selected.end()) {
        return;
    }
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i) {
        QTreeWidgetItem *const item = m_tree->topLevelItem(i);
        if (idOf(*item) == picked) {
            m_tree->setCurrentItem(item);
            return;
        }
    }
    // Several may be selected of which none is the picked one.
    if (selected.size() == 1) {
        m_tree->clearSelection();
    }
}

void MeasurementsPanel::pickSelected()
{
    const std::vector<int> ids = selectedIds();
    m_list.setPicked(ids.size() == 1 ? ids.front() : 0);
    updateButtons();
}

void MeasurementsPanel::updateButtons()
{
    const bool hasAny = m_tree->topLevelItemCount() > 0;
    m_copy->setEnabled(hasAny);
    m_delete->setEnabled(!m_tree->selectedItems().isEmpty());
    m_deleteAll->setEnabled(hasAny);
    m_undo->setEnabled(m_list.canUndo());
}

std::vector<int> MeasurementsPanel::selectedIds() const
{
    std::vector<int> ids;
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i) {
        if (m_tree->topLevelItem(i)->isSelected()) {
            ids.push_back(idOf(*m_tree->topLevelItem(i)));
        }
    }
    return ids;
}

void MeasurementsPanel::jumpTo(int id)
{
    const Measurement *const found = m_list.find(id);
    if (found == nullptr) {
        return;
    }
    const Measurement measurement = *found;
    SliceViewer *viewer = MeasurementPlace::viewerFor(measurement);
    if (viewer == nullptr) {
        viewer = viewerToUse();
        if (viewer == nullptr || !open(measurement.seriesUid, *viewer)) {
            return;
        }
        if (viewer->volume(0) == nullptr) {
            m_pendingJump = id; // Once its images are there.
            return;
        }
    }
    MeasurementPlace::show(measurement, *viewer);
    ExViewerManager::getInstance().setActiveViewer(viewer);
    m_list.setPicked(id);
}

bool MeasurementsPanel::open(const std::string &seriesUid, SliceViewer &viewer)
{
    const QPointer<MeasurementsPanel> panel(this);
    Q_EMIT seriesWanted(QString::fromStdString(seriesUid), &viewer);
    // The user may have been asked, and much may have gone meanwhile.
    return panel != nullptr && !WorkstationViewerManager::living({&viewer}).empty()
        && viewer.series() != nullptr && viewer.series()->uid() == seriesUid;
}

void MeasurementsPanel::deleteSelected()
{
    m_list.removeByUser(selectedIds());
}

void MeasurementsPanel::deleteAll()
{
    std::vector<int> ids;
    for (const Measurement *each : complete()) {
        ids.push_back(each->id);
    }
    m_list.removeByUser(ids);
}

QString MeasurementsPanel::text() const
{
    const std::vector<int> ids = selectedIds();
    const std::set<int> selected(ids.begin(), ids.end());
    QString lines;
    for (const Measurement *each : complete()) {
        const auto series = seriesOf(*each);
        if ((!selected.empty() && selected.count(each->id) == 0) || !series
            || series->images() == nullptr) {
            continue;
        }
        const QStringList cells = QStringList{each->name, seriesName(*series),
                                      MeasurementPlace::sliceText(*each, *series)}
            + MeasurementTexts::result(*each, m_list, *series, shownPhase(*series));
        lines += cells.join(u'\t') % u'\n';
    }
    return lines.isEmpty() ? QString()
                           : QString(tr("Name") % u'\t' % tr("Series") % u'\t' % tr("Slice") % u'\t'
                               % tr("Value") % u'\n' % lines);
}

void MeasurementsPanel::copy() const
{
    if (const QString copied = text(); !copied.isEmpty()) {
        QApplication::clipboard()->setText(copied);
    }
}

void MeasurementsPanel::showMenu(const QPoint &position)
{
    const std::vector<int> ids = selectedIds();
    QMenu menu(this);
    QAction *const jump = menu.addAction(tr("&Go to it"), this, [this, ids] { jumpTo(ids[0]); });
    jump->setEnabled(ids.size() == 1);
    menu.addAction(tr("&Copy"), this, &MeasurementsPanel::copy)
        ->setEnabled(m_tree->topLevelItemCount() > 0);
    menu.addAction(tr("&Delete"), this, &MeasurementsPanel::deleteSelected)
        ->setEnabled(!ids.empty());
    menu.exec(m_tree->viewport()->mapToGlobal(position));
}
