#pragma once

#include "platform/render/KxVolume.h"
#include "platform/util/McDArray.h"

/// The volumes of one series: one, or several on the same grid (time points, b-values), called
/// phases. Held by McHandle.
class MOVARA_PLATFORM_EXPORT KxImageSeries : public KxObject, public virtual McHandableThreaded
{
public:
    /// @param uid the DICOM series instance UID.
    explicit KxImageSeries(std::string uid);

    [[nodiscard]] const std::string &uid() const { return m_uid; }
    [[nodiscard]] int numVolumes() const { return m_phases.size(); }
    /// A phase's volume; null when out of range.
    [[nodiscard]] KxVolume *volume(int phase) const;
    /// What tells a phase from the others, e.g. "b 500" or "t 3"; empty when out of range.
    [[nodiscard]] std::string phaseLabel(int phase) const;
    void appendVolume(const McHandle<KxVolume> &volume, const std::string &phaseLabel);

protected:
    ~KxImageSeries() override;

private:
    struct Phase
    {
        McHandle<KxVolume> volume;
        std::string label;
    };

    std::string m_uid;
    McDArray<Phase> m_phases;
};
