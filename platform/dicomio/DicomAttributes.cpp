#include "platform/dicomio/DicomAttributes.h"

#include "platform/dicomio/DicomCodec.h"

DicomAttributes DicomAttributes::read(const McFilename &file)
{
    return DicomCodec::instance().readAttributes(file);
}
