#pragma once

#include "platform/dicomio/MovaraDicomIoExport.h"
#include "platform/util/McFilename.h"

#include <string>
#include <vector>

/// One line of a DICOM header as people read it. All texts are UTF-8. A plain value.
struct DicomAttribute
{
    std::string tag; ///< e.g. "(0010,0010)"; of an item of a sequence "Item 1"
    std::string name; ///< as the dictionary has it; empty for an unknown private attribute
    std::string vr; ///< two letters; empty for an item
    /// Several values are joined by backslashes. Long lists end in "…"; of binary data and of
    /// sequences only the size is told.
    std::string value;
    /// The items of a sequence, the attributes of an item.
    std::vector<DicomAttribute> children;
};

/// All that the header of one DICOM file says, for people to look at. Any thread.
class MOVARA_DICOMIO_EXPORT DicomAttributes
{
public:
    /// In the order of the tags; ends with a line for the pixels, which are never read.
    std::vector<DicomAttribute> attributes;
    /// Why the header could not be read to its end; empty when it could.
    std::string error;

    [[nodiscard]] static DicomAttributes read(const McFilename &file);
};
