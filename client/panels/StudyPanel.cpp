#include "client/panels/StudyPanel.h"

#include "client/app/NotificationWatch.h"
#include "client/layout/ViewerArea.h"
#include "client/loading/StudySession.h"
#include "client/panels/AttributesView.h"
#include "client/panels/SearchField.h"
#include "client/panels/StudyThumbnails.h"
#include "client/panels/StudyTree.h"
#include "client/viewers/WorkstationViewer.h"
#include "client/viewers/WorkstationViewerManager.h"
#include "framework/tools/ExActionUI.h"
#include "platform/dicom/DicomDirectory.h"

#include <QAction>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QSplitter>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

using Zel::DicomDirectoryEntry;

constexpr int space = 4;

/// Tools look there for what is selected.
void tellSelection(const std::vector<McHandle<DicomDirectoryEntry>> &selected)
{
    Zel::DicomDirectory::Selection chosen;
    for (const McHandle<DicomDirectoryEntry> &each : selected) {
        chosen.append(each);
    }
    Zel::DicomDirectory::instance().setSelection(chosen);
}

/// Adds the identifiers of all series in an entry.
void addSeries(const DicomDirectoryEntry &entry, QStringList &uids)
{
    if (entry.isSeries()) {
        uids += QString::fromStdString(entry.uid());
        return;
    }
    for (const auto &child : entry.children()) {
        addSeries(*child, uids);
    }
}

} // namespace

StudyPanel::StudyPanel(StudySession &session, QWidget *parent)
    : QWidget(parent)
    , m_session(session)
    , m_tree(new StudyTree)
    , m_search(new SearchField(tr("Search studies"), *m_tree))
    , m_attributes(new AttributesView)
    , m_open(new QPushButton(tr("Open")))
    , m_attributesButton(new QToolButton)
    , m_openAction(new QAction(tr("&Open"), this))
    , m_attributesAction(new QAction(tr("DICOM attributes"), this))
    , m_closeAction(new QAction(tr("&Close"), this))
    , m_closePatientAction(new QAction(tr("Close &patient"), this))
{
    setObjectName(QStringLiteral("Studies"));
    setWindowTitle(tr("Studies"));
    setEmptyText({});
    addActions();
    build();
    connectList();
    m_thumbnails = std::make_unique<StudyThumbnails>(*m_tree, session);
    m_watch = new NotificationWatch(
        {ExNotification::ACTIVE_VIEWER_CHANGED, ExNotification::VIEWER_VOLUME_CHANGED},
        [this](const ExNotification &) { markShown(); });
    showSession();
}

StudyPanel::~StudyPanel() = default;

void StudyPanel::addActions()
{
    m_openAction->setToolTip(tr("Opens what is selected; Ctrl or Shift selects several"));
    m_attributesAction->setCheckable(true);
    m_attributesAction->setToolTip(
        tr("Shows all DICOM attributes of the selected series' first image"));
    m_closeAction->setToolTip(tr("Closes what is selected"));
    m_closePatientAction->setToolTip(tr("Closes everything of the selected patients"));
    connect(m_openAction, &QAction::triggered, this, &StudyPanel::openSelected);
    connect(m_attributesAction, &QAction::toggled, this, &StudyPanel::setAttributesShown);
    connect(m_closeAction, &QAction::triggered, this,
        [this] { requestClose(DicomDirectoryEntry::Series); });
    connect(m_closePatientAction, &QAction::triggered, this,
        [this] { requestClose(DicomDirectoryEntry::Patient); });
}

void StudyPanel::build()
{
    auto *const splitter = new QSplitter(Qt::Vertical);
    splitter->addWidget(m_tree);
    splitter->addWidget(m_attributes);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 2);
    splitter->setHandleWidth(space);
    splitter->setChildrenCollapsible(false);
    m_attributes->hide();
    m_tree->setContextMenuPolicy(Qt::CustomContextMenu);
    m_open->setObjectName(QStringLiteral("Open"));
    m_attributesButton->setDefaultAction(m_attributesAction);
    m_attributesButton->setMinimumHeight(m_open->sizeHint().height());
    auto *const buttons = new QHBoxLayout;
    buttons->setSpacing(space);
    buttons->addWidget(m_open);
    buttons->addStretch();
    buttons->addWidget(m_attributesButton);
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(space, space, space, space);
    layout->setSpacing(space);
    layout->addWidget(m_search);
    layout->addWidget(splitter, 1);
    layout->addLayout(buttons);
    setTabOrder(m_search, m_tree);
    setAcceptDrops(true);
    for (SearchField *field : findChildren<SearchField *>()) {
        field->setAcceptDrops(false); // A folder dropped there is to be opened, not searched for.
    }
}

void StudyPanel::dragEnterEvent(QDragEnterEvent *event)
{
    if (!ViewerArea::paths(*event->mimeData()).isEmpty()) {
        event->acceptProposedAction();
    }
}

