#pragma once

#include "platform/dicomio/DicomCodec.h"

/// Reads and writes by vtk-dicom. Each function that is not short has a source of its own, named
/// after it.
class VtkDicomCodec final : public DicomCodec
{
public:
    VtkDicomCodec();

    std::unique_ptr<DicomFileHeaderReader> makeFileHeaderReader() override;
    McHandle<HxParamBundle> readHeader(const McFilename &file) override;
    DicomAttributes readAttributes(const McFilename &file) override;
    std::vector<McFilename> listedFiles(const McFilename &mediaDirectory) override;
    std::string write(const McFilename &file, const HxParamBundle &attributes,
        std::span<const std::byte> pixels) override;
    std::unique_ptr<DicomFrameDecoder> makeFrameDecoder() override;
};
