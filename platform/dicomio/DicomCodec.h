#pragma once

#include "platform/dicomio/DicomAttributes.h"
#include "platform/dicomio/DicomFileHeader.h"
#include "platform/dicomio/MovaraDicomIoExport.h"
#include "platform/render/KxVolume.h"
#include "platform/util/HxParamBundle.h"
#include "platform/util/McFilename.h"
#include "platform/util/McHandle.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <vector>

/// Decodes the pixels of single images into a volume's voxels: rescaled to the series' unit,
/// colours as red, green and blue, low-is-bright values turned around. Keeps the file read last, so
/// that the frames of a film are not decoded one by one. One thread at a time.
class MOVARA_DICOMIO_EXPORT DicomFrameDecoder
{
public:
    virtual ~DicomFrameDecoder() = default;

    /// @param voxels receives the image, in rows from the top, of @p type.
    /// @return why the image cannot be decoded; empty when it was.
    virtual std::string decode(const DicomFileHeader &file, int frame, KxVolume::ScalarType type,
        std::vector<std::byte> &voxels)
        = 0;
};

/// Reads what the directory and the volume reader need of files' headers, one after the other;
/// never the pixels. One thread at a time.
class MOVARA_DICOMIO_EXPORT DicomFileHeaderReader
{
public:
    virtual ~DicomFileHeaderReader() = default;

    /// @param header fresh, but with the name of the file.
    virtual void read(DicomFileHeader &header) = 0;
};

/// All that this library has others do for it: taking single files apart and putting them together.
/// Behind it stands a module (see McModule), since the libraries that do it take longer to load
/// than a program with an empty window takes to start. Exported, though private, so that library
/// and module have one and the same type. Any thread, several at once.
class MOVARA_DICOMIO_EXPORT DicomCodec
{
public:
    virtual ~DicomCodec() = default;

    /// The one of the process. The first call loads the module; without it there is one that
    /// answers everything with problem().
    static DicomCodec &instance();
    /// Why no file can be read or written at all; empty when files can be.
    [[nodiscard]] static const std::string &problem();
    /// The file of the module.
    [[nodiscard]] static McFilename file();

    virtual std::unique_ptr<DicomFileHeaderReader> makeFileHeaderReader() = 0;
    /// See DicomHeaderReader::readHeader().
    virtual McHandle<HxParamBundle> readHeader(const McFilename &file) = 0;
    /// See DicomAttributes::read().
    virtual DicomAttributes readAttributes(const McFilename &file) = 0;
    /// The files that a media directory lists, as it names them: relative to its own folder.
    virtual std::vector<McFilename> listedFiles(const McFilename &mediaDirectory) = 0;
    /// See DicomWriter::write().
    virtual std::string write(
        const McFilename &file, const HxParamBundle &attributes, std::span<const std::byte> pixels)
        = 0;
    virtual std::unique_ptr<DicomFrameDecoder> makeFrameDecoder() = 0;
};
