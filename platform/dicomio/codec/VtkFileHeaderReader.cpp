#include "platform/dicomio/codec/VtkFileHeaderReader.h"

#include "platform/dicomio/codec/DicomParsing.h"

#include <vtkDICOMDictionary.h>
#include <vtkDICOMItem.h>
#include <vtkDICOMTag.h>
#include <vtkDICOMTagPath.h>
#include <vtkDICOMValue.h>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <string_view>

namespace {

using Attribute = Zel::DicomDirectoryEntry::Attribute;

struct AttributeTag
{
    Attribute attribute;
    vtkDICOMTag tag;
};

const std::vector<AttributeTag> &attributeTags()
{
    static const std::vector<AttributeTag> tags{
        {Attribute::PatientName, DC::PatientName},
        {Attribute::PatientId, DC::PatientID},
        {Attribute::PatientBirthDate, DC::PatientBirthDate},
        {Attribute::PatientSex, DC::PatientSex},
        {Attribute::StudyUid, DC::StudyInstanceUID},
        {Attribute::StudyId, DC::StudyID},
        {Attribute::StudyDate, DC::StudyDate},
        {Attribute::StudyTime, DC::StudyTime},
        {Attribute::StudyDescription, DC::StudyDescription},
        {Attribute::AccessionNumber, DC::AccessionNumber},
        {Attribute::ReferringPhysician, DC::ReferringPhysicianName},
        {Attribute::SeriesUid, DC::SeriesInstanceUID},
        {Attribute::SeriesNumber, DC::SeriesNumber},
        {Attribute::SeriesDate, DC::SeriesDate},
        {Attribute::SeriesTime, DC::SeriesTime},
        {Attribute::SeriesDescription, DC::SeriesDescription},
        {Attribute::Modality, DC::Modality},
        {Attribute::BodyPart, DC::BodyPartExamined},
        {Attribute::ProtocolName, DC::ProtocolName},
        {Attribute::Manufacturer, DC::Manufacturer},
        {Attribute::FrameOfReferenceUid, DC::FrameOfReferenceUID},
        {Attribute::SopClassUid, DC::SOPClassUID},
        {Attribute::TransferSyntaxUid, DC::TransferSyntaxUID},
    };
    return tags;
}

constexpr const char *privateCreator = "SIEMENS MR HEADER";
/// The first block of its group and the b-value in it.
const vtkDICOMTag privateBlock(0x0019, 0x0010);
const vtkDICOMTag privateBValue(0x0019, 0x100c);

/// What else is looked at here, in the root or in functional groups: nothing else is kept of a
/// file.
const std::vector<vtkDICOMTag> &otherTags()
{
    static const std::vector<vtkDICOMTag> tags{DC::SpecificCharacterSet, DC::SOPInstanceUID,
        DC::InstanceNumber, DC::NumberOfSeriesRelatedInstances, DC::NumberOfStudyRelatedSeries,
        DC::NumberOfStudyRelatedInstances, DC::ImagesInAcquisition, DC::ReferencedSeriesSequence,
        DC::Columns, DC::Rows, DC::SamplesPerPixel, DC::BitsAllocated, DC::BitsStored,
        DC::PixelRepresentation, DC::PhotometricInterpretation, DC::RescaleType, DC::Units,
        DC::SliceThickness, DC::SpacingBetweenSlices, DC::NumberOfFrames, DC::PixelSpacing,
        DC::ImagerPixelSpacing, DC::NominalScannedPixelSpacing, DC::ImagePositionPatient,
        DC::ImageOrientationPatient, DC::RescaleSlope, DC::RescaleIntercept, DC::WindowCenter,
        DC::WindowWidth, DC::DiffusionBValue, DC::SequenceName, DC::TemporalPositionIndex,
        DC::TemporalPositionIdentifier, DC::EffectiveEchoTime, DC::EchoTime,
        DC::NominalCardiacTriggerDelayTime, DC::TriggerTime, DC::NominalPercentageOfCardiacPhase,
        DC::InversionTime, DC::ComplexImageComponent, DC::ImageType, DC::AcquisitionNumber,
        DC::FrameAcquisitionDateTime, DC::AcquisitionDateTime, DC::AcquisitionTime, DC::ContentTime,
        DC::DirectoryRecordSequence, DC::ModalityLUTSequence, DC::SequenceOfUltrasoundRegions,
        DC::SharedFunctionalGroupsSequence, DC::PerFrameFunctionalGroupsSequence};
    return tags;
}

/// A new one each time: copies share their values, whose counts of references are not atomic.
vtkDICOMItem wantedAttributes()
{
    vtkDICOMItem item;
    const auto add = [&item](vtkDICOMTag tag) {
        const vtkDICOMVR vr = vtkDICOMDictionary::FindDictEntry(tag).GetVR();
        item.Set(tag, vtkDICOMValue(vr));
    };
    for (const auto &[attribute, tag] : attributeTags()) {
        add(tag);
    }
    for (const vtkDICOMTag tag : otherTags()) {
        add(tag);
    }
    // Wherever a file has that maker's private attributes.
    item.Set(privateBlock, vtkDICOMValue(vtkDICOMVR::LO, privateCreator));
    item.Set(privateBValue, vtkDICOMValue(vtkDICOMVR::IS));
    return item;
}

/// A number among several. The library reads each through a text stream, which takes longer than
/// all else; it is left what does not look like a number.
double numberAt(const vtkDICOMValue &value, std::size_t index)
{
    const char *const all = value.GetCharData();
    std::string_view text(all != nullptr ? all : "", all != nullptr ? value.GetVL() : 0);
    for (std::size_t i = 0; i < index && !text.empty(); ++i) {
        text.remove_prefix(std::min(text.find('\\'), text.size() - 1) + 1);
    }
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    const std::size_t digits = text.starts_with('-') ? 1 : 0;
    double number = 0;
    const bool isNumber = text.size() > digits
        && std::isdigit(static_cast<unsigned char>(text[digits])) != 0
        && std::from_chars(text.data(), text.data() + text.size(), number).ec == std::errc();
    return isNumber ? number : value.GetDouble(index);
}

/// Looks attributes up for one frame: in its own functional groups, the shared ones, the root.
class FrameLookUp
{
public:
    FrameLookUp(vtkDICOMMetaData *data, int frame)
        : m_data(data)
        , m_frame(frame)
    { }

