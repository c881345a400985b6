#pragma once

#include "platform/dicomio/DicomFileHeader.h"
#include "platform/render/KxVolume.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

/// Decodes the pixels of single images into a volume's voxels: rescaled to the series' unit,
/// colours as red, green and blue, low-is-bright values turned around. Keeps the file read last, so
/// that the frames of a film are not decoded one by one. One thread at a time.
class DicomFrameDecoder
{
public:
    DicomFrameDecoder();
    ~DicomFrameDecoder();
    DicomFrameDecoder(const DicomFrameDecoder &) = delete;
    DicomFrameDecoder &operator=(const DicomFrameDecoder &) = delete;

    /// @param voxels receives the image, in rows from the top, of @p type.
    /// @return why the image cannot be decoded; empty when it was.
    std::string decode(const DicomFileHeader &file, int frame, KxVolume::ScalarType type,
        std::vector<std::byte> &voxels);

private:
    class Private;
    std::unique_ptr<Private> d;
};
