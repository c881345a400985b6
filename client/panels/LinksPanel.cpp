#include "client/panels/LinksPanel.h"

#include "client/app/NotificationWatch.h"
#include "client/links/ViewerLinks.h"
#include "client/panels/LinkDelegate.h"
#include "client/panels/LinkMenu.h"
#include "client/panels/LinkTexts.h"
#include "client/panels/PanelButton.h"
#include "client/panels/ViewKeys.h"
#include "client/panels/ViewMessage.h"
#include "client/viewers/WorkstationViewer.h"
#include "client/viewers/WorkstationViewerManager.h"
#include "framework/viewers/ExViewerDB.h"
#include "framework/viewers/ExViewerDBGroup.h"
#include "framework/viewers/ExViewerManager.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QMenu>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int firstViewer = 1; ///< column
constexpr int rowHeight = 32;

const std::vector<ExNotification::Type> changes{ExNotification::VIEWER_CREATED,
    ExNotification::ABOUT_TO_DELETE_VIEWERS, ExNotification::VIEWER_ATTACHED_TO_GROUP,
    ExNotification::VIEWER_DETACHED_FROM_GROUP, ExNotification::VIEWER_GROUP_ENABLED,
    ExNotification::VIEWER_GROUP_DISABLED, ExNotification::VIEWER_LAYOUT_CHANGED,
    ExNotification::VIEWER_SUBTYPE_CHANGED, ExNotification::VIEWER_VOLUME_CHANGED,
    ExNotification::ACTIVE_VIEWER_CHANGED, ExNotification::FULLSCREEN_CHANGED};

/// The group's place among those of its type, by which it is coloured; -1 for a group of one.
int numberOf(const std::string &type, const ExViewerDBGroup &group)
{
    for (int i = 0; group.viewers().size() > 1 && i < ExViewerDB::numGroups(type); ++i) {
        if (ExViewerDB::group(type, i) == &group) {
            return i;
        }
    }
    return -1;
}

/// The delegate frames what is selected, so that groups keep their colours. Not by the table's
/// palette, which is the style sheet's.
class LinkTable final : public QTableWidget
{
protected:
    void initViewItemOption(QStyleOptionViewItem *option) const override
    {
        QTableWidget::initViewItemOption(option);
        option->palette.setColor(QPalette::Highlight, Qt::transparent);
    }
};

} // namespace

LinksPanel::LinksPanel(QWidget *parent)
    : QWidget(parent)
    , m_table(new LinkTable)
    , m_message(new ViewMessage(*m_table))
    , m_attach(new PanelButton(QStringLiteral("Attach"), QStringLiteral("link"),
          tr("Attach or detach the selected viewers (Space)")))
    , m_group(new PanelButton(QStringLiteral("Group"), QStringLiteral("link-group"),
          tr("Put the selected viewers into one group")))
    , m_separate(new PanelButton(QStringLiteral("Separate"), QStringLiteral("link-separate"),
          tr("Give each of the selected viewers a group of its own")))
{
    setObjectName(QStringLiteral("Links"));
    setWindowTitle(tr("Links"));
    build();
    connectTable();
    updateTable();
}

LinksPanel::~LinksPanel() = default;

void LinksPanel::build()
{
    constexpr int space = 4;
    constexpr int typeWidth = 136;
    constexpr int viewerWidth = 104;
    const auto &types = LinkType::all();
    m_table->setColumnCount(firstViewer);
    m_table->setRowCount(static_cast<int>(types.size()));
    m_table->setHorizontalHeaderLabels({tr("Link")});
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setDefaultSectionSize(rowHeight);
    m_table->horizontalHeader()->setDefaultSectionSize(viewerWidth);
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->horizontalHeader()->setSectionsClickable(true);
    m_table->setColumnWidth(0, typeWidth);
    m_table->setShowGrid(false);
    m_table->setItemDelegate(new LinkDelegate(m_table));
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setContextMenuPolicy(Qt::CustomContextMenu);
    m_table->setAccessibleName(tr("Links"));
    for (int row = 0; row < m_table->rowCount(); ++row) {
        buildRow(row, types[static_cast<std::size_t>(row)]);
    }
    auto *const buttons = new QHBoxLayout;
    buttons->setSpacing(space);
    for (PanelButton *button : {m_attach, m_group, m_separate}) {
        buttons->addWidget(button);
    }
    buttons->addStretch();
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(space, space, space, space);
    layout->setSpacing(space);
    layout->addWidget(m_table);
    layout->addLayout(buttons);
}

