#include "platform/dicomio/DicomCodec.h"

#include "platform/util/McModule.h"

#include <utility>

namespace {

const McModule &codecModule()
{
    static const McModule module("MovaraDicomCodec");
    return module;
}

class MissingFileHeaderReader final : public DicomFileHeaderReader
{
public:
    void read(DicomFileHeader &header) override { header.error = DicomCodec::problem(); }
};

class MissingFrameDecoder final : public DicomFrameDecoder
{
public:
    std::string decode(
        const DicomFileHeader &, int, KxVolume::ScalarType, std::vector<std::byte> &) override
    {
        return DicomCodec::problem();
    }
};

/// Stands where the module cannot be loaded.
class MissingCodec final : public DicomCodec
{
public:
    std::unique_ptr<DicomFileHeaderReader> makeFileHeaderReader() override
    {
        return std::make_unique<MissingFileHeaderReader>();
    }
    McHandle<HxParamBundle> readHeader(const McFilename &) override { return nullptr; }
    DicomAttributes readAttributes(const McFilename &) override { return {{}, problem()}; }
    std::vector<McFilename> listedFiles(const McFilename &) override { return {}; }
    std::string write(
        const McFilename &, const HxParamBundle &, std::span<const std::byte>) override
    {
        return problem();
    }
    std::unique_ptr<DicomFrameDecoder> makeFrameDecoder() override
    {
        return std::make_unique<MissingFrameDecoder>();
    }
};

} // namespace

DicomCodec &DicomCodec::instance()
{
    static const std::unique_ptr<DicomCodec> codec = [] {
        auto made = codecModule().make<DicomCodec>();
        return made ? std::move(made) : std::make_unique<MissingCodec>();
    }();
    return *codec;
}

const std::string &DicomCodec::problem()
{
    return codecModule().problem();
}

McFilename DicomCodec::file()
{
    return codecModule().file();
}
