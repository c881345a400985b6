#pragma once

#include <QDateTime>
#include <QString>

#include <string>

namespace Zel {

/// What a web service tells about a series. A plain value; unknown members are empty, numbers that
/// are unknown -1.
struct SeriesInfo
{
    std::string seriesUid;
    std::string studyUid;
    std::string patientId;
    /// DICOM modality, e.g. "CT".
    std::string modality;
    QString description;
    int seriesNumber = -1;
    int numberOfImages = -1;
    /// When the series was taken, in the time of its place; not valid when unknown.
    QDateTime acquired;

    /// Whether it names a series at all.
    [[nodiscard]] bool isValid() const { return !seriesUid.empty(); }
    friend bool operator==(const SeriesInfo &, const SeriesInfo &) = default;
};

} // namespace Zel
