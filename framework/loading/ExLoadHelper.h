#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "framework/loading/ExLoadInfo.h"
#include "framework/loading/LoadedList.h"
#include "platform/util/McDArray.h"
#include "platform/util/McFilename.h"
#include "platform/util/McString.h"

#include <set>
#include <string>
#include <vector>

/// The application's gate between a selection of studies and their loading: asks the user what must
/// be asked, knows what is loaded, which patient is locked, and what is still to be queried. A
/// value; the application object owns one. GUI thread only: its dialogs are modal. For one load
/// call, in this order, checkIncompleteStudyStart(), checkDifferentPatients(), getLoadInfoItems()
/// and checkIncompleteStudyStop().
class MOVARA_FRAMEWORK_EXPORT ExLoadHelper
{
public:
    using Entry = McHandle<Zel::DicomDirectoryEntry>;
    using Entries = McDArray<Entry>;

    // Patients.

    /// Checks that what is selected in the DICOM directory comes from one patient, and from the
    /// locked one. Patients are told apart by name and date of birth, with @p prohibit, or when the
    /// name is missing, by their ID too; the lines that name them show these as the directory has
    /// them, but for full stops at the end of a name. An empty selection is fine. One that the lock
    /// allows becomes the patient to lock on.
    /// @param several becomes whether there is more than one patient.
    /// @param prohibit refuses several patients; otherwise the user may have them loaded.
    /// @return false: do not load; the user knows why.
    [[nodiscard]] bool checkDifferentPatients(bool &several, bool prohibit);
    /// Checks that files come from one patient (name, date of birth and ID). Files that cannot be
    /// read are left out of account. The lock is not asked.
    /// @param prohibit refuses several patients; otherwise @p several is all that tells of them.
    [[nodiscard]] bool checkDifferentPatients(
        const McDArray<McFilename> &files, bool prohibit, bool &several);

    // Patient lock: while it is on and its ID has two characters or more, only the patient with
    // that ID may be loaded.

    /// @return what it was before.
    bool setPatientLock(bool lock);
    /// Gives the lock's patient id in @p id, and whether the lock is on.
    bool getPatientLock(std::string &id) const;
    void setPatientLockId(const std::string &id) { m_patientLockId = id; }
    void clearPatientLockId() { m_patientLockId.clear(); }

    // Incomplete studies, by the setting "General.LoadIncompleteStudies".

    /// Begins the check for one load.
    void checkIncompleteStudyStart();
    /// Asks the user, or refuses, when one of @p entries is not complete: at most once between
    /// start and stop, never outside. True when loading is refused.
    [[nodiscard]] bool hasIncompleteStudy(const Entries &entries);
    /// False when loading was refused since the start.
    [[nodiscard]] bool checkIncompleteStudyOK() const;
    /// Ends the check; false when loading was refused.
    bool checkIncompleteStudyStop();

    // Load items.

    /// Turns a selection into what is to be loaded, patient by patient and within each in the order
    /// of the directory, and enters that into the loaded list; what is there already is not given
    /// again. Of patients and studies all
    /// series count, of series all stored volumes; a series without a usable volume is an item by
    /// itself. Not loaded: excluded series and volumes, presentation states and whatever else is no
    /// image. Tells the user when the storage cannot be read, and when there is nothing to load
    /// unless @p quiet. A refusal for incomplete studies leaves @p items as they are.
    void getLoadInfoItems(const Entries &selection, McDArray<ExLoadInfo> &items, bool quiet);

    // Loaded list.

    /// Records what is loaded from an entry. False for an empty UID or one that is there already.
    bool addToLoadedList(const std::string &uid, const Entry &entry);
    /// Unknown UIDs are ignored.
    void removeFromLoadedList(const std::vector<std::string> &uids);
    /// Removes the item's stored volume when it names one, else all of its series.
    void removeFromLoadedList(const ExLoadInfo &item);
    void clearLoadedList();
    [[nodiscard]] Zel::LoadedList loadedList() const { return m_loadedList; }
    void setLoadedList(const Zel::LoadedList &list) { m_loadedList = list; }

    // Bookkeeping of the caller. "take" moves the content out, in place of what @p uids holds.

    void setOtherStudyUIDs(const McDArray<McString> &uids) { m_otherStudyUIDs = uids; }
    [[nodiscard]] McDArray<McString> takeOtherStudyUIDs();
    void takeOtherStudyUIDs(McDArray<McString> &uids) { uids = takeOtherStudyUIDs(); }
    /// UIDs of series that were chosen, but of which the directory knows no file: they have to be
    /// fetched before their items can be loaded.
    [[nodiscard]] std::set<std::string> takeSeriesToBeQueried();
    void takeSeriesToBeQueried(std::set<std::string> &uids) { uids = takeSeriesToBeQueried(); }

    /// Back to the initial state.
    void reset();

protected:
    /// Whether @p series may be loaded. Adds its usable stored volumes to @p volumes or, when it
    /// has none, itself to @p others, each once. False for what is no series, is excluded or no
    /// image, and when the storage of a volume cannot be read.
    /// @param storageProblem becomes whether that was the reason.
    bool checkSeriesToLoad(
        const Entry &series, Entries &volumes, Entries &others, bool &storageProblem);
    /// Whether a stored volume may be loaded; adds it to @p volumes, once. False when it is
    /// excluded or no image, and when its storage cannot be read.
    bool checkVolumeToLoad(const Entry &volume, Entries &volumes, bool &storageProblem);

private:
    /// The values are compared across calls; 2 and above: a check is in force.
    enum IncompleteState { NoCheck = 0, Accepted = 1, Refused = 2, Ask = 3, Refuse = 4 };

    void appendItem(const Entry &entry, McDArray<ExLoadInfo> &items);

    Zel::LoadedList m_loadedList;
    McDArray<McString> m_otherStudyUIDs;
    std::set<std::string> m_seriesToBeQueried;
    bool m_patientLock = false;
    std::string m_patientLockId;
    int m_incompleteState = NoCheck;
};
