#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "platform/dicom/DicomDirectoryEntry.h"
#include "platform/util/McHandle.h"

#include <map>
#include <string>

namespace Zel {

/// Which series and volumes are loaded, by UID, and how many of them each patient has. A value;
/// holds the directory entries. Every patient that is listed has at least one. GUI thread only.
class MOVARA_FRAMEWORK_EXPORT LoadedList
{
public:
    using Entry = McHandle<DicomDirectoryEntry>;

    /// Adds what is loaded from @p entry, kept as its nearest ancestor or itself that is a series
    /// or a stored volume (else the patient). False for an empty UID or one that is there already.
    bool add(const std::string &uid, const Entry &entry);
    /// Takes a UID out, and its patient with the last one. Unknown ones are ignored.
    void remove(const std::string &uid);
    void clear();

    /// The entries by UID.
    [[nodiscard]] const std::map<std::string, Entry> &items() const { return m_items; }
    /// Number of UIDs of a patient; 0 for one without.
    [[nodiscard]] int patientCount(const DicomDirectoryEntry *patient) const;
    /// The number of UIDs by patient, each at least 1.
    [[nodiscard]] const std::map<Entry, int> &patientCounts() const { return m_patientCounts; }

private:
    std::map<std::string, Entry> m_items;
    std::map<Entry, int> m_patientCounts;
};

} // namespace Zel
