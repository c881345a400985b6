#pragma once

#include "platform/dicomio/DicomCodec.h"

#include <vtkImageData.h>
#include <vtkSmartPointer.h>

/// Decodes by vtk-dicom, and by the codecs behind it.
class VtkFrameDecoder final : public DicomFrameDecoder
{
public:
    std::string decode(const DicomFileHeader &file, int frame, KxVolume::ScalarType type,
        std::vector<std::byte> &voxels) override;

private:
    std::string read(const DicomFileHeader &header);

    vtkSmartPointer<vtkImageData> m_image; ///< all frames of the file read last
    McFilename m_file;
};
