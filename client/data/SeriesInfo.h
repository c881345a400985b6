#pragma once

#include <QString>

#include <string>

/// What the viewers tell of a series: texts as they are shown. A plain value.
struct SeriesInfo
{
    QString patientName;
    QString patientId;
    QString patientBirthDate;
    QString studyDate;
    QString studyDescription;
    QString seriesNumber;
    QString seriesDescription;
    QString modality;
    /// Series with an equal one lie in the same coordinates; empty when it is not known.
    std::string frameOfReference;
};
