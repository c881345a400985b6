#pragma once

#include "platform/dicom/DicomDirectoryEntry.h"
#include "platform/dicomio/MovaraDicomIoExport.h"
#include "platform/render/KxImageSeries.h"
#include "platform/util/McDArray.h"
#include "platform/util/McHandle.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

/// Reads the volumes of a series: first where they lie and what they are, by the headers alone,
/// then slice by slice. Any thread, one at a time; blocks while it works. For a reader that works
/// in the background see DicomVolumeLoader.
class MOVARA_DICOMIO_EXPORT DicomVolumeReader
{
public:
    struct Slice
    {
        int phase = 0;
        int z = 0;
        /// The slice as KxVolume::slice() keeps it. Of a slice that could not be read: filled with
        /// the lowest value of the volume.
        std::vector<std::byte> bytes;
        /// Why the slice could not be read; empty when it was, and where there is no image (a gap).
        std::string problem;
        /// With a phase's first slice, when the headers tell no window: one that suits its values.
        std::optional<KxVolume::Window> window;
    };
    using SliceReceiver = std::function<void(Slice &&)>;

    DicomVolumeReader();
    ~DicomVolumeReader();
    DicomVolumeReader(const DicomVolumeReader &) = delete;
    DicomVolumeReader &operator=(const DicomVolumeReader &) = delete;

    /// Reads the headers and makes series(), its volumes filled with the background.
    /// @param entry a stored volume, or a series, of which the largest stored volume is read.
    /// @return false when there is nothing that can be read: see errorText().
    bool prepare(const Zel::DicomDirectoryEntry &entry, const std::stop_token &stop = {});
    /// Why prepare() failed; empty when it did not.
    [[nodiscard]] const std::string &errorText() const;
    /// What people should know about the volume; see DicomDirectoryEntry::remarks().
    [[nodiscard]] const McDArray<std::string> &remarks() const;
    /// The volumes, one a phase; null before prepare(). The reader does not touch their voxels once
    /// prepare() is done: whoever shows them copies the slices in, in its own thread.
    [[nodiscard]] const McHandle<KxImageSeries> &series() const;
    /// Slices of all phases together.
    [[nodiscard]] int numSlices() const;

    /// Decodes the slices and hands out each once: phase by phase, from the middle outwards; gaps
    /// and slices that could not be read at the very end.
    /// @return false when it was stopped before the end.
    bool readSlices(const SliceReceiver &receiver, const std::stop_token &stop = {});

private:
    class Private;
    std::unique_ptr<Private> d;
};
