#include "client/desktop/Desktop.h"

#include "client/app/NotificationWatch.h"
#include "client/desktop/PlacementRecords.h"
#include "client/desktop/ViewerPage.h"
#include "framework/monitors/ExMonitorManager.h"

#include <QCoreApplication>
#include <QToolBar>

namespace {

using Record = ExMonitorWidget::Configuration;

constexpr const char *viewersName = "viewers";
constexpr const char *studiesName = "studies";
/// Of a window that has no place of its own yet, of its monitor.
constexpr int usualPercent = 88;
constexpr int writeMilliseconds = 500;

ExMonitorManager &manager()
{
    return ExMonitorManager::instance();
}

/// What the registry makes contents from.
struct Contents
{
    ExMonitorWidget::Content *viewers = nullptr;
    ExMonitorWidget::Content *studies = nullptr;
};
Contents theContents;

void registerContents(const Contents &contents)
{
    theContents = contents;
    ExMonitorManager::registerContent(viewersName, [] { return theContents.viewers; });
    ExMonitorManager::registerContent(studiesName, [] { return theContents.studies; });
}

/// The record for other monitors: the window stands on the first of them.
Record movedTo(Record record, const QList<int> &monitors)
{
    const bool wasSpread = record.monitors.size() > 1;
    record.fullScreen = monitors.size() > 1 || (record.fullScreen && !wasSpread);
    record.monitors = monitors;
    const QRect monitor = manager().monitorRect(static_cast<unsigned int>(monitors.first()));
    if (!monitor.contains(record.normalGeometry.center()) || !record.normalGeometry.isValid()) {
        record.normalGeometry = manager().defaultGeometry(monitors.first(), usualPercent);
        record.previousGeometry = record.normalGeometry;
    }
    return record;
}

} // namespace

Desktop::Desktop()
    : m_region(new ExEditorRegion(Qt::Vertical, 2))
    , m_studies(*m_region, m_viewers)
    , m_watch(new NotificationWatch({ExNotification::MONITOR_CONFIGURATION_CHANGED},
          [this](const ExNotification & /*notification*/) { monitorsChanged(); }))
{
    m_region->setObjectName(QStringLiteral("OwnWindow"));
    m_region->setWindowTitle(tr("Window of the studies"));
    m_region->setSubRegionTitle(0, tr("Upper part"));
    m_region->setSubRegionTitle(1, tr("Lower part"));
    registerContents({&m_viewers, &m_studies});
    connect(&m_viewers, &ViewersContent::areasChanged, this, &Desktop::areasChanged);
    m_write.setSingleShot(true);
    m_write.setInterval(writeMilliseconds);
    connect(&m_write, &QTimer::timeout, this, &Desktop::writeRecords);
}

Desktop::~Desktop()
{
    writeRecords();
    saveToolBarStates();
    m_watch.reset();
    m_viewers.disconnect(this);
    manager().removeContent(&m_studies);
    manager().removeContent(&m_viewers);
    qDeleteAll(manager().monitorWidgets());
    delete m_region;
    registerContents({});
}

void Desktop::arrange()
{
    readRecords();
    manager().applyConfigurations();
    manager().saveOrRestoreToolBarStates(false);
    adopt();
}

void Desktop::show()
{
    manager().setAllWidgetsVisible(true);
    if (m_size.isValid()) {
        viewersWindow()->resize(m_size);
    }
    Q_EMIT shown();
    viewersWindow()->activateWindow();
}

void Desktop::setToolBars(const QList<ExMonitorWidget::ToolBar> &toolBars)
{
    manager().setToolBars(&m_viewers, toolBars);
    for (const ExMonitorWidget::ToolBar &entry : toolBars) {
        if (entry.toolBar() != nullptr) {
            m_toolBarLines.addToolBar(*entry.toolBar());
        }
    }
}

void Desktop::startWithSize(const QSize &size)
{
    m_size = size;
    setRemembering(false);
    Record record = manager().configuration(&m_viewers);
    record.fullScreen = false;
    manager().setConfiguration(&m_viewers, record);
}

