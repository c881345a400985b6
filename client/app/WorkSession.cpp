#include "client/app/WorkSession.h"

#include "client/app/FocusOrder.h"
#include "client/app/MainMenus.h"
#include "client/app/NotificationWatch.h"
#include "client/app/ViewerMenu.h"
#include "client/application/WorkstationApplication.h"
#include "client/desktop/Desktop.h"
#include "client/editors/PanelEditors.h"
#include "client/editors/PanelPlaces.h"
#include "client/layout/ViewerArea.h"
#include "client/loading/SampleMaker.h"
#include "client/panels/ProblemsButton.h"
#include "client/panels/ProgressLine.h"
#include "client/panels/StatusLine.h"
#include "client/panels/StatusText.h"
#include "client/panels/StudyPanel.h"
#include "client/panels/StudyTree.h"
#include "client/session/WorkstationSessions.h"
#include "client/toolbars/ToolBars.h"
#include "client/viewers/ViewerRenderWidget.h"
#include "client/viewers/WorkstationViewer.h"
#include "framework/application/BuildVersion.h"
#include "framework/monitors/ExMonitorManager.h"
#include "framework/tools/ExToolLogger.h"

#include <QFileDialog>
#include <QMainWindow>
#include <QMenu>
#include <QMessageBox>

#include <algorithm>

WorkSession::WorkSession()
    : m_status(new StatusLine)
    , m_desktop(std::make_unique<Desktop>())
    , m_workstation(
          std::make_unique<Workstation>([](WorkstationViewer &viewer, const QPoint &position) {
              makeViewerMenu(viewer)->popup(position);
          }))
    , m_toolBars(std::make_unique<ToolBars>())
{
    WorkstationApplication::instance().setWorkSession(this);
    WorkstationApplication::instance().setProgressInterface(&m_status->progress());
    m_editors = std::make_unique<PanelEditors>(*this);
    m_studies = PanelEditors::studies();
    m_focusOrder = std::make_unique<FocusOrder>(
        m_studies == nullptr ? nullptr : &m_studies->tree(), *m_workstation);
    connectSession();
    connectDesktop();
    m_panels = std::make_unique<PanelPlaces>(*m_desktop);
    connect(m_panels.get(), &PanelPlaces::changed, this, [this] {
        m_focusOrder->arrange();
        WorkstationApplication::instance().refreshTools();
    });
    m_desktop->setToolBars(m_toolBars->entries());
    m_desktop->arrange();
    m_desktop->viewersWindow()->mainWindow()->setStatusBar(m_status);
    clearFound();
    m_activeWatch = new NotificationWatch(
        {ExNotification::ACTIVE_VIEWER_CHANGED, ExNotification::VIEWER_VOLUME_CHANGED},
        [this](const ExNotification &) { updateTitle(); });
    updateTitle();
}

WorkSession::~WorkSession()
{
    WorkstationApplication &application = WorkstationApplication::instance();
    application.setProgressInterface(nullptr);
    application.setWorkSession(nullptr);
    m_activeWatch.reset();
    m_focusOrder.reset();
    m_panels.reset();
    m_editors.reset(); // Panels look at viewers and studies.
    m_workstation.reset(); // Its viewers' widgets are children of the areas.
    m_desktop.reset();
}

void WorkSession::connectDesktop()
{
    connect(m_desktop.get(), &Desktop::areasChanged, this, &WorkSession::setAreas);
    connect(m_desktop.get(), &Desktop::windowAdded, this,
        [this](ExMonitorWidget *window) { buildWindow(*window); });
}

void WorkSession::buildWindow(ExMonitorWidget &window)
{
    MainMenus::build(*window.menuBar());
    m_focusOrder->addWindow(window);
}

void WorkSession::setAreas(const QList<ViewerArea *> &areas)
{
    m_workstation->setAreas(areas);
    for (const ViewerArea *area : areas) {
        connect(area, &ViewerArea::seriesDropped, this, &WorkSession::openDropped,
            Qt::UniqueConnection);
        connect(area, &ViewerArea::pathsDropped, this, &WorkSession::open, Qt::UniqueConnection);
    }
}

