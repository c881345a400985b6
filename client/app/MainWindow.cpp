#include "client/app/MainWindow.h"

#include "client/app/FocusOrder.h"
#include "client/app/MainMenus.h"
#include "client/app/NotificationWatch.h"
#include "client/app/ViewerMenu.h"
#include "client/application/WorkstationApplication.h"
#include "client/layout/ViewerArea.h"
#include "client/loading/SampleMaker.h"
#include "client/loading/ThumbnailMaker.h"
#include "client/panels/ProblemsButton.h"
#include "client/panels/ProgressLine.h"
#include "client/panels/StatusText.h"
#include "client/panels/StudyTree.h"
#include "client/toolbars/ToolBars.h"
#include "client/viewers/ViewerRenderWidget.h"
#include "client/viewers/WorkstationViewer.h"
#include "framework/application/BuildVersion.h"
#include "platform/backend/KxBackendPeer.h"

#include <QCloseEvent>
#include <QFileDialog>
#include <QMenuBar>
#include <QMessageBox>
#include <QSplitter>
#include <QStatusBar>

namespace {

constexpr int treeWidth = 272;
constexpr QSize firstSize(1400, 900);

} // namespace

MainWindow::MainWindow()
    : m_area(new ViewerArea)
    , m_tree(new StudyTree)
    , m_progress(new ProgressLine)
    , m_problems(new ProblemsButton)
    , m_status(new StatusText)
    , m_thumbnails(new ThumbnailMaker(this))
    , m_workstation(std::make_unique<Workstation>(
          *m_area, [](WorkstationViewer &viewer, const QPoint &position) {
              makeViewerMenu(viewer)->popup(position);
          }))
{
    setObjectName(QStringLiteral("MainWindow"));
    setWindowTitle(tr("Movara"));
    resize(firstSize);
    buildPanels();
    WorkstationApplication::instance().setMainWindow(this);
    WorkstationApplication::instance().setProgressInterface(m_progress);
    MainMenus::build(*menuBar());
    m_toolBars = std::make_unique<ToolBars>(*this);
    m_focusOrder = std::make_unique<FocusOrder>(*this, *m_tree, *m_workstation);
    connectSession();
    clearFound();
    m_activeWatch = new NotificationWatch(
        {ExNotification::ACTIVE_VIEWER_CHANGED, ExNotification::VIEWER_VOLUME_CHANGED},
        [this](const ExNotification &) { markShownSeries(); });
    setLayoutByName(QStringLiteral("2x2"));
}

MainWindow::~MainWindow()
{
    WorkstationApplication &application = WorkstationApplication::instance();
    application.setProgressInterface(nullptr);
    application.setMainWindow(nullptr);
    m_activeWatch.reset();
    m_focusOrder.reset();
    m_workstation.reset(); // Its viewers' widgets are children of the area.
}

void MainWindow::buildPanels()
{
    auto *const splitter = new QSplitter;
    splitter->addWidget(m_tree);
    splitter->addWidget(m_area);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({treeWidth, firstSize.width() - treeWidth});
    splitter->setCollapsible(1, false);
    setCentralWidget(splitter);
    statusBar()->addWidget(m_status, 1);
    statusBar()->addPermanentWidget(m_problems);
    statusBar()->addPermanentWidget(m_progress);
}

void MainWindow::connectSession()
{
    StudySession &session = m_workstation->session();
    connect(&session, &StudySession::scanned, this, &MainWindow::showFound);
    connect(&session, &StudySession::nothingFound, this, &MainWindow::tellNothingFound);
    connect(&session, &StudySession::closed, this, &MainWindow::clearFound);
    connect(&session, &StudySession::busyChanged, this, &MainWindow::showBusy);
    connect(&session, &StudySession::progressChanged, m_progress, &ProgressLine::setProgress);
    connect(m_progress, &ProgressLine::cancelRequested, this, &MainWindow::cancel);
    connect(m_tree, &StudyTree::openRequested, this,
        [this](const QString &uid) { m_workstation->openInAll(uid.toStdString()); });
    connect(m_area, &ViewerArea::seriesDropped, this, [this](const QString &uid, QWidget *target) {
        if (auto *const widget = qobject_cast<ViewerRenderWidget *>(target)) {
            m_workstation->openIn(
                static_cast<WorkstationViewer &>(*widget->viewer()), uid.toStdString());
        }
    });
    connect(&m_workstation->gate(), &LoadGate::patientClosed, this, [this](const QString &name) {
        constexpr int shownMilliseconds = 10000;
        statusBar()->showMessage(tr("Closed: %1").arg(name), shownMilliseconds);
    });
    connect(&m_workstation->measurements(), &MeasurementList::changed, this,
        [] { WorkstationApplication::instance().refreshTools(); });
    connect(m_thumbnails, &ThumbnailMaker::made, m_tree, &StudyTree::setThumbnail);
    connect(m_area, &ViewerArea::pathsDropped, this, &MainWindow::open);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    WorkstationApplication &application = WorkstationApplication::instance();
    KxBackendPeer::instance()->setReasonToQuit("userlogout");
    application.quitApplication();
    event->setAccepted(application.isQuitting());
}

