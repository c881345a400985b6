#pragma once

#include "platform/dicom/DicomDirectoryEntry.h"
#include "platform/dicomio/DicomFileHeader.h"
#include "platform/util/McDArray.h"
#include "platform/util/McHandle.h"

#include <vector>

/// Sorts the headers of files into patients, studies, series and stored volumes. Each level is
/// ordered as people expect it: patients by name, studies by date, series by number.
/// @param headers of usable files, in the order of their names; a file that repeats the SOP
/// instance of an earlier one is left out and remarked on.
McDArray<McHandle<Zel::DicomDirectoryEntry>> buildDirectory(
    const std::vector<const DicomFileHeader *> &headers);