void WorkSession::openDropped(const QString &uid, QWidget *target)
{
    if (auto *const widget = qobject_cast<ViewerRenderWidget *>(target)) {
        m_workstation->openIn(
            static_cast<WorkstationViewer &>(*widget->viewer()), uid.toStdString());
    }
}

void WorkSession::connectSession()
{
    StudySession &session = m_workstation->session();
    ProgressLine &progress = m_status->progress();
    connect(&session, &StudySession::scanned, this, &WorkSession::showFound);
    connect(&session, &StudySession::nothingFound, this, &WorkSession::tellNothingFound);
    connect(&session, &StudySession::closed, this, &WorkSession::clearFound);
    connect(&session, &StudySession::busyChanged, this, &WorkSession::showBusy);
    connect(&session, &StudySession::progressChanged, &progress, &ProgressLine::setProgress);
    connect(&progress, &ProgressLine::cancelRequested, this, &WorkSession::cancel);
    connect(&m_workstation->gate(), &LoadGate::patientClosed, this,
        [this](const QString &name) { showMessage(tr("Closed: %1").arg(name)); });
    connect(&m_workstation->gate(), &LoadGate::patientLockChanged, this,
        [this](const QStringList &names) {
            m_status->setLocked(names);
            if (names.isEmpty()) {
                showMessage(tr("The patient is no longer locked."));
            }
        });
    connect(&m_workstation->gate(), &LoadGate::changed, this,
        [] { WorkstationApplication::instance().refreshTools(); });
    connect(&m_workstation->measurements(), &MeasurementList::changed, this,
        [] { WorkstationApplication::instance().refreshTools(); });
}

void WorkSession::quit()
{
    // As the user closes it: the window asks, and records why.
    m_desktop->viewersWindow()->closeWidget();
}

void WorkSession::showMessage(const QString &text)
{
    constexpr int shownFor = 10000;
    m_status->showMessage(text, shownFor);
}

void WorkSession::open(const QStringList &paths)
{
    giveUpSample();
    m_openProblem.clear();
    m_workstation->session().open(paths);
    setEmptyText(tr("Looking for DICOM files…"));
    m_status->text().showText(tr("Opening %1").arg(paths.join(QStringLiteral(", "))));
}

void WorkSession::openSelection(const QStringList &uids)
{
    if (uids.size() == 1) {
        m_workstation->openInAll(uids.first().toStdString());
        return;
    }
    const std::vector<WorkstationViewer *> viewers = m_workstation->viewers();
    const auto numShown = std::min(viewers.size(), static_cast<std::size_t>(uids.size()));
    std::vector<Workstation::Opening> openings;
    for (std::size_t i = 0; i < numShown; ++i) {
        openings.push_back({viewers[i], uids[static_cast<qsizetype>(i)].toStdString()});
    }
    m_workstation->open(openings);
    if (static_cast<qsizetype>(numShown) < uids.size()) {
        showMessage(
            tr("There are viewers for %1 of the %2 chosen series.").arg(numShown).arg(uids.size()));
    }
}

void WorkSession::closeSeries(const QStringList &uids)
{
    std::vector<std::string> closed;
    for (const QString &uid : uids) {
        closed.push_back(uid.toStdString());
    }
    m_workstation->close(closed);
}

void WorkSession::setEmptyText(const QString &text)
{
    if (m_studies != nullptr) {
        m_studies->setEmptyText(text);
    }
}

void WorkSession::openSample()
{
    if (m_sample != nullptr) {
        return;
    }
    m_sample = new SampleMaker(this);
    connect(m_sample, &SampleMaker::progressChanged, this, [this](int percent) {
        constexpr int whole = 100;
        m_status->progress().setProgress(percent, whole, tr("Making the sample study"));
    });
    connect(m_sample, &SampleMaker::finished, this, &WorkSession::sampleFinished);
    setEmptyText(tr("Making the sample study…"));
    showBusy(true);
    m_sample->start();
}

void WorkSession::giveUpSample()
{
    if (m_sample == nullptr) {
        return;
    }
    m_sample->disconnect(this);
    connect(m_sample, &SampleMaker::finished, m_sample, &QObject::deleteLater);
    m_sample->cancel();
    m_sample = nullptr;
    setEmptyText({});
    showBusy(m_workstation->session().isBusy());
}

