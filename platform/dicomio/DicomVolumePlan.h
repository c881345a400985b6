#pragma once

#include "platform/dicomio/DicomFileHeader.h"
#include "platform/dicomio/DicomPhases.h"
#include "platform/render/KxVolume.h"
#include "platform/util/McTransform3d.h"

#include <array>
#include <string>
#include <vector>

/// How one slice of a volume is made: from one image, from two with weights, or from none (a hole).
struct DicomSliceRecipe
{
    struct Source
    {
        DicomStackImage image;
        double weight = 0;
    };
    std::vector<Source> sources;
};

/// How the images of a series become one stored volume: its grid, its phases, its voxels.
struct DicomVolumePlan
{
    struct Phase
    {
        std::string label;
        std::vector<DicomSliceRecipe> slices;
        KxVolume::Window window;
        /// Whether the headers tell the window; otherwise it is a guess from the range of values.
        bool isWindowKnown = false;
    };

    std::string uid; ///< SOP instance UID of the first image
    std::array<int, 3> dimensions{};
    McTransform3d voxelToPatient;
    KxVolume::Placement placement = KxVolume::Placement::Patient;
    KxVolume::ScalarType scalarType = KxVolume::ScalarType::Int16;
    int components = 1;
    std::string unit;
    /// Stands where no image has been read yet.
    double background = 0;
    std::vector<Phase> phases;
    /// Files in the order of phases and slices, each once.
    std::vector<const DicomFileHeader *> files;
    int numImages = 0;
    bool isComplete = true;
    std::vector<std::string> remarks;
    /// Why these images make no volume; empty when they do.
    std::string refusal;
};

/// Plans the volumes of one series: images on the same grid come together, others apart (scouts).
/// Ordered by the lowest instance number. @param files must outlive the plans.
std::vector<DicomVolumePlan> planVolumes(const std::vector<const DicomFileHeader *> &files);
