#include "client/panels/LinksPanel.h"

#include "client/app/NotificationWatch.h"
#include "client/geometry/PlaneGeometry.h"
#include "client/links/ViewerLinks.h"
#include "client/panels/LinkDelegate.h"
#include "client/panels/PanelButton.h"
#include "client/panels/ViewKeys.h"
#include "client/panels/ViewMessage.h"
#include "client/viewers/SliceViewer.h"
#include "framework/viewers/ExViewerDB.h"
#include "framework/viewers/ExViewerDBGroup.h"
#include "framework/viewers/ExViewerManager.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QMenu>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

namespace {

constexpr int firstViewer = 1; ///< column
constexpr int rowHeight = 32;

const std::vector<ExNotification::Type> changes{ExNotification::VIEWER_CREATED,
    ExNotification::ABOUT_TO_DELETE_VIEWERS, ExNotification::VIEWER_ATTACHED_TO_GROUP,
    ExNotification::VIEWER_DETACHED_FROM_GROUP, ExNotification::VIEWER_GROUP_ENABLED,
    ExNotification::VIEWER_GROUP_DISABLED, ExNotification::VIEWER_LAYOUT_CHANGED,
    ExNotification::VIEWER_SUBTYPE_CHANGED, ExNotification::VIEWER_VOLUME_CHANGED,
    ExNotification::ACTIVE_VIEWER_CHANGED, ExNotification::FULLSCREEN_CHANGED};

bool isSliceViewer(const WorkstationViewer &viewer)
{
    return viewer.viewerType() == static_cast<Ex::ViewerType>(WorkstationViewer::SliceType);
}

bool appliesTo(const LinkType &type, const WorkstationViewer &viewer)
{
    return isSliceViewer(viewer) ? type.ofSlices : type.ofVolumes;
}

QString planeName(const WorkstationViewer &viewer)
{
    return isSliceViewer(viewer)
        ? PlaneGeometry::name(static_cast<const SliceViewer &>(viewer).plane())
        : LinksPanel::tr("3D");
}

/// 0 to 2 for what lies at the beginning, in the middle or at the end of a length.
std::size_t third(double middle, double extent, double length)
{
    constexpr double most = 0.6;
    constexpr double off = 0.1;
    const double fraction = middle / length;
    if (extent / length > most || std::abs(fraction - 0.5) < off) {
        return 1;
    }
    return fraction < 0.5 ? 0 : 2;
}

/// Where the viewer is on its screen; empty when it has none.
QString placeName(const WorkstationViewer &viewer)
{
    static constexpr std::array names{QT_TRANSLATE_NOOP("LinksPanel", "top left"),
        QT_TRANSLATE_NOOP("LinksPanel", "top"), QT_TRANSLATE_NOOP("LinksPanel", "top right"),
        QT_TRANSLATE_NOOP("LinksPanel", "left"), QT_TRANSLATE_NOOP("LinksPanel", "middle"),
        QT_TRANSLATE_NOOP("LinksPanel", "right"), QT_TRANSLATE_NOOP("LinksPanel", "bottom left"),
        QT_TRANSLATE_NOOP("LinksPanel", "bottom"), QT_TRANSLATE_NOOP("LinksPanel", "bottom right")};
    const QWidget *const widget = viewer.renderWidget();
    const QWidget *const area = widget != nullptr ? widget->parentWidget() : nullptr;
    if (area == nullptr || area->size().isEmpty()) {
        return {};
    }
    const QRectF place = widget->geometry();
    const std::size_t row = third(place.center().y(), place.height(), area->height());
    const std::size_t column = third(place.center().x(), place.width(), area->width());
    return LinksPanel::tr(names.at(3 * row + column));
}

QString nameOf(const WorkstationViewer &viewer)
{
    const QString place = placeName(viewer);
    return place.isEmpty() ? planeName(viewer)
                           : QStringLiteral("%1 (%2)").arg(planeName(viewer), place);
}

QString namesOf(const ExViewerDBGroup &group)
{
    QStringList names;
    for (const ExBaseViewer *each : group.viewers()) {
        names += nameOf(*static_cast<const WorkstationViewer *>(each));
    }
    return names.join(QStringLiteral(", "));
}

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

QString groupName(const std::string &type, const WorkstationViewer &viewer)
{
    return ViewerLinks::followsActive(type, viewer)
        ? LinksPanel::tr("Active viewer")
        : LinksPanel::tr("Group %1")
              .arg(QString::fromStdString(ExViewerDB::groupId(type, &viewer)));
}

QString cellToolTip(const LinkType &type, const WorkstationViewer &viewer)
{
    const ExViewerDBGroup *const group = ExViewerDB::group(type.group, &viewer);
    if (group == nullptr) {
        return LinksPanel::tr("%1 of %2 is not linked.").arg(type.name(), nameOf(viewer));
    }
    QStringList lines{QStringLiteral("%1: %2").arg(groupName(type.group, viewer), namesOf(*group)),
        ViewerLinks::isAttached(type.group, viewer)
            ? LinksPanel::tr("Attached: follows the linked viewers.")
            : LinksPanel::tr("Detached: stays as it is.")};
    const auto allowed = ViewerLinks::restriction(type.group, viewer);
    if (ViewerLinks::followsActive(type.group, viewer) && !allowed.empty()) {
        lines += LinksPanel::tr("Follows some viewers only.");
    }
    lines += LinksPanel::tr(
        "Double-click or Space attaches and detaches; the context menu has more.");
    return lines.join(u'\n');
}

} // namespace

