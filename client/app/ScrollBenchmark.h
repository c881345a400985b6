#pragma once

#include "client/data/LoadedSeries.h"
#include "client/layout/LayoutTable.h"
#include "platform/util/McHandle.h"

#include <QObject>
#include <QStringList>

#include <vector>

class WorkSession;
class SliceViewer;

/// Sends wheel events to a viewer of the workstation, one after the other, and measures each from
/// its sending until all slice viewers have been painted: those that follow with their new slice,
/// the others with their moved reference lines. Prints a table and ends the event loop; without
/// anything to scroll it says so and ends it with 1.
class ScrollBenchmark final : public QObject
{
    Q_OBJECT

public:
    /// @param folders what to open and scroll; empty for made-up voxels.
    ScrollBenchmark(WorkSession &session, const QStringList &folders);

private:
    struct Scenario
    {
        QString name;
        ViewerLayout layout;
        bool isOblique;
    };

    static std::vector<Scenario> scenarios();
    void runOpened();
    void run();
    void runScenario(const Scenario &scenario);
    void waitUntilSettled();
    [[nodiscard]] double measureStep(SliceViewer &viewer, int planes);

    WorkSession &m_session;
    McHandle<LoadedSeries> m_series;
};
