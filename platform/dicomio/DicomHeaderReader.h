#pragma once

#include "platform/dicomio/MovaraDicomIoExport.h"
#include "platform/util/HxParamBundle.h"
#include "platform/util/McFilename.h"
#include "platform/util/McHandle.h"

/// Reads the header of one DICOM file into a bundle of texts. Any thread.
class MOVARA_DICOMIO_EXPORT DicomHeaderReader
{
public:
    /// All attributes of @p file that have a short text form, keyed like "G0010-0010", in UTF-8;
    /// several values are joined by backslashes. Of sequences only what describes the first image
    /// of a multi-frame file. Never reads the pixels. Null when the file is no DICOM file.
    [[nodiscard]] static McHandle<HxParamBundle> readHeader(const McFilename &file);
    /// Makes KxVolumeInfoCache::instance() read files with readHeader().
    static void install();
};
