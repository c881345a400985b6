#include "platform/dicomio/DicomWriter.h"

#include "platform/dicomio/DicomCodec.h"

std::string DicomWriter::write(
    const McFilename &file, const HxParamBundle &attributes, std::span<const std::byte> pixels)
{
    return DicomCodec::instance().write(file, attributes, pixels);
}
