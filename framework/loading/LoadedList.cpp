#include "framework/loading/LoadedList.h"

namespace Zel {

namespace {

/// The two lowest levels: what can be loaded.
constexpr unsigned registeredLevels
    = DicomDirectoryEntry::StoredVolume | DicomDirectoryEntry::Series;

DicomDirectoryEntry *registeredEntry(DicomDirectoryEntry *entry)
{
    while ((entry->levelFlags() & registeredLevels) == 0 && entry->parent() != nullptr) {
        entry = entry->parent();
    }
    return entry;
}

} // namespace

bool LoadedList::add(const std::string &uid, const Entry &entry)
{
    if (uid.empty() || !entry || m_items.contains(uid)) {
        return false;
    }
    m_items[uid] = registeredEntry(entry.get());
    ++m_patientCounts[entry->topLevel()];
    return true;
}

void LoadedList::remove(const std::string &uid)
{
    const auto item = m_items.find(uid);
    if (item == m_items.end()) {
        return;
    }
    const auto patient = m_patientCounts.find(item->second->topLevel());
    if (patient != m_patientCounts.end() && --patient->second == 0) {
        m_patientCounts.erase(patient);
    }
    m_items.erase(item);
}

void LoadedList::clear()
{
    m_patientCounts.clear();
    m_items.clear();
}

int LoadedList::patientCount(const DicomDirectoryEntry *patient) const
{
    const auto found = m_patientCounts.find(const_cast<DicomDirectoryEntry *>(patient));
    return found == m_patientCounts.end() ? 0 : found->second;
}

} // namespace Zel
