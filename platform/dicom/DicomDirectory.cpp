#include "platform/dicom/DicomDirectory.h"

namespace Zel {

DicomDirectory &DicomDirectory::instance()
{
    static DicomDirectory directory;
    return directory;
}

void DicomDirectory::setSelection(const Selection &entries)
{
    Selection chosen;
    for (const McHandle<DicomDirectoryEntry> &entry : entries) {
        if (entry) {
            chosen.append(entry);
        }
    }
    m_selection = chosen;
}

DicomDirectory::TemporarySelection::TemporarySelection(const Selection &entries)
    : m_before(instance().selection())
{
    instance().setSelection(entries);
}

DicomDirectory::TemporarySelection::~TemporarySelection()
{
    instance().setSelection(m_before);
}

} // namespace Zel
