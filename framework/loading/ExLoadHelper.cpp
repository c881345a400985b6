#include "framework/loading/ExLoadHelper.h"

#include <utility>

bool ExLoadHelper::addToLoadedList(
    const std::string &uid, const McHandle<Zel::DicomDirectoryEntry> &entry)
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

bool ExLoadHelper::setPatientLock(bool lock)
{
    return std::exchange(m_patientLock, lock);
}

bool ExLoadHelper::getPatientLock(std::string &id) const
{
    id = m_patientLockId;
    return m_patientLock;
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