void Desktop::readRecords()
{
    const int count = manager().numMonitors();
    m_mostMonitors = count;
    Record viewers = PlacementRecords::read(QLatin1String(viewersName), count);
    Record studies = PlacementRecords::read(QLatin1String(studiesName), count);
    Placement placed{viewers.monitors, studies.monitors.value(0, -1)};
    if (placed.problem(manager().monitors()) != Placement::Problem::None) {
        placed = Placement::standard(manager().primaryMonitor());
    }
    if (viewers.monitors != placed.viewers || !viewers.normalGeometry.isValid()) {
        viewers = movedTo(viewers, placed.viewers);
    }
    if (studies.monitors != QList<int>{placed.studies}) {
        studies = movedTo(studies, {placed.studies});
    }
    manager().setConfiguration(ExMonitorManager::getContent(viewersName), viewers);
    manager().setConfiguration(ExMonitorManager::getContent(studiesName), studies);
}

void Desktop::writeRecords()
{
    if (!m_isRemembering || viewersWindow() == nullptr) {
        return;
    }
    const int count = manager().numMonitors();
    PlacementRecords::write(QLatin1String(viewersName), count, manager().configuration(&m_viewers));
    PlacementRecords::write(QLatin1String(studiesName), count, manager().configuration(&m_studies));
}

void Desktop::saveToolBarStates()
{
    if (!m_isRemembering) {
        return;
    }
    // Those that were hidden all together could not be brought back at the next start.
    for (ExMonitorWidget *const window : manager().monitorWidgets()) {
        if (manager().areToolBarsHidden(window)) {
            manager().toggleToolBars(window);
        }
    }
    m_toolBarLines.undo();
    manager().saveOrRestoreToolBarStates(true);
}

Placement Desktop::placement()
{
    return {manager().occupiedMonitors(&m_viewers),
        manager().occupiedMonitors(&m_studies).value(0, -1)};
}

void Desktop::place(const Placement &placement)
{
    const Placement before = this->placement();
    if (placement == before) {
        return;
    }
    if (placement.viewers != before.viewers) {
        manager().setConfiguration(
            &m_viewers, movedTo(manager().configuration(&m_viewers), placement.viewers));
    }
    Record studies = manager().configuration(&m_studies);
    if (before.isTogether()) {
        studies.fullScreen = false; // That was the viewers' window.
    }
    manager().setConfiguration(&m_studies, movedTo(studies, {placement.studies}));
    manager().applyConfigurations();
    adopt();
}

ExMonitorWidget *Desktop::viewersWindow()
{
    return manager().monitorWidget(&m_viewers);
}

QList<ExMonitorWidget *> Desktop::windows()
{
    QList<ExMonitorWidget *> windows{viewersWindow()};
    for (ExMonitorWidget *const window : manager().monitorWidgets()) {
        if (!windows.contains(window) && !manager().contents(window).isEmpty()) {
            windows.append(window);
        }
    }
    windows.removeAll(nullptr);
    return windows;
}

void Desktop::setTitle(const QString &title)
{
    m_title = title;
    for (ExMonitorWidget *const window : windows()) {
        const bool hasViewers = window == viewersWindow();
        window->setWindowTitle(hasViewers ? title : tr("%1 – Movara").arg(m_studies.longName()));
    }
}

ViewerPage *Desktop::studiesPage()
{
    if (!m_studies.isWithViewers()) {
        return nullptr;
    }
    ViewerPage *const page = m_viewers.pageOn(manager().occupiedMonitors(&m_studies).value(0, -1));
    return page == nullptr ? pages().value(0) : page;
}

void Desktop::adopt()
{
    m_known.removeAll(nullptr); // Windows that are gone.
    for (ExMonitorWidget *const window : windows()) {
        if (!m_known.contains(window)) {
            m_known.append(window);
            adoptWindow(*window);
        }
    }
    setTitle(m_title);
    m_write.start();
    Q_EMIT arranged();
}

void Desktop::adoptWindow(ExMonitorWidget &window)
{
    connect(&window, &ExMonitorWidget::widgetMoved, &m_write, qOverload<>(&QTimer::start));
    connect(&window, &ExMonitorWidget::widgetResized, &m_write, qOverload<>(&QTimer::start));
    m_toolBarLines.addWindow(window);
    Q_EMIT windowAdded(&window);
}

void Desktop::monitorsChanged()
{
    const bool isNewDesk = manager().numMonitors() > m_mostMonitors;
    if (isNewDesk) {
        readRecords();
        manager().applyConfigurations();
    }
    adopt();
}
