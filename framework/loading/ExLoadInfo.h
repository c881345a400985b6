#pragma once

#include "platform/dicom/DicomDirectoryEntry.h"
#include "platform/util/McHandle.h"

#include <string>
#include <vector>

/// One thing to load: a stored volume, or one or several series. A plain value.
struct ExLoadInfo
{
    std::string patientId;
    std::string studyUid;
    /// The series to load, or the one that the volume belongs to.
    std::vector<std::string> seriesUids;
    /// The stored volume to load; empty when whole series are.
    std::string volumeUid;
    /// The series of presentation states in the same study, which tell how its images are to be
    /// shown. They are not loaded as images and not in the loaded list.
    std::vector<std::string> presentationSeriesUids;
    /// Where it stands in the directory.
    McHandle<Zel::DicomDirectoryEntry> entry;
};
