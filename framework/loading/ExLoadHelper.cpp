#include "framework/loading/ExLoadHelper.h"

#include "framework/dialogs/ExMessageBox.h"
#include "framework/loading/ImportTab.h"
#include "framework/loading/LoadIncompleteStudies.h"
#include "framework/loading/PatientList.h"
#include "platform/dicom/DicomDirectory.h"
#include "platform/dicom/ExDicomUtilities.h"
#include "platform/dicom/KxVolumeInfoCache.h"
#include "platform/properties/KxPropertyPool.h"
#include "platform/properties/KxTranslationProperty.h"
#include "platform/util/McLogFile.h"

#include <algorithm>
#include <utility>

namespace {

using Zel::DicomDirectoryEntry;

const char *const policyKey = KxTranslationProperty::translate(
    "General.LoadIncompleteStudies", QT_TRANSLATE_NOOP("Property", "Load Incomplete Studies"));

Zel::LoadIncompleteStudies loadPolicy()
{
    KxPropertyPool &pool = KxPropertyPool::instance();
    // Whoever must decide on an incomplete study should at least be told that it is one, and can
    // still do the work.
    const Zel::LoadIncompleteStudies otherwise = Zel::LoadIfConfirmed();
    return pool.property(policyKey, otherwise, pool.defaultSerializer()).value();
}

void tellLockedPatient(const std::string &lockedId, const std::string &id)
{
    const QString text = ImportTab::tr(
        "The studies/series you are trying to load do not belong to the locked patient:\n\n",
        "The locked patient is the patient that was selected and locked from the webclient. It is "
        "not possible to load any other patient as long as this patient is locked.");
    ExMessageBox::error(text % QString::fromStdString(lockedId) % u'\n' % QString::fromStdString(id)
        % u'\n' % ImportTab::tr("Loading prohibited!\n"));
}

bool askToLoadIncomplete()
{
    return ExMessageBox::warning(
               ImportTab::tr("The studies you are trying to load may be incomplete.\n"
                             "Do you want to load them anyway?"),
               ExMessageBox::Ok | ExMessageBox::Cancel, ExMessageBox::Cancel)
        == ExMessageBox::Ok;
}

/// The ID to hold against the lock: of several patients one that the lock excludes.
std::string idToCheck(const Zel::DicomDirectory::Selection &selection, const std::string &locked)
{
    for (const ExLoadHelper::Entry &entry : selection) {
        if (entry->topLevel()->patientId() != locked) {
            return entry->topLevel()->patientId();
        }
    }
    return locked;
}

/// Whether the files that a volume is made from can be read; of a volume that lost files what is
/// left is used.
bool isStorageThere(const DicomDirectoryEntry &volume)
{
    const McDArray<McFilename> &files = volume.files();
    KxVolumeInfoCache &cache = KxVolumeInfoCache::instance();
    if (files.isEmpty() || cache.haveCachedVolumeFile(files.first())) {
        return !files.isEmpty();
    }
    theLogInstance().warnf("haveCachedVolumeFile() failed for %s, recreating volume\n",
        files.first().string().c_str());
    return KxVolumeInfoCache::isStorageReadable(files.first())
        && std::any_of(files.begin() + 1, files.end(),
            [&cache](const McFilename &file) { return cache.haveCachedVolumeFile(file); });
}

void appendOnce(const ExLoadHelper::Entry &entry, ExLoadHelper::Entries &entries)
{
    if (!entries.contains(entry)) {
        entries.append(entry);
    }
}

/// The series and volumes to look at for an entry.
void appendLoadable(const ExLoadHelper::Entry &entry, ExLoadHelper::Entries &found)
{
    if (entry->isSeries() || entry->isStoredVolume()) {
        appendOnce(entry, found);
        return;
    }
    for (const ExLoadHelper::Entry &child : entry->children()) {
        appendLoadable(child, found);
    }
}

/// Where an entry stands: its patient, and its position at each level from there.
std::pair<std::string, std::vector<int>> place(const ExLoadHelper::Entry &entry)
{
    std::vector<int> positions;
    ExLoadHelper::Entry each = entry;
    while (each->parent() != nullptr) {
        positions.insert(positions.begin(), each->parent()->children().indexOf(each));
        each = each->parent();
    }
    return {each->uid(), positions};
}

/// Presentation states are listed beside the images, whether they were chosen or not.
std::vector<std::string> presentationSeries(const DicomDirectoryEntry *study)
{
    std::vector<std::string> uids;
    if (study != nullptr) {
        for (const ExLoadHelper::Entry &series : study->children()) {
            if (series->isPresentationState() && !series->isExcluded()) {
                uids.push_back(series->uid());
            }
        }
    }
    return uids;
}

ExLoadInfo loadInfo(const ExLoadHelper::Entry &entry)
{
    const DicomDirectoryEntry *const series = entry->ancestor(DicomDirectoryEntry::Series);
    ExLoadInfo info;
    info.patientId = entry->patientId();
    info.studyUid = entry->studyUid();
    info.seriesUids = {series != nullptr ? series->uid() : entry->seriesUid()};
    info.volumeUid = entry->isStoredVolume() ? entry->uid() : std::string();
    info.presentationSeriesUids = presentationSeries(entry->ancestor(DicomDirectoryEntry::Study));
    info.entry = entry;
    return info;
}

} // namespace