    [[nodiscard]] const vtkDICOMValue &value(vtkDICOMTag tag) const
    {
        return m_data->Get(0, m_frame, tag);
    }
    [[nodiscard]] std::string text(vtkDICOMTag tag) const { return value(tag).AsUTF8String(); }
    [[nodiscard]] double number(vtkDICOMTag tag, std::size_t index = 0) const
    {
        const vtkDICOMValue &found = value(tag);
        const bool present
            = found.IsValid() && index < found.GetNumberOfValues() && found.GetVL() > 0;
        const double result = present ? numberAt(found, index) : unknownNumber;
        return std::isfinite(result) ? result : unknownNumber;
    }
    [[nodiscard]] double number(vtkDICOMTag tag, std::size_t index, double otherwise) const
    {
        const double result = number(tag, index);
        return std::isnan(result) ? otherwise : result;
    }
    [[nodiscard]] bool vector(vtkDICOMTag tag, std::size_t first, McVec3d &result) const
    {
        const McVec3d read{number(tag, first), number(tag, first + 1), number(tag, first + 2)};
        const bool complete = !std::isnan(read.x) && !std::isnan(read.y) && !std::isnan(read.z);
        if (complete) {
            result = read;
        }
        return complete;
    }
    /// The first of @p tags that has a text.
    [[nodiscard]] std::string firstText(std::initializer_list<vtkDICOMTag> tags) const
    {
        for (const vtkDICOMTag tag : tags) {
            std::string found = text(tag);
            if (!found.empty()) {
                return found;
            }
        }
        return {};
    }
    [[nodiscard]] vtkDICOMMetaData *data() const { return m_data; }

private:
    vtkDICOMMetaData *m_data;
    int m_frame;
};

/// Digits that follow a "b" in the name of a diffusion sequence, as in "ep_b1000t".
std::string bValueOfSequenceName(const std::string &name)
{
    const std::size_t mark = name.find("_b");
    if (mark == std::string::npos || name.rfind("ep", 1) == std::string::npos) {
        return {};
    }
    std::size_t end = mark + 2;
    while (end < name.size() && std::isdigit(static_cast<unsigned char>(name[end]))) {
        ++end;
    }
    return name.substr(mark + 2, end - mark - 2);
}

std::string bValue(const FrameLookUp &look)
{
    std::string text = look.text(DC::DiffusionBValue);
    if (text.empty()) {
        const vtkDICOMTag tag
            = look.data()->ResolvePrivateTag(vtkDICOMTag(0x0019, 0x000c), privateCreator);
        text = look.text(tag);
    }
    return text.empty() ? bValueOfSequenceName(look.text(DC::SequenceName)) : text;
}

/// A number in its shortest form, since devices write 500, 500.0 and 5e2 side by side.
std::string shortened(const std::string &text)
{
    char *end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    if (text.empty() || *end != '\0') {
        return text;
    }
    std::array<char, 32> result{};
    std::snprintf(result.data(), result.size(), "%.10g", value);
    return result.data();
}

void readPhaseTexts(const FrameLookUp &look, DicomFrame &frame)
{
    const auto set = [&frame](PhaseAttribute attribute, const std::string &text) {
        frame.phaseTexts[static_cast<std::size_t>(attribute)] = text;
    };
    set(PhaseAttribute::BValue, shortened(bValue(look)));
    set(PhaseAttribute::TemporalPosition,
        shortened(look.firstText({DC::TemporalPositionIndex, DC::TemporalPositionIdentifier})));
    set(PhaseAttribute::EchoTime, shortened(look.firstText({DC::EffectiveEchoTime, DC::EchoTime})));
    set(PhaseAttribute::TriggerTime,
        shortened(look.firstText({DC::NominalCardiacTriggerDelayTime, DC::TriggerTime})));
    set(PhaseAttribute::CardiacPhase, shortened(look.text(DC::NominalPercentageOfCardiacPhase)));
    set(PhaseAttribute::InversionTime, shortened(look.text(DC::InversionTime)));
    set(PhaseAttribute::ImageType, look.firstText({DC::ComplexImageComponent, DC::ImageType}));
    set(PhaseAttribute::AcquisitionNumber, shortened(look.text(DC::AcquisitionNumber)));
    set(PhaseAttribute::AcquisitionTime,
        look.firstText({DC::FrameAcquisitionDateTime, DC::AcquisitionDateTime, DC::AcquisitionTime,
            DC::ContentTime}));
}

/// Pixel spacing of ultrasound, told per region in cm.
void readRegionSpacing(const FrameLookUp &look, DicomFrame &frame)
{
    const vtkDICOMTag regions = DC::SequenceOfUltrasoundRegions;
    constexpr int centimetres = 3;
    const auto at = [&look, regions](vtkDICOMTag tag) {
        return look.data()->Get(0, vtkDICOMTagPath(regions, 0, tag));
    };
    if (at(DC::PhysicalUnitsXDirection).AsInt() != centimetres
        || at(DC::PhysicalUnitsYDirection).AsInt() != centimetres) {
        return;
    }
    frame.columnSpacing = std::abs(at(DC::PhysicalDeltaX).AsDouble()) * 10;
    frame.rowSpacing = std::abs(at(DC::PhysicalDeltaY).AsDouble()) * 10;
}

void readSpacing(const FrameLookUp &look, DicomFrame &frame)
{
    for (const vtkDICOMTag tag : {vtkDICOMTag(DC::PixelSpacing),
             vtkDICOMTag(DC::ImagerPixelSpacing), vtkDICOMTag(DC::NominalScannedPixelSpacing)}) {
        frame.rowSpacing = look.number(tag, 0);
        frame.columnSpacing = look.number(tag, 1);
        if (frame.rowSpacing > 0 && frame.columnSpacing > 0) {
            return;
        }
    }
    readRegionSpacing(look, frame);
    if (!(frame.rowSpacing > 0 && frame.columnSpacing > 0)) {
        frame.rowSpacing = unknownNumber;
        frame.columnSpacing = unknownNumber;
    }
}

/// The place of an image counts only when it is complete and its axes stand upright on each other.
void readPosition(const FrameLookUp &look, DicomFrame &frame)
{
    McVec3d right;
    McVec3d down;
    const bool complete = look.vector(DC::ImagePositionPatient, 0, frame.position)
        && look.vector(DC::ImageOrientationPatient, 0, right)
        && look.vector(DC::ImageOrientationPatient, 3, down);
    constexpr double slack = 0.02;
    if (!complete || std::abs(right.length() - 1) > slack || std::abs(down.length() - 1) > slack
        || std::abs(right.dot(down)) > slack || std::isnan(frame.rowSpacing)) {
        return;
    }
    frame.hasPosition = true;
    frame.rightwards = right.normalized();
    frame.downwards = down.normalized();
}

DicomFrame readFrame(vtkDICOMMetaData *data, int index)
{
    const FrameLookUp look(data, index);
    DicomFrame frame;
    readSpacing(look, frame);
    readPosition(look, frame);
    frame.slope = look.number(DC::RescaleSlope, 0, 1);
    if (frame.slope == 0) {
        frame.slope = 1; // seen in the wild; taken literally it would wipe the image out
    }
    frame.intercept = look.number(DC::RescaleIntercept, 0, 0);
    frame.windowCenter = look.number(DC::WindowCenter);
    frame.windowWidth = look.number(DC::WindowWidth);
    readPhaseTexts(look, frame);
    return frame;
}

/// Radiotherapy objects and the like may carry pixels, but nothing to be shown as an image.
bool isImageModality(const std::string &modality)
{
    static const std::vector<std::string> others{"PR", "KO", "SR", "SEG", "REG", "FID", "DOC",
        "PLAN", "ECG", "EPS", "HD", "AU", "RWV", "SMR", "STAIN"};
    return modality.rfind("RT", 0) != 0
        && std::find(others.begin(), others.end(), modality) == others.end();
}

std::string readUnit(vtkDICOMMetaData *data, const std::string &modality)
{
    const std::string type = data->Get(0, 0, DC::RescaleType).AsUTF8String();
    if (type == "US") { // "unspecified", of a CT too: some keep stored values without an offset
        return {};
    }
    if (modality == "CT") {
        return "HU";
    }
    return type.empty() ? data->Get(0, DC::Units).AsUTF8String() : type;
}

void readPixelFormat(vtkDICOMMetaData *data, DicomFileHeader &header)
{
    header.columns = data->Get(0, DC::Columns).AsInt();
    header.rows = data->Get(0, DC::Rows).AsInt();
    header.samplesPerPixel = std::max(data->Get(0, DC::SamplesPerPixel).AsInt(), 1);
    header.bitsAllocated = data->Get(0, DC::BitsAllocated).AsInt();
    const int stored = data->Get(0, DC::BitsStored).AsInt();
    header.bitsStored = stored > 0 ? std::min(stored, header.bitsAllocated) : header.bitsAllocated;
    header.isSigned = data->Get(0, DC::PixelRepresentation).AsInt() == 1;
    header.photometric = data->Get(0, DC::PhotometricInterpretation).AsString();
    header.unit = readUnit(data, header.text(Attribute::Modality));
    header.hasModalityTable = data->Has(DC::ModalityLUTSequence);
    const FrameLookUp look(data, 0);
    header.sliceThickness = look.number(DC::SliceThickness);
    header.sliceSpacing = look.number(DC::SpacingBetweenSlices);
}

/// Bytes that @p frames uncompressed images take.
std::int64_t rawSize(const DicomFileHeader &header, std::int64_t frames)
{
    const std::int64_t bits = std::int64_t(header.columns) * header.rows * header.samplesPerPixel
        * header.bitsAllocated * frames;
    return (bits + 7) / 8;
}

/// Whether the file can hold what it announces. A damaged header must not make anybody ask for
/// gigabytes of memory.
bool isPlausibleSize(const DicomFileHeader &header, std::int64_t frames, std::int64_t available)
{
    constexpr std::int64_t bestCompression = 4000;
    constexpr std::int64_t bytesAtLeast = 8;
    if (frames > std::max<std::int64_t>(available / bytesAtLeast, 1)) {
        return false;
    }
    const std::int64_t ratio = header.isCompressed ? bestCompression : 16;
    return rawSize(header, frames) / ratio <= std::max<std::int64_t>(available, 4096);
}

std::string pixelFormatError(const DicomFileHeader &header)
{
    if (header.columns <= 0 || header.rows <= 0 || header.bitsAllocated <= 0) {
        return "The image has no size.";
    }
    if (header.samplesPerPixel != 1 && header.samplesPerPixel != 3) {
        return "Images with " + std::to_string(header.samplesPerPixel)
            + " values per pixel cannot be shown.";
    }
    if (header.bitsAllocated > 32) {
        return "Images with " + std::to_string(header.bitsAllocated)
            + " bits per value cannot be shown.";
    }
    return {};
}

void readImage(const ParsedDicom &parsed, DicomFileHeader &header)
{
    readPixelFormat(parsed.data, header);
    header.error = pixelFormatError(header);
    if (!header.error.empty()) {
        return;
    }
    const std::int64_t frames = std::max(parsed.data->Get(0, DC::NumberOfFrames).AsInt(), 1);
    constexpr std::uint32_t delimited = 0xffffffffU;
    header.isCompressed = parsed.pixelDataLength == delimited;
    header.isDeflated = isDeflated(parsed.data);
    std::int64_t available = parsed.fileSize - parsed.pixelDataOffset;
    if (!header.isCompressed) {
        available = std::min<std::int64_t>(available, parsed.pixelDataLength);
    }
    if (!isPlausibleSize(header, frames, available)) {
        header.error = "The file is far too short for the image that it announces.";
        return;
    }
    header.isCutShort = !header.isCompressed && available < rawSize(header, frames);
    header.isImage = true;
    header.frames.reserve(static_cast<std::size_t>(frames));
    for (int frame = 0; frame < frames; ++frame) {
        header.frames.push_back(readFrame(parsed.data, frame));
    }
}

/// The texts of a series' files are mostly the same ones: only what differs from the series' last
/// file is converted.
class TextReader
{
public:
    const std::shared_ptr<const DicomFileHeader::Texts> &read(vtkDICOMMetaData *data)
    {
        Known &known = knownOf(data->Get(0, DC::SeriesInstanceUID));
        bool isSame = known.texts != nullptr;
        for (std::size_t i = 0; i < attributeTags().size(); ++i) {
            const vtkDICOMValue &found = data->Get(0, attributeTags()[i].tag);
            vtkDICOMValue &value = known.values[i];
            if (!(found == value) || found.GetCharacterSet() != value.GetCharacterSet()) {
                value = found;
                isSame = false;
            }
        }
        if (!isSame) {
            known.texts = converted(known.values);
        }
        return known.texts;
    }

private:
    /// In the order of attributeTags().
    using Values = std::array<vtkDICOMValue, static_cast<std::size_t>(Attribute::Count)>;
    struct Known
    {
        Values values;
        std::shared_ptr<const DicomFileHeader::Texts> texts;
    };

