#include "client/app/ScrollBenchmark.h"

#include "client/app/BenchmarkVolume.h"
#include "client/app/ScrollMeasure.h"
#include "client/app/WorkSession.h"
#include "client/viewers/SliceViewer.h"
#include "client/viewers/ViewerRenderWidget.h"

#include <QCoreApplication>
#include <QTimer>

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>

namespace {

constexpr int warmUpSteps = 20;
constexpr int measuredSteps = 300;
constexpr double obliqueRadians = 0.35;

ViewerLayout fourViewers(PlaneKind plane)
{
    const auto slice = [plane](const McBox2f &box) {
        return ViewerLayout::Place{box, false, plane};
    };
    return {QStringLiteral("four"),
        {slice({0, 0, 0.5F, 0.5F}), slice({0.5F, 0, 1, 0.5F}), slice({0, 0.5F, 0.5F, 1}),
            slice({0.5F, 0.5F, 1, 1})}};
}

} // namespace

ScrollBenchmark::ScrollBenchmark(WorkSession &session, const QStringList &folders)
    : m_session(session)
{
    if (folders.isEmpty()) {
        m_series = makeBenchmarkSeries();
        QTimer::singleShot(0, this, &ScrollBenchmark::run);
    } else {
        connect(&session, &WorkSession::opened, this, &ScrollBenchmark::runOpened,
            Qt::QueuedConnection);
        session.open(folders);
    }
}

void ScrollBenchmark::runOpened()
{
    waitUntilSettled();
    const auto viewers = m_session.workstation().sliceViewers();
    m_series = viewers.empty() ? nullptr : viewers.front()->series();
    if (m_series && m_series->images() != nullptr && m_session.openProblem().isEmpty()) {
        run();
    } else {
        std::fprintf(stderr, "movara-workstation: There is nothing to scroll. %s\n",
            qUtf8Printable(m_session.openProblem()));
        QCoreApplication::exit(1);
    }
}

std::vector<ScrollBenchmark::Scenario> ScrollBenchmark::scenarios()
{
    return {
        {QStringLiteral("2x2, axial, coronal and sagittal follow"),
            *LayoutTable::find(QStringLiteral("2x2")), false},
        {QStringLiteral("four linked axial"), fourViewers(PlaneKind::Axial), false},
        {QStringLiteral("four linked sagittal"), fourViewers(PlaneKind::Sagittal), false},
        {QStringLiteral("four linked oblique"), fourViewers(PlaneKind::Axial), true},
        {QStringLiteral("1+3, large axial"), *LayoutTable::find(QStringLiteral("1+3")), false},
        {QStringLiteral("1x1"), *LayoutTable::find(QStringLiteral("1x1")), false},
    };
}

void ScrollBenchmark::run()
{
    const std::array<int, 3> &size = m_series->images()->volume(0)->dimensions();
    std::printf("Wheel step to finished paint of all slice viewers, %dx%dx%d voxels, %d steps, in "
                "ms\n",
        size[0], size[1], size[2], measuredSteps);
    ScrollMeasure::printHead();
    for (const Scenario &scenario : scenarios()) {
        runScenario(scenario);
    }
    QCoreApplication::exit(0);
}

void ScrollBenchmark::waitUntilSettled()
{
    while (!m_session.isSettled()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    }
}

void ScrollBenchmark::runScenario(const Scenario &scenario)
{
    Workstation &workstation = m_session.workstation();
    workstation.layouts().apply(scenario.layout);
    for (WorkstationViewer *viewer : workstation.viewers()) {
        viewer->setSeries(m_series);
    }
    for (SliceViewer *viewer : workstation.sliceViewers()) {
        viewer->fit();
        if (scenario.isOblique) {
            viewer->rotate(viewer->shownSlice().right(), obliqueRadians);
            viewer->rotate(viewer->shownSlice().down(), obliqueRadians);
        }
    }
    waitUntilSettled();
    SliceViewer &viewer = *workstation.sliceViewers().front();
    int planes = 1;
    std::vector<double> milliseconds;
    for (int i = -warmUpSteps; i < measuredSteps; ++i) {
        const int next = viewer.sliceIndex() + planes;
        planes = next < 0 || next >= viewer.stack().count() ? -planes : planes;
        const double taken = measureStep(viewer, planes);
        if (i >= 0) {
            milliseconds.push_back(taken);
        }
    }
    ScrollMeasure::printRow(scenario.name, milliseconds, viewer.widget()->pixelSize());
    waitUntilSettled();
}

double ScrollBenchmark::measureStep(SliceViewer &viewer, int planes)
{
    // Nothing that is left over from the step before belongs to this one.
    QCoreApplication::processEvents();
    const auto watched = m_session.workstation().sliceViewers();
    std::vector<bool> isPainted(watched.size());
    std::vector<QMetaObject::Connection> connections;
    for (std::size_t i = 0; i < watched.size(); ++i) {
        connections.push_back(connect(watched[i]->widget(), &ViewerRenderWidget::painted, this,
            [&isPainted, i] { isPainted[i] = true; }));
    }
    const double taken = ScrollMeasure::wheelToPaint(*viewer.widget(), -planes, [&isPainted] {
        return std::find(isPainted.begin(), isPainted.end(), false) == isPainted.end();
    });
    for (const QMetaObject::Connection &connection : connections) {
        disconnect(connection);
    }
    return taken;
}
