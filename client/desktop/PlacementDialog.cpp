#include "client/desktop/PlacementDialog.h"

#include "client/app/NotificationWatch.h"
#include "client/desktop/Desktop.h"
#include "client/desktop/MonitorMap.h"
#include "framework/monitors/ExMonitorManager.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

namespace {

constexpr QSize largestMap(1000, 560);

/// The map, with scroll bars only for desktops of very many monitors.
QScrollArea *makeScrollArea(MonitorMap &map)
{
    auto *const area = new QScrollArea;
    area->setWidget(&map);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setAccessibleName(PlacementDialog::tr("Monitors"));
    return area;
}

} // namespace

PlacementDialog::PlacementDialog(Desktop &desktop, QWidget *parent)
    : QDialog(parent)
    , m_desktop(desktop)
    , m_map(new MonitorMap)
    , m_explanation(new QLabel)
    , m_buttons(new QDialogButtonBox(
          QDialogButtonBox::Ok | QDialogButtonBox::Apply | QDialogButtonBox::Cancel))
    , m_watch(new NotificationWatch({ExNotification::MONITOR_CONFIGURATION_CHANGED},
          [this](const ExNotification & /*notification*/) { readMonitors(); }))
{
    setObjectName(QStringLiteral("PlacementDialog"));
    setWindowTitle(tr("Monitors"));
    auto *const layout = new QVBoxLayout(this);
    auto *const question = new QLabel(tr("What each monitor shows:"));
    QScrollArea *const area = makeScrollArea(*m_map);
    m_explanation->setObjectName(QStringLiteral("Explanation"));
    m_explanation->setWordWrap(true);
    for (QWidget *part :
        std::initializer_list<QWidget *>{question, area, m_explanation, m_buttons}) {
        layout->addWidget(part);
    }
    for (QAbstractButton *button : m_buttons->buttons()) {
        button->setIcon({});
    }
    connect(m_map, &MonitorMap::changed, this, &PlacementDialog::explain);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_buttons, &QDialogButtonBox::accepted, this, [this] {
        apply();
        accept();
    });
    connect(m_buttons->button(QDialogButtonBox::Apply), &QPushButton::clicked, this,
        &PlacementDialog::apply);
    readMonitors();
    area->setMinimumSize(m_map->sizeHint().boundedTo(largestMap));
}

void PlacementDialog::readMonitors()
{
    const ExMonitorManager &manager = ExMonitorManager::instance();
    m_map->setMonitors(manager.monitors(), manager.primaryMonitor());
    m_map->setPlacement(m_desktop.placement());
    explain();
}

void PlacementDialog::apply()
{
    m_desktop.place(m_map->placement());
    raise();
    activateWindow();
}

void PlacementDialog::explain()
{
    const QList<QRect> &monitors = ExMonitorManager::instance().monitors();
    const Placement::Problem problem = m_map->placement().problem(monitors);
    const bool isFine = problem == Placement::Problem::None;
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(isFine);
    m_buttons->button(QDialogButtonBox::Apply)->setEnabled(isFine);
    if (monitors.size() < 2) {
        m_explanation->setText(tr("There is only one monitor, which shows everything. With a "
                                  "further one, viewers and studies can be spread."));
    } else {
        m_explanation->setText(isFine ? text(m_map->placement()) : text(problem));
    }
}

QString PlacementDialog::text(const Placement &placement)
{
    const QString viewers = placement.viewers.size() > 1
        ? tr("The viewers fill their monitors.")
        : tr("The viewers are on monitor %1.").arg(placement.viewers.value(0) + 1);
    const QString studies = placement.isTogether()
        ? tr("The list of studies stands beside them.")
        : tr("The list of studies has a window of its own on monitor %1.")
              .arg(placement.studies + 1);
    return viewers % u' ' % studies;
}

QString PlacementDialog::text(Placement::Problem problem)
{
    switch (problem) {
    case Placement::Problem::NoViewers:
        return tr("Choose a monitor for the viewers.");
    case Placement::Problem::NoStudies:
        return tr("Choose a monitor for the list of studies.");
    case Placement::Problem::Apart:
        return tr("Monitors with viewers must stand side by side. Check the one between them too.");
    case Placement::Problem::None:
        break;
    }
    return {};
}