bool ExLoadHelper::checkDifferentPatients(bool &several, bool prohibit)
{
    const Zel::DicomDirectory::Selection selection = Zel::DicomDirectory::instance().selection();
    several = false;
    if (selection.isEmpty()) {
        return true;
    }
    constexpr std::size_t shortestLock = 2;
    if (m_patientLock && m_patientLockId.size() >= shortestLock) {
        if (const std::string id = idToCheck(selection, m_patientLockId); id != m_patientLockId) {
            tellLockedPatient(m_patientLockId, id);
            return false;
        }
    }
    m_patientLockId = selection.first()->topLevel()->patientId();
    PatientList patients(prohibit ? PatientList::Ids::Shown : PatientList::Ids::Ignored);
    for (const Entry &entry : selection) {
        const DicomDirectoryEntry *const patient = entry->topLevel();
        patients.add(patient->patientName(), patient->patientBirthDate(), patient->patientId());
    }
    several = patients.hasSeveral();
    if (several && prohibit) {
        patients.refuse();
        return false;
    }
    return !several || patients.askToIgnore();
}

bool ExLoadHelper::checkDifferentPatients(
    const McDArray<McFilename> &files, bool prohibit, bool &several)
{
    PatientList patients(PatientList::Ids::Shown);
    for (const McFilename &file : files) {
        if (const auto bundle = KxVolumeInfoCache::instance().parameterBundle(file)) {
            patients.add(ExDicomUtilities::findTag(*bundle, "G0010-0010"),
                ExDicomUtilities::findTag(*bundle, "G0010-0030"),
                ExDicomUtilities::findTag(*bundle, "G0010-0020"));
        }
    }
    several = patients.hasSeveral();
    if (several && prohibit) {
        patients.refuse();
        return false;
    }
    return true;
}

bool ExLoadHelper::setPatientLock(bool lock)
{
    return std::exchange(m_patientLock, lock);
}

bool ExLoadHelper::getPatientLock(std::string &id) const
{
    id = m_patientLockId;
    return m_patientLock;
}

void ExLoadHelper::checkIncompleteStudyStart()
{
    const Zel::LoadIncompleteStudies policy = loadPolicy();
    const auto is = [&policy](const Zel::LoadIncompleteStudies &value) { return policy == value; };
    if (is(Zel::LoadNever())) {
        m_incompleteState = Refuse;
    } else {
        const bool asks = is(Zel::LoadIfConfirmed()) || is(Zel::LoadPartner());
        m_incompleteState = asks ? Ask : NoCheck;
    }
}

bool ExLoadHelper::hasIncompleteStudy(const Entries &entries)
{
    if (m_incompleteState < Refused) {
        return false;
    }
    const bool isComplete = std::all_of(entries.begin(), entries.end(),
        [](const Entry &entry) { return !entry || entry->isComplete(); });
    if (isComplete) {
        return m_incompleteState == Refused;
    }
    if (m_incompleteState == Ask) {
        m_incompleteState = askToLoadIncomplete() ? Accepted : Refused;
    } else if (m_incompleteState == Refuse) {
        ExMessageBox::warning(
            ImportTab::tr("The studies you are trying to load may be incomplete.\n"
                          "You cannot load them."),
            ExMessageBox::Close);
        m_incompleteState = Refused;
    }
    return m_incompleteState == Refused;
}

