#pragma once

#include "platform/dicom/DicomDirectoryEntry.h"
#include "platform/util/McFilename.h"
#include "platform/util/McVec3d.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <vector>

constexpr double unknownNumber = std::numeric_limits<double>::quiet_NaN();

/// What may tell images at one position apart, in the order in which it is tried.
enum class PhaseAttribute {
    BValue,
    TemporalPosition,
    EchoTime,
    TriggerTime,
    CardiacPhase,
    InversionTime,
    ImageType,
    AcquisitionNumber,
    AcquisitionTime,
    Count
};

/// One image of a file.
struct DicomFrame
{
    bool hasPosition = false;
    McVec3d position; ///< centre of the first pixel, mm
    McVec3d rightwards{1, 0, 0}; ///< unit vector along the rows
    McVec3d downwards{0, 1, 0}; ///< unit vector along the columns
    double columnSpacing = unknownNumber; ///< mm from pixel to pixel along a row
    double rowSpacing = unknownNumber;
    double slope = 1;
    double intercept = 0;
    double windowCenter = unknownNumber;
    double windowWidth = unknownNumber;
    std::array<std::string, static_cast<std::size_t>(PhaseAttribute::Count)> phaseTexts;

    [[nodiscard]] const std::string &phaseText(PhaseAttribute attribute) const
    {
        return phaseTexts[static_cast<std::size_t>(attribute)];
    }
};

/// What the directory and the volume reader need of one file's header.
struct DicomFileHeader
{
    using Attribute = Zel::DicomDirectoryEntry::Attribute;
    using Texts = std::array<std::string, static_cast<std::size_t>(Attribute::Count)>;

    McFilename file;
    /// Why the file cannot be used at all; empty when it can.
    std::string error;
    /// Shared by files that have the same, as those of a series mostly do.
    std::shared_ptr<const Texts> texts = noTexts();
    std::string sopInstanceUid;
    /// Of a presentation state: the series whose images it is about, or the first of them.
    std::string referencedSeriesUid;
    bool isMediaDirectory = false;
    bool isImage = false;
    /// The file ends before the pixels do.
    bool isCutShort = false;
    bool isCompressed = false;
    /// The whole data set is deflated, pixels and all.
    bool isDeflated = false;
    bool hasModalityTable = false;

    int columns = 0;
    int rows = 0;
    int samplesPerPixel = 1;
    int bitsAllocated = 16;
    int bitsStored = 16;
    bool isSigned = false;
    std::string photometric;
    std::string unit;
    double sliceThickness = unknownNumber;
    double sliceSpacing = unknownNumber;
    int instanceNumber = -1; ///< -1 when unknown
    int announcedInSeries = 0; ///< 0 when the header says nothing
    int announcedInAcquisition = 0;
    int announcedInStudy = 0;
    int announcedSeriesInStudy = 0;
    /// Computed from other images rather than acquired.
    bool isDerived = false;
    std::vector<DicomFrame> frames; ///< empty when this is no image

    [[nodiscard]] const std::string &text(Attribute attribute) const
    {
        return (*texts)[static_cast<std::size_t>(attribute)];
    }
    [[nodiscard]] static const std::shared_ptr<const Texts> &noTexts()
    {
        static const auto none = std::make_shared<const Texts>();
        return none;
    }
    [[nodiscard]] bool isColour() const
    {
        return samplesPerPixel > 1 || photometric == "PALETTE COLOR";
    }
    /// Whether low values are meant to be bright.
    [[nodiscard]] bool isInverted() const { return photometric == "MONOCHROME1"; }
    [[nodiscard]] int lowestStored() const
    {
        return isSigned ? -(1 << (std::min(bitsStored, 31) - 1)) : 0;
    }
    [[nodiscard]] int highestStored() const
    {
        const int bits = std::min(bitsStored, 31) - (isSigned ? 1 : 0);
        return static_cast<int>((std::int64_t(1) << bits) - 1);
    }
};
