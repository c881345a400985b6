#include "client/loading/LoadGate.h"

#include "client/loading/EntryTexts.h"
#include "framework/application/ExApplication.h"
#include "framework/loading/ExLoadHelper.h"
#include "platform/dicom/DicomDirectory.h"
#include "platform/dicom/ExDicomUtilities.h"
#include "platform/dicomio/DicomHeaderReader.h"

#include <algorithm>

namespace {

using Entry = LoadGate::Entry;
using Entries = LoadGate::Entries;
using Patients = std::vector<Entry>;

ExLoadHelper &helper()
{
    return *ExApplication::instance().loadHelper();
}

Entry patientOf(const Entry &entry)
{
    return Entry(entry->topLevel());
}

template <typename Container>
Patients patientsOf(const Container &entries)
{
    Patients patients;
    for (const Entry &entry : entries) {
        if (std::find(patients.begin(), patients.end(), patientOf(entry)) == patients.end()) {
            patients.push_back(patientOf(entry));
        }
    }
    return patients;
}

Patients openPatients()
{
    const Zel::LoadedList list = helper().loadedList();
    std::vector<Entry> entries;
    for (const auto &[uid, entry] : list.items()) {
        entries.push_back(entry);
    }
    return patientsOf(entries);
}

/// What the loaded list knows an entry by: its volumes that can be loaded, else its series.
void appendLoadedUids(const Entry &entry, std::vector<std::string> &uids)
{
    const std::size_t before = uids.size();
    for (const Entry &child : entry->children()) {
        if (!child->isStoredVolume() || (!child->isExcluded() && child->isImage())) {
            appendLoadedUids(child, uids);
        }
    }
    if (uids.size() == before && (entry->isStoredVolume() || entry->isSeries())) {
        uids.push_back(entry->uid());
    }
}

std::vector<std::string> loadedUids(const Entry &entry)
{
    std::vector<std::string> uids;
    appendLoadedUids(entry, uids);
    return uids;
}

bool isLoaded(const Entry &entry)
{
    const Zel::LoadedList list = helper().loadedList();
    const std::vector<std::string> uids = loadedUids(entry);
    return std::all_of(uids.begin(), uids.end(),
        [&list](const std::string &uid) { return list.items().count(uid) > 0; });
}

/// Those that are loaded, or those that are not, each once.
Entries filtered(const Entries &entries, bool loaded)
{
    Entries result;
    for (const Entry &entry : entries) {
        if (isLoaded(entry) == loaded && !result.contains(entry)) {
            result.append(entry);
        }
    }
    return result;
}

/// Of an entry that cannot be shown as a whole nothing is loaded.
void takeBackParts(const McDArray<ExLoadInfo> &items, const Entries &wanted)
{
    const Entries missing = filtered(wanted, false);
    for (const ExLoadInfo &item : items) {
        if (missing.contains(item.entry) || missing.contains(Entry(item.entry->parent()))) {
            helper().removeFromLoadedList(item);
        }
    }
}

/// A patient under the name and date that people read, instead of those of the files.
Entry forPeople(const Entry &patient)
{
    using Zel::DicomDirectoryEntry;
    const std::string name = ExDicomUtilities::displayName(patient->patientName());
    const std::string date = ExDicomUtilities::displayDate(patient->patientBirthDate());
    Entry shown(new DicomDirectoryEntry(DicomDirectoryEntry::Patient, patient->uid()));
    // A part of full stops alone, which mark a name that was cut, leaves its comma behind.
    shown->setText(DicomDirectoryEntry::Attribute::PatientName,
        name.substr(0, name.find_last_not_of("., ") + 1));
    shown->setText(DicomDirectoryEntry::Attribute::PatientBirthDate, date);
    shown->setText(DicomDirectoryEntry::Attribute::PatientId, patient->patientId());
    return shown;
}

bool checkSelection(const Patients &patients)
{
    Entries shown;
    for (const Entry &patient : patients) {
        shown.append(forPeople(patient));
    }
    const Zel::DicomDirectory::TemporarySelection selection(shown);
    bool several = false;
    return helper().checkDifferentPatients(several, false);
}

/// IDs that are shorter do not restrict what may be loaded.
bool canBeLocked(const Entry &patient)
{
    constexpr std::size_t shortestId = 2;
    return patient->patientId().size() >= shortestId;
}

/// Lifts the lock for a question about patients of which it was asked already.
class LiftedLock
{
public:
    LiftedLock()
        : m_isLocked(helper().getPatientLock(m_id))
    {
        helper().setPatientLock(false);
    }
    ~LiftedLock()
    {
        if (m_isLocked) {
            helper().setPatientLockId(m_id);
            helper().setPatientLock(true);
        }
    }
    Q_DISABLE_COPY_MOVE(LiftedLock)

private:
    std::string m_id;
    bool m_isLocked;
};

} // namespace

