#pragma once

#include "platform/dicomio/DicomCodec.h"

#include <memory>

/// Reads by vtk-dicom. Keeps its parser, and the texts of the series it has met.
class VtkFileHeaderReader final : public DicomFileHeaderReader
{
public:
    VtkFileHeaderReader();
    ~VtkFileHeaderReader() override;
    VtkFileHeaderReader(const VtkFileHeaderReader &) = delete;
    VtkFileHeaderReader &operator=(const VtkFileHeaderReader &) = delete;

    void read(DicomFileHeader &header) override;

private:
    class Private;
    std::unique_ptr<Private> d;
};