    Known &knownOf(const vtkDICOMValue &uid)
    {
        const char *const chars = uid.GetCharData();
        const std::string_view key(chars ? chars : "", chars ? uid.GetVL() : 0);
        const auto found = m_known.find(key);
        if (found != m_known.end()) {
            return found->second;
        }
        constexpr std::size_t most = 1000;
        if (m_known.size() == most) {
            m_known.clear();
        }
        return m_known[std::string(key)];
    }

    static std::shared_ptr<const DicomFileHeader::Texts> converted(const Values &values)
    {
        auto texts = std::make_shared<DicomFileHeader::Texts>();
        for (std::size_t i = 0; i < attributeTags().size(); ++i) {
            const Attribute attribute = attributeTags()[i].attribute;
            (*texts)[static_cast<std::size_t>(attribute)] = values[i].AsUTF8String();
        }
        return texts;
    }

    std::map<std::string, Known, std::less<>> m_known; ///< under the UIDs of series
};

void readIdentity(vtkDICOMMetaData *data, DicomFileHeader &header)
{
    header.sopInstanceUid = data->Get(0, DC::SOPInstanceUID).AsString();
    const vtkDICOMValue &number = data->Get(0, DC::InstanceNumber);
    if (!number.AsString().empty()) {
        header.instanceNumber = number.AsInt();
    }
    const vtkDICOMValue &referenced = data->Get(0, DC::ReferencedSeriesSequence);
    if (const vtkDICOMItem *const series = referenced.GetSequenceData();
        series != nullptr && referenced.GetNumberOfValues() > 0) {
        header.referencedSeriesUid = series->Get(DC::SeriesInstanceUID).AsString();
    }
    header.announcedInSeries = data->Get(0, DC::NumberOfSeriesRelatedInstances).AsInt();
    header.announcedInStudy = data->Get(0, DC::NumberOfStudyRelatedInstances).AsInt();
    header.announcedSeriesInStudy = data->Get(0, DC::NumberOfStudyRelatedSeries).AsInt();
    header.isDerived = data->Get(0, DC::ImageType).AsString().rfind("DERIVED", 0) == 0;
    header.announcedInAcquisition = data->Get(0, DC::ImagesInAcquisition).AsInt();
    header.isMediaDirectory = header.text(Attribute::SopClassUid) == "1.2.840.10008.1.3.10"
        || data->Has(DC::DirectoryRecordSequence);
}

std::string damagedHeader(const std::string &reason)
{
    return reason.empty() ? "The header is damaged." : "The header is damaged: " + reason;
}

/// Why a file in which nothing was found cannot be used.
std::string reasonOfNothing(const McFilename &file, const std::string &parserError)
{
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        std::error_code error;
        return std::filesystem::exists(file, error) ? "The file cannot be read."
                                                    : "The file is no longer there.";
    }
    std::array<char, 132> start{};
    const bool hasDicomMark = stream.read(start.data(), start.size())
        && std::string_view(start.data() + 128, 4) == "DICM";
    return hasDicomMark ? damagedHeader(parserError) : "This is not a DICOM file.";
}

} // namespace