void MainWindow::open(const QStringList &paths)
{
    m_openProblem.clear();
    m_workstation->session().open(paths);
    m_tree->setEmptyText(tr("Looking for DICOM files…"));
    m_status->showText(tr("Opening %1").arg(paths.join(QStringLiteral(", "))));
}

void MainWindow::openSample()
{
    m_sample = new SampleMaker(this);
    connect(m_sample, &SampleMaker::progressChanged, this, [this](int percent) {
        constexpr int whole = 100;
        m_progress->setProgress(percent, whole, tr("Making the sample study"));
    });
    connect(m_sample, &SampleMaker::finished, this, &MainWindow::sampleFinished);
    m_tree->setEmptyText(tr("Making the sample study…"));
    showBusy(true);
    m_sample->start();
}

void MainWindow::sampleFinished(const QString &problem)
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

void MainWindow::cancel()
{
    if (m_sample != nullptr) {
        m_sample->cancel();
    }
    m_workstation->session().cancel();
}

void MainWindow::setProblem(const QString &problem)
{
    m_openProblem = problem;
    m_status->showWarning(problem);
    m_tree->setEmptyText(problem);
}

bool MainWindow::setLayoutByName(const QString &name)
{
    const ViewerLayout *const layout = LayoutTable::find(name);
    if (layout != nullptr) {
        m_workstation->layouts().apply(*layout);
    }
    return layout != nullptr;
}

void MainWindow::askForFolder()
{
    const QString folder = QFileDialog::getExistingDirectory(this, tr("Open a DICOM folder"));
    if (!folder.isEmpty()) {
        open({folder});
    }
}

void MainWindow::showAbout()
{
    QMessageBox::about(this, tr("About Movara"),
        tr("<b>Movara</b> reference workstation<br>Version %1<br><br>"
           "Not a medical device: not for diagnosis.")
            .arg(QString::fromUtf8(movaraBuildVersionTag())));
}

QString MainWindow::emptyText(const DicomScanner::Result &result)
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

void MainWindow::showFound()
{
    const DicomScanner::Result &found = m_workstation->session().found();
    m_tree->setPatients(found.patients);
    m_problems->setProblems(found.problems, found.wasCancelled);
    const auto largest = m_workstation->session().largestSeries();
    m_wantsThumbnails = true;
    if (largest) {
        const QString looked = tr("Files looked at: %1").arg(found.numFiles);
        if (found.wasCancelled) {
            m_status->showWarning(ProblemsButton::incompleteText() % u' ' % looked);
        } else {
            m_status->showText(looked);
        }
        m_workstation->openInAll(largest->uid());
    } else {
        setProblem(emptyText(found));
    }
    Q_EMIT opened();
}

void MainWindow::tellNothingFound(const DicomScanner::Result &result)
{
    setProblem(emptyText(result) % u' ' % tr("What was open stays open."));
    Q_EMIT opened();
}

void MainWindow::showBusy(bool busy)
{
    m_progress->setVisible(busy);
    if (busy) {
        m_progress->setProgress(0, 0, tr("Opening"));
    } else {
        startThumbnails();
    }
}

void MainWindow::startThumbnails()
{
    // Only now, so that they do not hold up the images that the user waits for.
    if (m_wantsThumbnails) {
        m_wantsThumbnails = false;
        m_thumbnails->start(m_workstation->session().imageSeries());
    }
}

bool MainWindow::isSettled() const
{
    return m_sample == nullptr && !m_thumbnails->isRunning() && m_workstation->isSettled();
}

void MainWindow::clearFound()
{
    m_openProblem.clear();
    m_thumbnails->stop();
    m_wantsThumbnails = false;
    m_tree->setPatients({});
    m_tree->setEmptyText(
        tr("No studies are open.\n\nOpen a folder with File > Open folder, or drop one here."));
    m_problems->setProblems({}, false);
    m_status->showText({});
}

void MainWindow::markShownSeries()
{
    const WorkstationViewer *const viewer = m_workstation->activeViewer();
    const bool hasSeries = viewer != nullptr && viewer->series() != nullptr;
    m_tree->markShown(hasSeries ? QString::fromStdString(viewer->series()->uid()) : QString());
    setWindowTitle(
        hasSeries ? tr("%1 – Movara").arg(viewer->series()->info().patientName) : tr("Movara"));
}
