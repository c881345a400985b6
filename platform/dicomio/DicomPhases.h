#pragma once

#include "platform/dicomio/DicomFileHeader.h"

#include <string>
#include <vector>

/// One image of a stack: where it stands in the stack and what tells it from others there.
struct DicomStackImage
{
    const DicomFileHeader *file = nullptr;
    int frameIndex = 0;
    /// Number of its position along the stack's normal, from 0.
    int location = 0;

    [[nodiscard]] const DicomFrame &frame() const
    {
        return file->frames[static_cast<std::size_t>(frameIndex)];
    }
};

/// Images of which no two share a position, in the order of their positions.
struct DicomPhase
{
    std::string label;
    std::vector<DicomStackImage> images;
};

struct DicomPhases
{
    /// All with the same positions; at least one.
    std::vector<DicomPhase> phases;
    /// Images that repeat positions and make no complete phase.
    std::vector<DicomStackImage> leftOver;
};

/// Sorts the images of one stack into phases: by what tells the volumes of a series apart (b-value,
/// time, echo, ...), else, and always for images without a place, by the order of acquisition.
/// @param images at least one.
/// @param rankLabel what a phase is called that only its order tells, e.g. "t".
DicomPhases sortIntoPhases(
    const std::vector<DicomStackImage> &images, const std::string &rankLabel);
