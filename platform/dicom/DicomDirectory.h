#pragma once

#include "platform/MovaraPlatformExport.h"
#include "platform/dicom/DicomDirectoryEntry.h"
#include "platform/util/McDArray.h"
#include "platform/util/McHandle.h"

namespace Zel {

/// What is chosen in the DICOM directory: whoever shows the directory fills it, whoever loads asks
/// it. One in the process. GUI thread only.
class MOVARA_PLATFORM_EXPORT DicomDirectory
{
public:
    using Selection = McDArray<McHandle<DicomDirectoryEntry>>;

    static DicomDirectory &instance();
    DicomDirectory(const DicomDirectory &) = delete;
    DicomDirectory &operator=(const DicomDirectory &) = delete;

    /// Entries of any level, in the order chosen; empty at first.
    [[nodiscard]] const Selection &selection() const { return m_selection; }
    /// Replaces the selection; null entries are left out.
    void setSelection(const Selection &entries);

    /// Puts other entries in the place of the selection for a scope, and gives the selection back.
    class MOVARA_PLATFORM_EXPORT TemporarySelection
    {
    public:
        explicit TemporarySelection(const Selection &entries);
        ~TemporarySelection();
        TemporarySelection(const TemporarySelection &) = delete;
        TemporarySelection &operator=(const TemporarySelection &) = delete;

    private:
        Selection m_before;
    };

private:
    DicomDirectory() = default;
    ~DicomDirectory() = default;

    Selection m_selection;
};

} // namespace Zel
