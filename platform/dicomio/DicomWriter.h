#pragma once

#include "platform/dicomio/MovaraDicomIoExport.h"
#include "platform/util/HxParamBundle.h"
#include "platform/util/McFilename.h"

#include <cstddef>
#include <span>
#include <string>

/// Writes DICOM files, explicit VR little endian, texts in UTF-8. The same input gives the same
/// bytes. Any thread.
class MOVARA_DICOMIO_EXPORT DicomWriter
{
public:
    /// Writes @p file, replacing an earlier one.
    /// @param attributes keyed like "G0010-0010"; several values joined by backslashes. An
    /// attribute within a sequence is named by its path, e.g.
    /// "G5200-9230[0].G0020-9113[0].G0020-0032". The SOP class, SOP instance, study and series
    /// instance UID must be there.
    /// @param pixels the pixel data as the attributes describe it, little endian; empty for an
    /// object without pixels.
    /// @return why the file could not be written; empty when it was. Nothing is left behind then.
    [[nodiscard]] static std::string write(
        const McFilename &file, const HxParamBundle &attributes, std::span<const std::byte> pixels);
};
