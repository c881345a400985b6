#include "client/data/LoadedSeries.h"

#include <utility>

LoadedSeries::LoadedSeries(std::string uid, SeriesInfo info)
    : m_uid(std::move(uid))
    , m_info(std::move(info))
{ }

LoadedSeries::~LoadedSeries() = default;

bool LoadedSeries::sharesFrame(const LoadedSeries &other) const
{
    // A series without a frame of reference can be compared with itself only.
    return this == &other
        || (!m_info.frameOfReference.empty()
            && m_info.frameOfReference == other.m_info.frameOfReference);
}
