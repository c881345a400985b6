#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "framework/loading/ExLoadInfo.h"
#include "framework/loading/LoadedList.h"
#include "platform/util/McDArray.h"
#include "platform/util/McString.h"

#include <set>
#include <string>
#include <vector>

/// The application's gate between a selection of studies and their loading: what is loaded, which
/// patient is locked, and what is still to be queried. A value; the application object owns one.
/// GUI thread only.
class MOVARA_FRAMEWORK_EXPORT ExLoadHelper
{
public:
    // Loaded list.

    /// Records what is loaded from an entry. False for an empty UID or one that is there already.
    bool addToLoadedList(const std::string &uid, const McHandle<Zel::DicomDirectoryEntry> &entry);
    /// Unknown UIDs are ignored.
    void removeFromLoadedList(const std::vector<std::string> &uids);
    /// Removes the item's stored volume when it names one, else all of its series.
    void removeFromLoadedList(const ExLoadInfo &item);
    void clearLoadedList();
    [[nodiscard]] Zel::LoadedList loadedList() const { return m_loadedList; }
    void setLoadedList(const Zel::LoadedList &list) { m_loadedList = list; }

    // Patient lock: while it is on, only the patient with the lock's id may be loaded.

    /// @return what it was before.
    bool setPatientLock(bool lock);
    /// Gives the lock's patient id in @p id, and whether the lock is on.
    bool getPatientLock(std::string &id) const;
    void setPatientLockId(const std::string &id) { m_patientLockId = id; }
    void clearPatientLockId() { m_patientLockId.clear(); }

    // Bookkeeping of the caller. "take" moves the content out.

    void setOtherStudyUIDs(const McDArray<McString> &uids) { m_otherStudyUIDs = uids; }
    [[nodiscard]] McDArray<McString> takeOtherStudyUIDs();
    [[nodiscard]] std::set<std::string> takeSeriesToBeQueried();

    /// Back to the initial state.
    void reset();

private:
    Zel::LoadedList m_loadedList;
    McDArray<McString> m_otherStudyUIDs;
    std::set<std::string> m_seriesToBeQueried;
    bool m_patientLock = false;
    std::string m_patientLockId;
};
