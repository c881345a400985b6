#include "client/measurements/MeasurementList.h"

#include "client/data/LoadedSeries.h"
#include "client/measurements/MeasurementTexts.h"

#include <algorithm>
#include <utility>

namespace {

MeasurementList *theList = nullptr;

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
    Q_EMIT added(id);
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
    forgetStatistics(measurement.id);
    Q_EMIT updated(measurement.id);
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
    forgetStatistics(id);
    Q_EMIT removed(id);
    Q_EMIT changed();
}

void MeasurementList::clear()
{
    while (!m_all.empty()) {
        remove(m_all.back().id);
    }
    m_numbers.clear();
}

void MeasurementList::setPicked(int id)
{
    const int known = find(id) != nullptr ? id : 0;
    if (known == m_picked) {
        return;
    }
    m_picked = known;
    Q_EMIT pickedChanged(known);
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

void MeasurementList::forgetStatistics(int id)
{
    std::erase_if(m_statistics, [id](const auto &each) { return std::get<0>(each.first) == id; });
}
