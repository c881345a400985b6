#pragma once

#include "client/measurements/Measurement.h"
#include "client/measurements/RegionStatistics.h"

#include <QObject>

#include <deque>
#include <map>
#include <tuple>

class LoadedSeries;

/// All measurements of the workstation, and which of them is picked. One, owned by the workstation.
/// GUI thread only.
class MeasurementList final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(MeasurementList)

public:
    MeasurementList();
    ~MeasurementList() override;

    /// Null when there is none.
    static MeasurementList *instancePointer();

    /// In the order in which they were made.
    [[nodiscard]] const std::vector<Measurement> &all() const { return m_all; }
    /// Null for an unknown id.
    [[nodiscard]] const Measurement *find(int id) const;
    /// The one that is being drawn, or null.
    [[nodiscard]] const Measurement *draft() const;
    /// Adds a measurement under a new id and a name of its own, e.g. "Distance 3". @return the id.
    int add(Measurement measurement);
    /// Replaces the one with this id; ignored when there is none, or nothing changes.
    void update(const Measurement &measurement);
    /// For good. Ignored for an unknown id.
    void remove(int id);
    /// Puts these, with their ids and names, in the place of all that there are; nothing can be
    /// undone any more. Later ones are numbered on.
    void replaceAll(const std::vector<Measurement> &measurements);

    /// Removes what the user deletes at once; undo() brings it back. Unknown ids are ignored.
    void removeByUser(const std::vector<int> &ids);
    /// Replaces one that the user has changed; undo() makes it again what it was before.
    void updateByUser(const Measurement &measurement, const Measurement &before);
    /// Not while something is being drawn or dragged.
    [[nodiscard]] bool canUndo() const { return !m_history.empty() && draft() == nullptr; }
    /// Takes back the last deletion or change by the user that has not been taken back yet; the
    /// oldest ones are forgotten.
    void undo();

    /// The id of the picked one, 0 for none.
    [[nodiscard]] int picked() const { return m_picked; }
    /// An unknown id picks none.
    void setPicked(int id);

    /// What a region encloses in a phase of a series; kept until the region changes or all are
    /// forgotten. Nothing while the series is still being read, and where RegionStatistics has
    /// none.
    [[nodiscard]] std::optional<RegionStatistics> statistics(
        const Measurement &region, const LoadedSeries &series, int phase) const;
    /// Images were closed: read again they may be others, such as all of those that were read in
    /// part.
    void forgetStatistics() { m_statistics.clear(); }

Q_SIGNALS:
    /// Measurements were added, changed or removed, or another one is picked, or none.
    void changed();

private:
    using StatisticsKey = std::tuple<int, std::string, int>;

    /// What the user has deleted or changed at once, as it was before.
    using Step = std::vector<Measurement>;

    void remember(Step step);
    void restore(const Measurement &before);
    void forgetStatisticsOf(int id);

    std::vector<Measurement> m_all;
    std::map<Measurement::Kind, int> m_numbers;
    int m_lastId = 0;
    int m_picked = 0;
    std::deque<Step> m_history;
    mutable std::map<StatisticsKey, std::optional<RegionStatistics>> m_statistics;
};