class VtkFileHeaderReader::Private
{
public:
    const vtkDICOMItem wanted = wantedAttributes();
    DicomParser parser{&wanted};
    TextReader texts;
};

VtkFileHeaderReader::VtkFileHeaderReader()
    : d(std::make_unique<Private>())
{ }

VtkFileHeaderReader::~VtkFileHeaderReader() = default;

void VtkFileHeaderReader::read(DicomFileHeader &header)
{
    ParsedDicom parsed = d->parser.parse(header.file);
    if (!parsed.pixelDataFound) {
        parsed = parseDicom(header.file); // Damage in what is passed over would not be seen.
    }
    header.texts = d->texts.read(parsed.data);
    readIdentity(parsed.data, header);
    const bool nothingFound = header.text(Attribute::SopClassUid).empty()
        && header.sopInstanceUid.empty() && header.text(Attribute::StudyUid).empty()
        && !parsed.pixelDataFound;
    if (nothingFound && !header.isMediaDirectory) {
        header.error = reasonOfNothing(header.file, parsed.error);
        return;
    }
    if (!parsed.error.empty() && !parsed.pixelDataFound) {
        header.error = damagedHeader(parsed.error);
        return;
    }
    if (parsed.pixelDataFound && isImageModality(header.text(Attribute::Modality))) {
        readImage(parsed, header);
    }
}