void StudyPanel::dropEvent(QDropEvent *event)
{
    if (const QStringList paths = ViewerArea::paths(*event->mimeData()); !paths.isEmpty()) {
        event->acceptProposedAction();
        Q_EMIT pathsDropped(paths);
    }
}

void StudyPanel::connectList()
{
    connect(m_search, &QLineEdit::textChanged, m_tree, &StudyTree::setFilter);
    connect(m_search, &QLineEdit::textChanged, this, &StudyPanel::selectedChanged);
    connect(m_search, &QLineEdit::returnPressed, this, &StudyPanel::openSelected);
    connect(m_open, &QPushButton::clicked, m_openAction, &QAction::trigger);
    connect(m_tree, &StudyTree::openRequested, this, &StudyPanel::openActivated);
    connect(m_tree, &QTreeWidget::itemSelectionChanged, this, &StudyPanel::selectedChanged);
    connect(m_tree, &QWidget::customContextMenuRequested, this, &StudyPanel::showMenu);
    connect(&m_session, &StudySession::scanned, this, &StudyPanel::showSession);
    connect(&m_session, &StudySession::closed, this, &StudyPanel::showSession);
}

void StudyPanel::showSession()
{
    m_tree->setPatients(m_session.found().patients);
    markShown();
    selectedChanged();
}

void StudyPanel::setEmptyText(const QString &text)
{
    m_tree->setEmptyText(!text.isEmpty() ? text
                                         : tr("No studies are open.\n\nOpen a folder with File > "
                                              "Open folder, or drop one here."));
}

void StudyPanel::selectedChanged()
{
    const qsizetype count = m_tree->selectedUids().size();
    const auto selected = m_tree->selectedEntries();
    const bool isAnything = !selected.empty();
    tellSelection(selected);
    m_openAction->setEnabled(count > 0);
    m_open->setEnabled(count > 0);
    m_open->setText(count > 1 ? tr("Open (%1)").arg(count) : tr("Open"));
    m_open->setToolTip(
        count > 0 || !isAnything ? m_openAction->toolTip() : StudyTree::refusal(*selected.front()));
    m_closeAction->setEnabled(isAnything);
    m_closePatientAction->setEnabled(isAnything);
    showAttributes();
}

void StudyPanel::openSelected()
{
    if (const QStringList uids = m_tree->selectedUids(); !uids.isEmpty()) {
        Q_EMIT openRequested(uids);
    }
}

void StudyPanel::openActivated(const QString &uid)
{
    const QStringList selected = m_tree->selectedUids();
    Q_EMIT openRequested(selected.contains(uid) ? selected : QStringList{uid});
}

void StudyPanel::requestClose(unsigned level)
{
    QStringList uids;
    for (const auto &entry : m_tree->selectedEntries()) {
        // A volume is not closed without its series.
        const DicomDirectoryEntry *const closed = entry->level() < level
            ? entry->ancestor(static_cast<DicomDirectoryEntry::Level>(level))
            : entry.get();
        if (closed != nullptr) {
            addSeries(*closed, uids);
        }
    }
    uids.removeDuplicates();
    if (!uids.isEmpty()) {
        Q_EMIT closeRequested(uids);
    }
}

void StudyPanel::setAttributesShown(bool shown)
{
    m_attributesAction->setChecked(shown);
    m_attributes->setVisible(shown);
    showAttributes();
}

void StudyPanel::showAttributes()
{
    if (m_attributes->isHidden()) {
        return;
    }
    const auto selected = m_tree->selectedEntries();
    const auto first = std::find_if(selected.begin(), selected.end(),
        [](const McHandle<Entry> &each) { return !each->files().isEmpty(); });
    m_attributes->showFile(first != selected.end() ? (*first)->files().first() : McFilename());
}

bool StudyPanel::isSettled() const
{
    return m_thumbnails->isSettled() && m_attributes->isSettled();
}

void StudyPanel::showMenu(const QPoint &position)
{
    QMenu menu(this);
    menu.setToolTipsVisible(true);
    menu.addAction(m_openAction);
    menu.addAction(m_attributesAction);
    menu.addSeparator();
    menu.addAction(m_closeAction);
    menu.addAction(m_closePatientAction);
    menu.addSeparator();
    menu.addActions(ExActionUI::createActions({QStringLiteral("File.LockPatient")}, &menu));
    menu.exec(m_tree->viewport()->mapToGlobal(position));
}

void StudyPanel::markShown()
{
    const WorkstationViewer *const viewer = WorkstationViewerManager::active();
    const bool hasSeries = viewer != nullptr && viewer->series() != nullptr;
    m_tree->markShown(hasSeries ? QString::fromStdString(viewer->series()->uid()) : QString());
}
