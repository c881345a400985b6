#include "platform/dicomio/DicomHeaderReader.h"

#include "platform/dicom/KxVolumeInfoCache.h"
#include "platform/dicomio/DicomCodec.h"

McHandle<HxParamBundle> DicomHeaderReader::readHeader(const McFilename &file)
{
    return DicomCodec::instance().readHeader(file);
}

void DicomHeaderReader::install()
{
    KxVolumeInfoCache::instance().setHeaderReader(&DicomHeaderReader::readHeader);
}