void LinksPanel::buildRow(int row, const LinkType &type)
{
    auto *const box = new QCheckBox(type.name());
    box->setMinimumHeight(rowHeight);
    box->setContentsMargins(0, 0, 0, 0);
    box->setToolTip(tr("Switches this way of linking on or off for all viewers"));
    box->setObjectName(QString::fromStdString(type.group));
    m_table->setCellWidget(row, 0, box);
    m_switches.push_back(box);
    connect(box, &QCheckBox::toggled, this,
        [&type](bool on) { ViewerLinks::setEnabled(type.group, on); });
}

void LinksPanel::connectTable()
{
    m_updateTimer.setSingleShot(true);
    connect(&m_updateTimer, &QTimer::timeout, this, &LinksPanel::updateTable);
    m_watch
        = new NotificationWatch(changes, [this](const ExNotification &) { m_updateTimer.start(); });
    m_deletionWatch = new NotificationWatch({ExNotification::ABOUT_TO_DELETE_VIEWERS},
        [this](const ExNotification &) { forgetViewers(); });
    connect(m_table, &QTableWidget::itemSelectionChanged, this, &LinksPanel::updateButtons);
    connect(m_table, &QTableWidget::itemActivated, this, &LinksPanel::toggleAttached);
    connect(m_table, &QWidget::customContextMenuRequested, this, &LinksPanel::showMenu);
    connect(m_table->horizontalHeader(), &QHeaderView::sectionClicked, this,
        &LinksPanel::activateViewer);
    connect(m_attach, &QToolButton::clicked, this, &LinksPanel::toggleAttached);
    connect(m_group, &QToolButton::clicked, this, &LinksPanel::groupSelected);
    connect(m_separate, &QToolButton::clicked, this, &LinksPanel::separateSelected);
    auto *const keys = new ViewKeys(*m_table);
    keys->add(Qt::Key_Space, [this] { toggleAttached(); });
}

void LinksPanel::forgetViewers()
{
    // They are about to go, with nothing shown of them that could still be clicked.
    m_viewers.clear();
    if (m_menu != nullptr) {
        m_menu->close();
    }
    m_table->setColumnCount(firstViewer);
}

void LinksPanel::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (m_isAsleep) {
        m_isAsleep = false;
        updateTable();
    }
}

void LinksPanel::hideEvent(QHideEvent *event)
{
    m_isAsleep = true;
    QWidget::hideEvent(event);
}

void LinksPanel::updateTable()
{
    if (m_isAsleep) {
        return;
    }
    m_viewers = WorkstationViewerManager::all();
    const auto &types = LinkType::all();
    m_table->setColumnCount(firstViewer + static_cast<int>(m_viewers.size()));
    for (std::size_t row = 0; row < types.size(); ++row) {
        const QSignalBlocker blocker(m_switches[row]);
        m_switches[row]->setChecked(ExViewerDB::groupEnabled(types[row].group));
    }
    for (int i = 0; i < static_cast<int>(m_viewers.size()); ++i) {
        const WorkstationViewer &viewer = *m_viewers[static_cast<std::size_t>(i)];
        updateHeader(firstViewer + i, viewer);
        for (int row = 0; row < m_table->rowCount(); ++row) {
            updateCell(row, firstViewer + i, types[static_cast<std::size_t>(row)], viewer);
        }
    }
    updateButtons();
    m_message->setMessage(
        m_viewers.empty() ? tr("There are no viewers. Choose a layout to have some.") : QString());
}

void LinksPanel::updateHeader(int column, const WorkstationViewer &viewer)
{
    auto *const item
        = new QTableWidgetItem(LinkTexts::planeName(viewer) % u'\n' % LinkTexts::placeName(viewer));
    QFont font = m_table->font();
    font.setBold(ExViewerManager::isActiveViewer(viewer));
    item->setFont(font);
    const QString series = viewer.series() != nullptr
        ? viewer.series()->info().patientName % u'\n' % viewer.series()->info().seriesDescription
        : tr("No series");
    item->setToolTip(series % u'\n' % tr("A click makes it the active viewer."));
    m_table->setHorizontalHeaderItem(column, item);
}