void WorkSession::sampleFinished(const QString &problem)
{
    m_sample->deleteLater();
    m_sample = nullptr;
    showBusy(false);
    if (problem.isEmpty()) {
        open({SampleMaker::folder()});
    } else {
        setProblem(problem);
        Q_EMIT opened();
    }
}

void WorkSession::cancel()
{
    if (m_sample != nullptr) {
        m_sample->cancel();
    }
    m_workstation->session().cancel();
}

void WorkSession::setProblem(const QString &problem)
{
    m_openProblem = problem;
    m_status->text().showWarning(problem);
    setEmptyText(problem);
}

bool WorkSession::setLayoutByName(const QString &name)
{
    const ViewerLayout *const layout = LayoutTable::find(name);
    if (layout != nullptr) {
        m_workstation->layouts().apply(*layout);
    }
    return layout != nullptr;
}

void WorkSession::askForFolder()
{
    const QString folder = QFileDialog::getExistingDirectory(
        WorkstationApplication::instance().dialogParent(), tr("Open a DICOM folder"));
    if (!folder.isEmpty()) {
        open({folder});
    }
}

void WorkSession::showAbout()
{
    QMessageBox::about(WorkstationApplication::instance().dialogParent(), tr("About Movara"),
        tr("<b>Movara</b> reference workstation<br>Version %1<br><br>"
           "Not a medical device: not for diagnosis.")
            .arg(QString::fromUtf8(movaraBuildVersionTag())));
}

QString WorkSession::emptyText(const DicomScanner::Result &result)
{
    if (result.wasCancelled) {
        return tr("Opening was cancelled.");
    }
    if (!result.failure.empty()) {
        return tr("Looking for images has failed: %1").arg(QString::fromStdString(result.failure));
    }
    if (!result.problems.isEmpty() && result.problems.size() >= result.numFiles) {
        const DicomScanner::Problem &first = result.problems.first();
        return tr("Nothing can be read from %1: %2 Open another folder with File > Open folder.")
            .arg(QString::fromStdString(first.file.string()), QString::fromStdString(first.reason));
    }
    if (result.numFiles == 0) {
        return tr("There are no files here. Open another folder with File > Open folder.");
    }
    const QString text
        = tr("There are no images here (files looked at: %1). Open another folder with "
             "File > "
             "Open folder.")
              .arg(result.numFiles);
    return result.problems.size() != 1
        ? text
        : text % u' ' % QString::fromStdString(result.problems.first().reason);
}

void WorkSession::showFound()
{
    ExToolLogger::clearReportedTools();
    const DicomScanner::Result &found = m_workstation->session().found();
    m_status->problems().setProblems(found.problems, found.wasCancelled);
    const auto largest = m_workstation->session().largestSeries();
    if (largest) {
        const QString looked = tr("Files looked at: %1").arg(found.numFiles);
        if (found.wasCancelled) {
            m_status->text().showWarning(ProblemsButton::incompleteText() % u' ' % looked);
        } else {
            m_status->text().showText(looked);
        }
        if (!WorkstationSessions::isRestoringNow()) {
            m_workstation->openInAll(largest->uid()); // A session says itself what is shown.
        }
    } else {
        setProblem(emptyText(found));
    }
    Q_EMIT opened();
}

void WorkSession::tellNothingFound(const DicomScanner::Result &result)
{
    setProblem(emptyText(result) % u' ' % tr("What was open stays open."));
    Q_EMIT opened();
}

void WorkSession::showBusy(bool busy)
{
    m_status->progress().setVisible(busy);
    if (busy) {
        m_status->progress().setProgress(0, 0, tr("Opening"));
    }
}

bool WorkSession::isSettled() const
{
    return m_sample == nullptr && (m_studies == nullptr || m_studies->isSettled())
        && m_workstation->isSettled();
}

void WorkSession::clearFound()
{
    m_openProblem.clear();
    setEmptyText({});
    m_status->problems().setProblems({}, false);
    m_status->text().showText({});
}

void WorkSession::updateTitle()
{
    const WorkstationViewer *const viewer = m_workstation->activeViewer();
    const bool hasSeries = viewer != nullptr && viewer->series() != nullptr;
    m_desktop->setTitle(
        hasSeries ? tr("%1 – Movara").arg(viewer->series()->info().patientName) : tr("Movara"));
}
