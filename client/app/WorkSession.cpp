#include "client/app/WorkSession.h"

#include "client/app/FocusOrder.h"
#include "client/app/MainMenus.h"
#include "client/app/NotificationWatch.h"
#include "client/app/ViewerMenu.h"
#include "client/application/WorkstationApplication.h"
#include "client/desktop/Desktop.h"
#include "client/layout/ViewerArea.h"
#include "client/loading/SampleMaker.h"
#include "client/loading/ThumbnailMaker.h"
#include "client/panels/ProblemsButton.h"
#include "client/panels/ProgressLine.h"
#include "client/panels/StatusLine.h"
#include "client/panels/StatusText.h"
#include "client/panels/StudyTree.h"
#include "client/session/WorkstationSessions.h"
#include "client/toolbars/ToolBars.h"
#include "client/viewers/ViewerRenderWidget.h"
#include "client/viewers/WorkstationViewer.h"
#include "framework/application/BuildVersion.h"
#include "framework/monitors/ExMonitorManager.h"

#include <QFileDialog>
#include <QMainWindow>
#include <QMenu>
#include <QMessageBox>

WorkSession::WorkSession()
    : m_tree(new StudyTree)
    , m_status(new StatusLine)
    , m_thumbnails(new ThumbnailMaker(this))
    , m_desktop(std::make_unique<Desktop>(m_tree))
    , m_workstation(
          std::make_unique<Workstation>([](WorkstationViewer &viewer, const QPoint &position) {
              makeViewerMenu(viewer)->popup(position);
          }))
    , m_toolBars(std::make_unique<ToolBars>())
    , m_focusOrder(std::make_unique<FocusOrder>(*m_tree, *m_workstation))
{
    WorkstationApplication::instance().setWorkSession(this);
    WorkstationApplication::instance().setProgressInterface(&m_status->progress());
    connectSession();
    connectDesktop();
    m_desktop->setToolBars(m_toolBars->entries());
    m_desktop->arrange();
    m_desktop->viewersWindow()->mainWindow()->setStatusBar(m_status);
    clearFound();
    m_activeWatch = new NotificationWatch(
        {ExNotification::ACTIVE_VIEWER_CHANGED, ExNotification::VIEWER_VOLUME_CHANGED},
        [this](const ExNotification &) { markShownSeries(); });
    markShownSeries();
}

WorkSession::~WorkSession()
{
    WorkstationApplication &application = WorkstationApplication::instance();
    application.setProgressInterface(nullptr);
    application.setWorkSession(nullptr);
    m_activeWatch.reset();
    m_focusOrder.reset();
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
    connect(m_tree, &StudyTree::openRequested, this,
        [this](const QString &uid) { m_workstation->openInAll(uid.toStdString()); });
    connect(&m_workstation->gate(), &LoadGate::patientClosed, this,
        [this](const QString &name) { showMessage(tr("Closed: %1").arg(name)); });
    connect(&m_workstation->measurements(), &MeasurementList::changed, this,
        [] { WorkstationApplication::instance().refreshTools(); });
    connect(m_thumbnails, &ThumbnailMaker::made, m_tree, &StudyTree::setThumbnail);
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
    m_openProblem.clear();
    m_workstation->session().open(paths);
    m_tree->setEmptyText(tr("Looking for DICOM files…"));
    m_status->text().showText(tr("Opening %1").arg(paths.join(QStringLiteral(", "))));
}

void WorkSession::openSample()
{
    m_sample = new SampleMaker(this);
    connect(m_sample, &SampleMaker::progressChanged, this, [this](int percent) {
        constexpr int whole = 100;
        m_status->progress().setProgress(percent, whole, tr("Making the sample study"));
    });
    connect(m_sample, &SampleMaker::finished, this, &WorkSession::sampleFinished);
    m_tree->setEmptyText(tr("Making the sample study…"));
    showBusy(true);
    m_sample->start();
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
    m_tree->setEmptyText(problem);
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
    if (result.numFiles == 0) {
        return tr("There are no files here. Open another folder with File > Open folder.");
    }
    return tr("There are no images here (files looked at: %1). Open another folder with "
              "File > "
              "Open folder.")
        .arg(result.numFiles);
}

void WorkSession::showFound()
{
    const DicomScanner::Result &found = m_workstation->session().found();
    m_tree->setPatients(found.patients);
    m_status->problems().setProblems(found.problems, found.wasCancelled);
    const auto largest = m_workstation->session().largestSeries();
    m_wantsThumbnails = true;
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
    } else {
        startThumbnails();
    }
}

void WorkSession::startThumbnails()
{
    // Only now, so that they do not hold up the images that the user waits for.
    if (m_wantsThumbnails) {
        m_wantsThumbnails = false;
        m_thumbnails->start(m_workstation->session().imageSeries());
    }
}

bool WorkSession::isSettled() const
{
    return m_sample == nullptr && !m_thumbnails->isRunning() && m_workstation->isSettled();
}

void WorkSession::clearFound()
{
    m_openProblem.clear();
    m_thumbnails->stop();
    m_wantsThumbnails = false;
    m_tree->setPatients({});
    m_tree->setEmptyText(
        tr("No studies are open.\n\nOpen a folder with File > Open folder, or drop one here."));
    m_status->problems().setProblems({}, false);
    m_status->text().showText({});
}

void WorkSession::markShownSeries()
{
    const WorkstationViewer *const viewer = m_workstation->activeViewer();
    const bool hasSeries = viewer != nullptr && viewer->series() != nullptr;
    m_tree->markShown(hasSeries ? QString::fromStdString(viewer->series()->uid()) : QString());
    m_desktop->setTitle(
        hasSeries ? tr("%1 – Movara").arg(viewer->series()->info().patientName) : tr("Movara"));
}