void LinksPanel::updateCell(
    int row, int column, const LinkType &type, const WorkstationViewer &viewer)
{
    QTableWidgetItem *item = m_table->item(row, column);
    if (item == nullptr) {
        item = new QTableWidgetItem;
        item->setTextAlignment(Qt::AlignCenter);
        m_table->setItem(row, column, item);
    }
    if (!type.appliesTo(viewer)) {
        item->setFlags(Qt::NoItemFlags);
        item->setText(QStringLiteral("–"));
        item->setToolTip(tr("There is no such link of this kind of viewer."));
        return;
    }
    const ExViewerDBGroup *const group = ExViewerDB::group(type.group, &viewer);
    const bool isAttached = ViewerLinks::isAttached(type.group, viewer);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    item->setText(group != nullptr ? LinkTexts::groupName(type.group, viewer) : tr("not linked"));
    item->setToolTip(LinkTexts::toolTip(type, viewer));
    item->setData(Qt::AccessibleTextRole,
        QString(LinkTexts::nameOf(viewer) % QStringLiteral(", ") % type.name() % u'\n'
            % item->toolTip()));
    item->setData(LinkDelegate::NumberRole,
        group != nullptr ? QVariant(numberOf(type.group, *group)) : QVariant());
    item->setData(LinkDelegate::IsAttachedRole, isAttached);
    item->setData(LinkDelegate::IsEnabledRole, ExViewerDB::groupEnabled(type.group));
}

void LinksPanel::updateButtons()
{
    const bool hasSelection = !m_table->selectedItems().isEmpty();
    for (PanelButton *button : {m_attach, m_group, m_separate}) {
        button->setEnabled(hasSelection);
    }
}

LinksPanel::Viewers LinksPanel::chosenIn(int row) const
{
    Viewers chosen;
    for (std::size_t i = 0; i < m_viewers.size(); ++i) {
        const QTableWidgetItem *const item = m_table->item(row, firstViewer + static_cast<int>(i));
        if (item != nullptr && item->isSelected()) {
            chosen.push_back(m_viewers[i]);
        }
    }
    return WorkstationViewerManager::living(chosen);
}

void LinksPanel::toggleAttached()
{
    const auto &types = LinkType::all();
    for (int row = 0; row < m_table->rowCount(); ++row) {
        const std::string &type = types[static_cast<std::size_t>(row)].group;
        const Viewers chosen = chosenIn(row);
        const bool areAttached
            = std::all_of(chosen.begin(), chosen.end(), [&type](const WorkstationViewer *each) {
                  return ViewerLinks::isAttached(type, *each);
              });
        for (WorkstationViewer *viewer : chosen) {
            ViewerLinks::setAttached(type, *viewer, !areAttached);
        }
    }
}

void LinksPanel::groupSelected()
{
    for (int row = 0; row < m_table->rowCount(); ++row) {
        ViewerLinks::group(LinkType::all()[static_cast<std::size_t>(row)].group, chosenIn(row));
    }
}

void LinksPanel::separateSelected()
{
    for (int row = 0; row < m_table->rowCount(); ++row) {
        for (WorkstationViewer *viewer : chosenIn(row)) {
            ViewerLinks::group(LinkType::all()[static_cast<std::size_t>(row)].group, {viewer});
        }
    }
}

void LinksPanel::fillMenu(QMenu &menu)
{
    const int row = m_table->currentRow();
    const Viewers chosen = row >= 0 ? chosenIn(row) : Viewers();
    if (!chosen.empty()) {
        LinkMenu::fill(menu, LinkType::all()[static_cast<std::size_t>(row)].group, chosen);
    }
}

void LinksPanel::showMenu(const QPoint &position)
{
    QMenu menu(this);
    m_menu = &menu;
    fillMenu(menu);
    if (!menu.isEmpty()) {
        menu.exec(m_table->viewport()->mapToGlobal(position));
    }
}

void LinksPanel::activateViewer(int column)
{
    const auto index = static_cast<std::size_t>(column - firstViewer);
    if (column >= firstViewer && index < m_viewers.size()) {
        for (WorkstationViewer *viewer : WorkstationViewerManager::living({m_viewers[index]})) {
            ExViewerManager::getInstance().setActiveViewer(viewer);
        }
    }
}
