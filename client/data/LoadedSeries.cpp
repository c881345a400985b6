#include "client/data/LoadedSeries.h"

#include <utility>

LoadedSeries::LoadedSeries(std::string uid, SeriesInfo info)
    : m_uid(std::move(uid))
    , m_info(std::move(info))
{ }

LoadedSeries::~LoadedSeries() = default;

KxVolume::Placement LoadedSeries::placement() const
{
    const KxVolume *const first = m_images ? m_images->volume(0) : nullptr;
    return first != nullptr ? first->placement() : KxVolume::Placement::Pixels;
}

bool LoadedSeries::sharesFrame(const LoadedSeries &other) const
{
    // A series without a frame of reference, or without a place in it, can be compared with itself
    // only.
    constexpr auto known = KxVolume::Placement::Patient;
    const bool arePlaced = placement() == known && other.placement() == known;
    return this == &other
        || (arePlaced
            && (!m_info.frameOfReference.empty()
                && m_info.frameOfReference == other.m_info.frameOfReference));
}