LinksPanel::LinksPanel(QWidget *parent)
    : QWidget(parent)
    , m_table(new QTableWidget)
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
    QPalette colors; // The delegate frames what is selected, so that groups keep their colours.
    colors.setColor(QPalette::Highlight, Qt::transparent);
    m_table->setPalette(colors);
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
    const ExViewerManager *const manager = ExViewerManager::instancePointer();
    m_viewers.clear();
    for (int i = 0; manager != nullptr && i < manager->numViewers(); ++i) {
        m_viewers.push_back(static_cast<WorkstationViewer *>(manager->viewer(i)));
    }
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
    auto *const item = new QTableWidgetItem(planeName(viewer) % u'\n' % placeName(viewer));
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
    if (!appliesTo(type, viewer)) {
        item->setFlags(Qt::NoItemFlags);
        item->setText(QStringLiteral("–"));
        item->setToolTip(tr("There is no such link of this kind of viewer."));
        return;
    }
    const ExViewerDBGroup *const group = ExViewerDB::group(type.group, &viewer);
    const bool isAttached = ViewerLinks::isAttached(type.group, viewer);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    item->setText(group != nullptr ? groupName(type.group, viewer) : tr("not linked"));
    item->setToolTip(cellToolTip(type, viewer));
    item->setData(Qt::AccessibleTextRole,
        QString(nameOf(viewer) % QStringLiteral(", ") % type.name() % u'\n' % item->toolTip()));
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

LinksPanel::Viewers LinksPanel::living(const Viewers &viewers)
{
    const ExViewerManager *const manager = ExViewerManager::instancePointer();
    Viewers found;
    std::copy_if(viewers.begin(), viewers.end(), std::back_inserter(found),
        [manager](const WorkstationViewer *each) {
            return manager != nullptr && manager->viewerIndex(each) >= 0;
        });
    return found;
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
    return living(chosen);
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
    if (chosen.empty()) {
        return;
    }
    const std::string &type = LinkType::all()[static_cast<std::size_t>(row)].group;
    QAction *const attached = menu.addAction(tr("&Attached"));
    attached->setCheckable(true);
    attached->setChecked(ViewerLinks::isAttached(type, *chosen.front()));
    connect(attached, &QAction::triggered, this, [&type, chosen](bool on) {
        for (WorkstationViewer *viewer : living(chosen)) {
            ViewerLinks::setAttached(type, *viewer, on);
        }
    });
    menu.addSeparator();
    addGroups(menu, type, chosen);
    menu.addAction(chosen.size() > 1 ? tr("&New group of these") : tr("&New group"), this,
        [&type, chosen] { ViewerLinks::group(type, living(chosen)); });
    menu.addAction(tr("Not &linked"), this, [&type, chosen] {
        for (WorkstationViewer *viewer : living(chosen)) {
            ViewerLinks::leave(type, *viewer);
        }
    });
    menu.addSeparator();
    addRestrictions(menu, type, chosen);
}

void LinksPanel::addGroups(QMenu &menu, const std::string &type, const Viewers &chosen)
{
    for (int i = 0; i < ExViewerDB::numGroups(type); ++i) {
        const ExViewerDBGroup &group = *ExViewerDB::group(type, i);
        auto *const member = static_cast<WorkstationViewer *>(group.viewers()[0]);
        if (ViewerLinks::followsActive(type, *member)) {
            continue;
        }
        QAction *const join
            = menu.addAction(QStringLiteral("%1: %2").arg(groupName(type, *member), namesOf(group)),
                this, [&type, chosen, member] {
                    for (WorkstationViewer *viewer : living(chosen)) {
                        if (!living({member}).empty()) {
                            ViewerLinks::join(type, *viewer, *member);
                        }
                    }
                });
        join->setCheckable(true);
        join->setChecked(ExViewerDB::isSameGroup(type, chosen.front(), member));
    }
    QAction *const follow = menu.addAction(tr("&Follow the active viewer"), this, [&type, chosen] {
        for (WorkstationViewer *viewer : living(chosen)) {
            ViewerLinks::followActive(type, *viewer);
        }
    });
    follow->setCheckable(true);
    follow->setChecked(ViewerLinks::followsActive(type, *chosen.front()));
}

void LinksPanel::addRestrictions(QMenu &menu, const std::string &type, const Viewers &chosen)
{
    QMenu *const restrictions = menu.addMenu(tr("&Restrict to"));
    restrictions->setEnabled(ViewerLinks::followsActive(type, *chosen.front()));
    const std::set<std::string> allowed = ViewerLinks::restriction(type, *chosen.front());
    for (const WorkstationViewer *each : m_viewers) {
        const std::string place = each->displaySetID();
        if (place.empty() || ViewerLinks::followsActive(type, *each)) {
            continue;
        }
        QAction *const allow = restrictions->addAction(nameOf(*each));
        allow->setCheckable(true);
        allow->setChecked(allowed.count(place) > 0);
        connect(allow, &QAction::triggered, this, [&type, chosen, place](bool on) {
            for (WorkstationViewer *viewer : living(chosen)) {
                std::set<std::string> places = ViewerLinks::restriction(type, *viewer);
                on ? void(places.insert(place)) : void(places.erase(place));
                ViewerLinks::setRestriction(type, *viewer, places);
            }
        });
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
        for (WorkstationViewer *viewer : living({m_viewers[index]})) {
            ExViewerManager::getInstance().setActiveViewer(viewer);
        }
    }
}