bool ExLoadHelper::checkIncompleteStudyOK() const
{
    return m_incompleteState != Refused;
}

bool ExLoadHelper::checkIncompleteStudyStop()
{
    return std::exchange(m_incompleteState, Accepted) != Refused;
}

void ExLoadHelper::getLoadInfoItems(
    const Entries &selection, McDArray<ExLoadInfo> &items, bool quiet)
{
    if (hasIncompleteStudy(selection)) {
        return;
    }
    Entries candidates;
    for (const Entry &entry : selection) {
        if (entry) {
            appendLoadable(entry, candidates);
        }
    }
    Entries found;
    Entries others;
    bool hasStorageProblem = false;
    for (const Entry &entry : candidates) {
        bool isStorageProblem = false;
        if (entry->isStoredVolume()) {
            checkVolumeToLoad(entry, found, isStorageProblem);
        } else {
            checkSeriesToLoad(entry, found, others, isStorageProblem);
        }
        hasStorageProblem = hasStorageProblem || isStorageProblem;
    }
    found.append(others);
    if (hasStorageProblem) {
        ExMessageBox::warning(ImportTab::tr("There were problems accessing the volume storage.\n"
                                            "Contact your system administrator."),
            ExMessageBox::Close);
    } else if (found.isEmpty() && !quiet) {
        ExMessageBox::warning(
            ImportTab::tr("No appropriate studies or series selected. No data will be loaded."),
            ExMessageBox::Close);
    }
    found.sort([](const Entry &a, const Entry &b) { return place(a) < place(b); });
    for (const Entry &entry : found) {
        appendItem(entry, items);
    }
}

void ExLoadHelper::appendItem(const Entry &entry, McDArray<ExLoadInfo> &items)
{
    const ExLoadInfo info = loadInfo(entry);
    const std::string &uid = info.volumeUid.empty() ? info.seriesUids.front() : info.volumeUid;
    if (addToLoadedList(uid, entry)) {
        items.append(info);
    }
}

bool ExLoadHelper::checkSeriesToLoad(
    const Entry &series, Entries &volumes, Entries &others, bool &storageProblem)
{
    storageProblem = false;
    const bool isToBeQueried = series->isSeries() && series->files().isEmpty();
    const bool canLoad = series->isSeries() && !series->isExcluded()
        && !series->isPresentationState() && (series->isImage() || isToBeQueried);
    if (!canLoad) {
        return false;
    }
    bool hasVolume = false;
    for (const Entry &volume : series->children()) {
        if (volume->isExcluded() || !volume->isImage()) {
            continue;
        }
        if (!checkVolumeToLoad(volume, volumes, storageProblem)) {
            return false;
        }
        hasVolume = true;
    }
    if (!hasVolume) {
        appendOnce(series, others);
        if (isToBeQueried) {
            m_seriesToBeQueried.insert(series->uid());
        }
    }
    return true;
}

bool ExLoadHelper::checkVolumeToLoad(const Entry &volume, Entries &volumes, bool &storageProblem)
{
    storageProblem = false;
    const bool isPresentationState = volume->isPresentationState();
    if (!volume->isStoredVolume() || volume->isExcluded() || !volume->isImage()
        || isPresentationState) {
        return false;
    }
    if (!volumes.contains(volume) && !isStorageThere(*volume)) {
        storageProblem = true;
        return false;
    }
    appendOnce(volume, volumes);
    return true;
}

bool ExLoadHelper::addToLoadedList(const std::string &uid, const Entry &entry)
{
    return m_loadedList.add(uid, entry);
}

void ExLoadHelper::removeFromLoadedList(const std::vector<std::string> &uids)
{
    for (const std::string &uid : uids) {
        m_loadedList.remove(uid);
    }
}

void ExLoadHelper::removeFromLoadedList(const ExLoadInfo &item)
{
    removeFromLoadedList(
        item.volumeUid.empty() ? item.seriesUids : std::vector<std::string>{item.volumeUid});
}

void ExLoadHelper::clearLoadedList()
{
    m_loadedList.clear();
}

McDArray<McString> ExLoadHelper::takeOtherStudyUIDs()
{
    return std::exchange(m_otherStudyUIDs, {});
}

std::set<std::string> ExLoadHelper::takeSeriesToBeQueried()
{
    return std::exchange(m_seriesToBeQueried, {});
}

void ExLoadHelper::reset()
{
    *this = ExLoadHelper();
}
