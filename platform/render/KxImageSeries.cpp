#include "platform/render/KxImageSeries.h"

#include <utility>

KxImageSeries::KxImageSeries(std::string uid)
    : m_uid(std::move(uid))
{ }

KxImageSeries::~KxImageSeries() = default;

KxVolume *KxImageSeries::volume(int phase) const
{
    return phase >= 0 && phase < m_phases.size() ? m_phases[phase].volume.get() : nullptr;
}

std::string KxImageSeries::phaseLabel(int phase) const
{
    return phase >= 0 && phase < m_phases.size() ? m_phases[phase].label : std::string();
}

void KxImageSeries::appendVolume(const McHandle<KxVolume> &volume, const std::string &phaseLabel)
{
    m_phases.append({volume, phaseLabel});
}