LoadGate::LoadGate(QObject *parent)
    : QObject(parent)
{
    // The helper looks whether files can be read before it lets them pass.
    DicomHeaderReader::install();
}

LoadGate::~LoadGate() = default;

LoadGate::Entries LoadGate::admit(const Entries &wanted)
{
    const Entries added = filtered(wanted, false);
    if (!added.isEmpty()) {
        McDArray<ExLoadInfo> items;
        if (!m_isUnattended) {
            helper().checkIncompleteStudyStart();
        }
        if (m_isUnattended || checkPatients(added)) {
            helper().getLoadInfoItems(added, items, m_isUnattended);
        }
        helper().checkIncompleteStudyStop();
        takeBackParts(items, added);
        forgetClosedPairs();
        Q_EMIT changed();
    }
    return filtered(wanted, true);
}

bool LoadGate::checkPatients(const Entries &added)
{
    const Patients patients = patientsOf(added);
    if (!std::all_of(patients.begin(), patients.end(),
            [this](const Entry &patient) { return checkLock(patient); })) {
        return false;
    }
    Patients together = patients;
    for (const Entry &open : openPatients()) {
        if (!isAccepted(open, patients)) {
            together.push_back(open);
        }
    }
    const bool isKnown = together.size() == patients.size()
        && std::all_of(patients.begin(), patients.end(),
            [&](const Entry &patient) { return isAccepted(patient, patients); });
    if (isKnown) {
        return true;
    }
    const LiftedLock lifted;
    const bool isAllowed = checkSelection(together);
    for (std::size_t i = 0; isAllowed && i < together.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            m_acceptedPairs.insert(std::minmax(together[i], together[j]));
        }
    }
    return isAllowed;
}

bool LoadGate::checkLock(const Entry &patient) const
{
    if (m_lockedIds.count(patient->patientId()) > 0) {
        helper().setPatientLockId(patient->patientId());
    }
    return checkSelection({patient});
}

bool LoadGate::isPatientLocked()
{
    std::string id;
    return helper().getPatientLock(id);
}

bool LoadGate::canLockPatient()
{
    const Patients open = openPatients();
    return !open.empty() && std::all_of(open.begin(), open.end(), &canBeLocked);
}

void LoadGate::setPatientLocked(bool locked)
{
    if (locked == isPatientLocked() || (locked && !canLockPatient())) {
        return;
    }
    QStringList names;
    m_lockedIds.clear();
    if (locked) {
        for (const Entry &patient : openPatients()) {
            m_lockedIds.insert(patient->patientId());
            names += EntryTexts::seriesInfo(*patient).patientName;
        }
        helper().setPatientLockId(*m_lockedIds.begin());
    }
    helper().setPatientLock(locked);
    Q_EMIT changed();
    Q_EMIT patientLockChanged(names);
}

bool LoadGate::isAccepted(const Entry &patient, const Patients &others) const
{
    return std::all_of(others.begin(), others.end(), [&](const Entry &other) {
        return other == patient || m_acceptedPairs.count(std::minmax(patient, other)) > 0;
    });
}

void LoadGate::forgetClosedPairs()
{
    const Patients open = openPatients();
    const auto isClosed = [&open](const Entry &patient) {
        return std::find(open.begin(), open.end(), patient) == open.end();
    };
    std::erase_if(m_acceptedPairs,
        [&](const Pair &pair) { return isClosed(pair.first) || isClosed(pair.second); });
}

void LoadGate::close(const Entries &entries)
{
    const Patients before = openPatients();
    for (const Entry &entry : entries) {
        helper().removeFromLoadedList(loadedUids(entry));
    }
    tellClosed(before);
}

void LoadGate::closeAll()
{
    const Patients before = openPatients();
    helper().clearLoadedList();
    tellClosed(before);
}

void LoadGate::tellClosed(const Patients &before)
{
    forgetClosedPairs();
    const Patients open = openPatients();
    for (const Entry &patient : before) {
        if (std::find(open.begin(), open.end(), patient) == open.end()) {
            Q_EMIT patientClosed(EntryTexts::seriesInfo(*patient).patientName);
        }
    }
    Q_EMIT changed();
}
