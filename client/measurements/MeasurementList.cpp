#include "client/measurements/MeasurementList.h"

#include "client/data/LoadedSeries.h"
#include "client/measurements/MeasurementTexts.h"

#include <algorithm>
#include <utility>

namespace {

MeasurementList *theList = nullptr;

/// So many deletions and changes can be undone.
constexpr std::size_t keptSteps = 50;

auto withId(int id)
{
    return [id](const Measurement &each) { return each.id == id; };
}

} // namespace

MeasurementList::MeasurementList()
{
    theList = this;
}

MeasurementList::~MeasurementList()
{
    theList = nullptr;
}

MeasurementList *MeasurementList::instancePointer()
{
    return theList;
}

const Measurement *MeasurementList::find(int id) const
{
    const auto found = std::find_if(m_all.begin(), m_all.end(), withId(id));
    return found == m_all.end() ? nullptr : &*found;
}

const Measurement *MeasurementList::draft() const
{
    const auto found = std::find_if(
        m_all.begin(), m_all.end(), [](const Measurement &each) { return !each.isComplete; });
    return found == m_all.end() ? nullptr : &*found;
}

int MeasurementList::add(Measurement measurement)
{
    const int id = ++m_lastId;
    measurement.id = id;
    measurement.name = MeasurementTexts::kindName(measurement.kind) % QLatin1Char(' ')
        % QString::number(++m_numbers[measurement.kind]);
    m_all.push_back(std::move(measurement));
    Q_EMIT changed();
    return id;
}

void MeasurementList::update(const Measurement &measurement)
{
    const auto found = std::find_if(m_all.begin(), m_all.end(), withId(measurement.id));
    if (found == m_all.end() || *found == measurement) {
        return;
    }
    *found = measurement;
    forgetStatisticsOf(measurement.id);
    Q_EMIT changed();
}

void MeasurementList::remove(int id)
{
    const auto found = std::find_if(m_all.begin(), m_all.end(), withId(id));
    if (found == m_all.end()) {
        return;
    }
    if (m_picked == id) {
        setPicked(0);
    }
    m_all.erase(std::find_if(m_all.begin(), m_all.end(), withId(id)));
    forgetStatisticsOf(id);
    Q_EMIT changed();
}

void MeasurementList::replaceAll(const std::vector<Measurement> &measurements)
{
    m_all.clear();
    m_picked = 0;
    m_numbers.clear();
    m_history.clear();
    m_statistics.clear();
    Q_EMIT changed(); // Who knows one of them by its id is not to take another one for it.
    for (const Measurement &each : measurements) {
        m_all.push_back(each);
        m_lastId = std::max(m_lastId, each.id);
        const int number = each.name.section(QLatin1Char(' '), -1).toInt();
        m_numbers[each.kind] = std::max(m_numbers[each.kind] + 1, number);
    }
    Q_EMIT changed();
}

void MeasurementList::removeByUser(const std::vector<int> &ids)
{
    Step step;
    for (const int id : ids) {
        if (const Measurement *const found = find(id)) {
            step.push_back(*found);
        }
    }
    remember(step);
    for (const Measurement &each : step) {
        remove(each.id);
    }
}

void MeasurementList::updateByUser(const Measurement &measurement, const Measurement &before)
{
    if (!(measurement == before)) {
        remember({before});
    }
    update(measurement);
}

void MeasurementList::undo()
{
    if (!canUndo()) {
        return;
    }
    const Step step = std::move(m_history.back());
    m_history.pop_back();
    for (const Measurement &each : step) {
        restore(each);
    }
}

void MeasurementList::remember(Step step)
{
    if (step.empty()) {
        return;
    }
    m_history.push_back(std::move(step));
    if (m_history.size() > keptSteps) {
        m_history.pop_front();
    }
}

void MeasurementList::restore(const Measurement &before)
{
    if (find(before.id) != nullptr) {
        update(before);
        return;
    }
    // Ids grow in the order in which measurements are made.
    const auto next = std::find_if(m_all.begin(), m_all.end(),
        [&before](const Measurement &each) { return each.id > before.id; });
    m_all.insert(next, before);
    Q_EMIT changed();
}

void MeasurementList::setPicked(int id)
{
    const int known = find(id) != nullptr ? id : 0;
    if (known == m_picked) {
        return;
    }
    m_picked = known;
    Q_EMIT changed();
}

std::optional<RegionStatistics> MeasurementList::statistics(
    const Measurement &region, const LoadedSeries &series, int phase) const
{
    const KxVolume *const volume
        = series.images() != nullptr ? series.images()->volume(phase) : nullptr;
    if (volume == nullptr || !series.isComplete()) {
        return std::nullopt;
    }
    const StatisticsKey key(region.id, series.uid(), phase);
    const auto known = m_statistics.find(key);
    if (known != m_statistics.end()) {
        return known->second;
    }
    return m_statistics.emplace(key, RegionStatistics::of(region, *volume)).first->second;
}

void MeasurementList::forgetStatisticsOf(int id)
{
    std::erase_if(m_statistics, [id](const auto &each) { return std::get<0>(each.first) == id; });
}
