#include "platform/dicom/DicomDirectoryEntry.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace Zel {

DicomDirectoryEntry::DicomDirectoryEntry(Level level, std::string uid)
    : m_level(level)
    , m_uid(std::move(uid))
{ }

DicomDirectoryEntry::~DicomDirectoryEntry()
{
    for (const McHandle<DicomDirectoryEntry> &child : m_children) {
        child->m_parent = nullptr;
    }
}

void DicomDirectoryEntry::appendChild(const McHandle<DicomDirectoryEntry> &child)
{
    child->m_parent = this;
    m_children.append(child);
}

const DicomDirectoryEntry *DicomDirectoryEntry::ancestor(Level level) const
{
    const DicomDirectoryEntry *entry = this;
    while (entry && entry->m_level != level) {
        entry = entry->m_parent;
    }
    return entry;
}

DicomDirectoryEntry *DicomDirectoryEntry::ancestor(Level level)
{
    return const_cast<DicomDirectoryEntry *>(std::as_const(*this).ancestor(level));
}

const DicomDirectoryEntry *DicomDirectoryEntry::topLevel() const
{
    const DicomDirectoryEntry *entry = this;
    while (entry->m_parent) {
        entry = entry->m_parent;
    }
    return entry;
}

DicomDirectoryEntry *DicomDirectoryEntry::topLevel()
{
    return const_cast<DicomDirectoryEntry *>(std::as_const(*this).topLevel());
}

const std::string &DicomDirectoryEntry::text(Attribute attribute) const
{
    static const std::string unknown;
    for (const DicomDirectoryEntry *entry = this; entry; entry = entry->m_parent) {
        const std::string &value = entry->m_texts[static_cast<std::size_t>(attribute)];
        if (!value.empty()) {
            return value;
        }
    }
    return unknown;
}

void DicomDirectoryEntry::setText(Attribute attribute, const std::string &value)
{
    m_texts[static_cast<std::size_t>(attribute)] = value;
}

int DicomDirectoryEntry::numImages() const
{
    return std::accumulate(m_children.begin(), m_children.end(), m_numImages,
        [](int sum, const McHandle<DicomDirectoryEntry> &child) {
            return sum + child->numImages();
        });
}

bool DicomDirectoryEntry::isImage() const
{
    return isStoredVolume() || m_numImages > 0
        || std::any_of(m_children.begin(), m_children.end(),
            [](const McHandle<DicomDirectoryEntry> &child) { return child->isImage(); });
}

const DicomDirectoryEntry *DicomDirectoryEntry::largestChild() const
{
    const auto largest = std::max_element(m_children.begin(), m_children.end(),
        [](const auto &a, const auto &b) { return a->numImages() < b->numImages(); });
    return largest == m_children.end() ? nullptr : largest->get();
}

const McDArray<std::string> &DicomDirectoryEntry::phases() const
{
    const DicomDirectoryEntry *const volume = m_level == Series ? largestChild() : nullptr;
    return volume ? volume->phases() : m_phases;
}

bool DicomDirectoryEntry::isComplete() const
{
    return !m_incomplete
        && std::all_of(m_children.begin(), m_children.end(),
            [](const auto &child) { return child->isComplete(); });
}

bool DicomDirectoryEntry::isExcluded() const
{
    return m_excluded || (m_parent && m_parent->isExcluded());
}

void DicomDirectoryEntry::addRemark(const std::string &remark)
{
    if (!m_remarks.contains(remark)) {
        m_remarks.append(remark);
    }
}

} // namespace Zel
