#pragma once

#include "client/data/SeriesInfo.h"
#include "platform/dicom/DicomDirectoryEntry.h"

#include <QString>

/// Texts for people from entries of the DICOM directory.
namespace EntryTexts {

/// What viewers tell of the series of an entry (a series or a stored volume).
SeriesInfo seriesInfo(const Zel::DicomDirectoryEntry &entry);
/// One line for lists, by the entry's level, e.g. "MR 5: T1 sag".
QString title(const Zel::DicomDirectoryEntry &entry);
/// What there is to know beyond the title, several lines; the remarks among them.
QString details(const Zel::DicomDirectoryEntry &entry);

} // namespace EntryTexts
