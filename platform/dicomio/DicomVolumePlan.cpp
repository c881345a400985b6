#include "platform/dicomio/DicomVolumePlan.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <set>

namespace {

using Attribute = DicomFileHeader::Attribute;

struct PlacedImage
{
    DicomStackImage image;
    /// Position along the rows, the columns and the normal, in mm.
    double across = 0;
    double down = 0;
    double along = 0;
};
using Stack = std::vector<PlacedImage>;

std::string millimetres(double length)
{
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.4g mm", length);
    return text.data();
}

bool isSameLength(double a, double b)
{
    return (std::isnan(a) && std::isnan(b)) || std::abs(a - b) <= 1e-3 * std::max(a, b);
}

/// Whether two images are slices of one grid, as far as their own size and direction tell.
bool isSameGrid(const DicomStackImage &a, const DicomStackImage &b)
{
    const DicomFileHeader &x = *a.file;
    const DicomFileHeader &y = *b.file;
    const DicomFrame &f = a.frame();
    const DicomFrame &g = b.frame();
    if (x.columns != y.columns || x.rows != y.rows || x.isColour() != y.isColour()
        || f.hasPosition != g.hasPosition || !isSameLength(f.columnSpacing, g.columnSpacing)
        || !isSameLength(f.rowSpacing, g.rowSpacing)
        || x.text(Attribute::FrameOfReferenceUid) != y.text(Attribute::FrameOfReferenceUid)) {
        return false;
    }
    if (!f.hasPosition) {
        // A film is a volume of its own; single images without a place are leafed through.
        return &x == &y || (x.frames.size() == 1 && y.frames.size() == 1);
    }
    constexpr double parallel = 0.9999;
    return f.rightwards.dot(g.rightwards) > parallel && f.downwards.dot(g.downwards) > parallel;
}

std::vector<std::vector<DicomStackImage>> groupByGrid(
    const std::vector<const DicomFileHeader *> &files)
{
    std::vector<std::vector<DicomStackImage>> groups;
    for (const DicomFileHeader *const file : files) {
        for (int frame = 0; frame < static_cast<int>(file->frames.size()); ++frame) {
            const DicomStackImage image{file, frame, 0};
            const auto same = std::find_if(groups.begin(), groups.end(),
                [&image](const auto &group) { return isSameGrid(group.front(), image); });
            if (same != groups.end()) {
                same->push_back(image);
            } else {
                groups.push_back({image});
            }
        }
    }
    return groups;
}

Stack placed(const std::vector<DicomStackImage> &images)
{
    const DicomFrame &first = images.front().frame();
    const McVec3d normal = first.rightwards.cross(first.downwards);
    Stack stack;
    for (const DicomStackImage &image : images) {
        const McVec3d &position = image.frame().position;
        stack.push_back({image, position.dot(first.rightwards), position.dot(first.downwards),
            position.dot(normal)});
    }
    std::stable_sort(stack.begin(), stack.end(),
        [](const PlacedImage &a, const PlacedImage &b) { return a.along < b.along; });
    return stack;
}

/// Slope of a sideways coordinate along the normal: that of a gantry tilt, otherwise 0. The median
/// of the steps, so that a jump to another slab does not count.
double tiltOf(const Stack &stack, double PlacedImage::*sideways)
{
    std::vector<double> slopes;
    for (std::size_t i = 1; i < stack.size(); ++i) {
        const double step = stack[i].along - stack[i - 1].along;
        if (step > 0.01) {
            slopes.push_back((stack[i].*sideways - stack[i - 1].*sideways) / step);
        }
    }
    if (slopes.empty()) {
        return 0;
    }
    const auto middle = slopes.begin() + static_cast<std::ptrdiff_t>(slopes.size() / 2);
    std::nth_element(slopes.begin(), middle, slopes.end());
    return *middle;
}

/// Cuts a stack where the images do not stand in one straight (perhaps tilted) row: parallel slabs.
std::vector<Stack> splitSideways(const Stack &stack)
{
    const DicomFrame &frame = stack.front().image.frame();
    const double tolerance = std::max(frame.columnSpacing, frame.rowSpacing);
    const double acrossTilt = tiltOf(stack, &PlacedImage::across);
    const double downTilt = tiltOf(stack, &PlacedImage::down);
    const auto fits = [&](const PlacedImage &a, const PlacedImage &b) {
        const double step = b.along - a.along;
        return std::abs(b.across - a.across - acrossTilt * step) <= tolerance
            && std::abs(b.down - a.down - downTilt * step) <= tolerance;
    };
    std::vector<Stack> slabs;
    for (const PlacedImage &image : stack) {
        const auto slab = std::find_if(slabs.begin(), slabs.end(),
            [&](const Stack &other) { return fits(other.back(), image); });
        if (slab != slabs.end()) {
            slab->push_back(image);
        } else {
            slabs.push_back({image});
        }
    }
    return slabs;
}

/// Numbers the positions along the normal; images closer than the tolerance share one.
std::vector<DicomStackImage> withLocations(const Stack &stack)
{
    const double pixel = stack.front().image.frame().columnSpacing;
    const double tolerance = std::isnan(pixel) ? 0 : std::min(0.02, 0.1 * pixel);
    std::vector<DicomStackImage> images;
    int location = 0;
    double last = stack.front().along;
    for (const PlacedImage &placedImage : stack) {
        if (placedImage.along - last > tolerance) {
            ++location;
            last = placedImage.along;
        }
        images.push_back(placedImage.image);
        images.back().location = location;
    }
    return images;
}

/// Cuts a stack at gaps that are too large to be a few missing images.
std::vector<Stack> splitAtLargeGaps(const Stack &stack)
{
    std::vector<double> gaps;
    for (std::size_t i = 1; i < stack.size(); ++i) {
        const double gap = stack[i].along - stack[i - 1].along;
        if (gap > 0.01) {
            gaps.push_back(gap);
        }
    }
    if (gaps.empty()) {
        return {stack};
    }
    const auto middle = gaps.begin() + static_cast<std::ptrdiff_t>((gaps.size() - 1) / 2);
    std::nth_element(gaps.begin(), middle, gaps.end());
    constexpr double largest = 16;
    std::vector<Stack> parts{{stack.front()}};
    for (std::size_t i = 1; i < stack.size(); ++i) {
        if (stack[i].along - stack[i - 1].along > largest * *middle) {
            parts.emplace_back();
        }
        parts.back().push_back(stack[i]);
    }
    return parts;
}

double alongNormal(const DicomStackImage &image, const DicomFrame &reference)
{
    return image.frame().position.dot(reference.rightwards.cross(reference.downwards));
}

/// Positions of the images along the normal, and what a regular grid through them looks like.
struct SliceGrid
{
    std::vector<double> positions;
    double step = 0; ///< mm between slices of the grid
    double median = 0; ///< usual distance of the images
    int numSlices = 1;
    bool isRegular = true;
};

double medianGap(const std::vector<double> &positions)
{
    std::vector<double> gaps;
    for (std::size_t i = 1; i < positions.size(); ++i) {
        gaps.push_back(positions[i] - positions[i - 1]);
    }
    const auto middle = gaps.begin() + static_cast<std::ptrdiff_t>((gaps.size() - 1) / 2);
    std::nth_element(gaps.begin(), middle, gaps.end());
    return *middle;
}

SliceGrid sliceGrid(const std::vector<DicomStackImage> &images)
{
    SliceGrid grid;
    const DicomFrame &reference = images.front().frame();
    for (const DicomStackImage &image : images) {
        grid.positions.push_back(alongNormal(image, reference));
    }
    const std::size_t count = grid.positions.size();
    if (count == 1) {
        return grid;
    }
    const double length = grid.positions.back() - grid.positions.front();
    grid.median = medianGap(grid.positions);
    grid.step = length / static_cast<double>(count - 1);
    grid.numSlices = static_cast<int>(count);
    const double tolerance = std::max(0.05 * grid.step, 0.02);
    for (std::size_t i = 0; i < count; ++i) {
        const double even = grid.positions.front() + grid.step * static_cast<double>(i);
        grid.isRegular = grid.isRegular && std::abs(grid.positions[i] - even) <= tolerance;
    }
    if (!grid.isRegular) {
        const double slices = std::round(length / grid.median);
        constexpr double most = 1e6;
        grid.numSlices = static_cast<int>(std::min(slices, most)) + 1;
        grid.step = length / (grid.numSlices - 1);
    }
    return grid;
}

/// Distances of images beyond this many usual ones are holes, in which nothing is invented.
constexpr double holeFactor = 1.5;

DicomSliceRecipe recipe(const SliceGrid &grid, const DicomPhase &phase, int slice)
{
    const double position = grid.positions.front() + grid.step * slice;
    const auto above
        = std::upper_bound(grid.positions.begin() + 1, grid.positions.end() - 1, position);
    const auto high = static_cast<std::size_t>(above - grid.positions.begin());
    const std::size_t low = high - 1;
    const double gap = grid.positions[high] - grid.positions[low];
    const double fraction = std::clamp((position - grid.positions[low]) / gap, 0.0, 1.0);
    const std::size_t nearest = fraction < 0.5 ? low : high;
    const double distance = std::abs(position - grid.positions[nearest]);
    constexpr double same = 0.05;
    const bool isHole = gap > holeFactor * grid.median;
    if (distance <= same * grid.step || (isHole && distance <= 0.5 * grid.step)) {
        return {{{phase.images[nearest], 1}}};
    }
    if (isHole) {
        return {};
    }
    return {{{phase.images[low], 1 - fraction}, {phase.images[high], fraction}}};
}

std::vector<DicomSliceRecipe> recipes(const SliceGrid &grid, const DicomPhase &phase)
{
    std::vector<DicomSliceRecipe> result;
    for (int slice = 0; slice < grid.numSlices; ++slice) {
        if (grid.isRegular) {
            result.push_back({{{phase.images[static_cast<std::size_t>(slice)], 1}}});
        } else {
            result.push_back(recipe(grid, phase, slice));
        }
    }
    return result;
}

void remarkOnGaps(const SliceGrid &grid, DicomVolumePlan &plan)
{
    if (grid.isRegular) {
        return;
    }
    bool hasHoles = false;
    for (std::size_t i = 1; i < grid.positions.size(); ++i) {
        const double gap = grid.positions[i] - grid.positions[i - 1];
        if (gap > holeFactor * grid.median) {
            hasHoles = true;
            plan.remarks.push_back("Images are missing: a gap of " + millimetres(gap) + ", where "
                + millimetres(grid.median) + " are usual, is left empty.");
        }
    }
    plan.isComplete = plan.isComplete && !hasHoles;
    if (!hasHoles) {
        plan.remarks.push_back("The distance between the images varies; they were resampled to "
            + millimetres(grid.step) + ".");
    }
}

/// Images closer together than the grid's slices may fall between these.
void remarkOnUnused(const std::vector<DicomStackImage> &images, const DicomVolumePlan::Phase &phase,
    DicomVolumePlan &plan)
{
    std::set<int> used;
    for (const DicomSliceRecipe &slice : phase.slices) {
        for (const DicomSliceRecipe::Source &source : slice.sources) {
            used.insert(source.image.location);
        }
    }
    const std::size_t unused = images.size() - used.size();
    if (unused > 0) {
        plan.remarks.push_back(std::to_string(unused)
            + " images lie between the slices of the volume and are not shown.");
    }
}

void placeGrid(
    const SliceGrid &grid, const std::vector<DicomStackImage> &images, DicomVolumePlan &plan)
{
    const DicomFileHeader &file = *images.front().file;
    const DicomFrame &first = images.front().frame();
    plan.dimensions = {file.columns, file.rows, grid.numSlices};
    const bool hasSpacing = !std::isnan(first.columnSpacing);
    const McVec3d right = first.rightwards * (hasSpacing ? first.columnSpacing : 1);
    const McVec3d down = first.downwards * (hasSpacing ? first.rowSpacing : 1);
    McVec3d step = first.rightwards.cross(first.downwards);
    if (images.size() > 1) {
        const McVec3d whole = images.back().frame().position - first.position;
        step = whole * (1.0 / (grid.numSlices - 1));
    } else {
        const bool hasThickness = file.sliceThickness > 0;
        const double usual = hasThickness ? file.sliceThickness : file.sliceSpacing;
        step = step * (usual > 0 ? usual : 1);
    }
    plan.voxelToPatient = McTransform3d(right, down, step, first.position);
    if (!hasSpacing) {
        plan.placement = KxVolume::Placement::Pixels;
        plan.remarks.push_back("The size of the pixels is unknown; lengths are in pixels.");
    } else if (!first.hasPosition) {
        plan.placement = KxVolume::Placement::Millimetres;
        plan.remarks.push_back("The place of the images in the patient is unknown.");
    }
}

/// The range that an image's values can have, by its header.
std::array<double, 2> valueRange(const DicomStackImage &image)
{
    const DicomFrame &frame = image.frame();
    const double a = image.file->lowestStored() * frame.slope + frame.intercept;
    const double b = image.file->highestStored() * frame.slope + frame.intercept;
    return {std::min(a, b), std::max(a, b)};
}

bool isExactInt16(const DicomStackImage &image)
{
    const DicomFrame &frame = image.frame();
    const auto [low, high] = valueRange(image);
    return std::nearbyint(frame.slope) == frame.slope
        && std::nearbyint(frame.intercept) == frame.intercept
        && low >= std::numeric_limits<std::int16_t>::min()
        && high <= std::numeric_limits<std::int16_t>::max();
}

void chooseScalars(const DicomPhases &sorted, DicomVolumePlan &plan)
{
    const DicomStackImage &first = sorted.phases.front().images.front();
    if (first.file->isColour()) {
        plan.scalarType = KxVolume::ScalarType::UInt8;
        plan.components = 3;
        return;
    }
    bool exact = true;
    for (const DicomPhase &phase : sorted.phases) {
        exact = exact && std::all_of(phase.images.begin(), phase.images.end(), isExactInt16);
    }
    plan.scalarType = exact ? KxVolume::ScalarType::Int16 : KxVolume::ScalarType::Float32;
    plan.unit = first.file->unit;
    const auto [low, high] = valueRange(first);
    constexpr double air = -1024;
    const double empty = plan.unit == "HU" ? air : first.frame().intercept;
    plan.background = std::clamp(empty, low, high);
    if (first.file->hasModalityTable) {
        plan.remarks.push_back("The table that maps stored values to units is not applied.");
    }
}

/// The window of the image in the middle of the phase; of low-is-bright images turned around as
/// their values are.
void chooseWindow(const DicomPhase &sorted, DicomVolumePlan::Phase &phase)
{
    const DicomStackImage &image = sorted.images[sorted.images.size() / 2];
    const DicomFrame &frame = image.frame();
    const auto [low, high] = valueRange(image);
    phase.isWindowKnown = true;
    if (image.file->isColour()) {
        phase.window = {128, 256};
        return;
    }
    if (frame.windowWidth > 0 && !std::isnan(frame.windowCenter)) {
        const double center
            = image.file->isInverted() ? low + high - frame.windowCenter : frame.windowCenter;
        phase.window = {center, frame.windowWidth};
        return;
    }
    if (image.file->unit == "HU") {
        phase.window = {40, 400};
        return;
    }
    phase.isWindowKnown = false;
    phase.window = {(low + high) / 2, std::max(high - low, 1.0)};
}

void collectFiles(const DicomPhases &sorted, DicomVolumePlan &plan)
{
    std::set<const DicomFileHeader *> known;
    for (const DicomPhase &phase : sorted.phases) {
        plan.numImages += static_cast<int>(phase.images.size());
        for (const DicomStackImage &image : phase.images) {
            if (known.insert(image.file).second) {
                plan.files.push_back(image.file);
            }
        }
    }
    for (const DicomFileHeader *const file : plan.files) {
        plan.isComplete = plan.isComplete && !file->isCutShort;
        if (file->isCutShort) {
            plan.remarks.push_back(
                "The file " + file->file.filename().string() + " ends before its pixels do.");
        }
    }
}

/// Whether an image is there a second time, as another instance with the same number.
bool isCopy(const DicomStackImage &image, const DicomPhases &sorted)
{
    const auto isSame = [&image](const DicomStackImage &other) {
        return other.location == image.location
            && other.file->instanceNumber == image.file->instanceNumber
            && other.frame().phaseTexts == image.frame().phaseTexts;
    };
    return std::any_of(sorted.phases.begin(), sorted.phases.end(), [&isSame](const auto &phase) {
        return std::any_of(phase.images.begin(), phase.images.end(), isSame);
    });
}

void remarkOnLeftOver(const DicomPhases &sorted, DicomVolumePlan &plan)
{
    const std::vector<DicomStackImage> &leftOver = sorted.leftOver;
    if (leftOver.empty()) {
        return;
    }
    // Of a phase that is there in part the rest is missing; of a copy nothing is.
    plan.isComplete = plan.isComplete
        && std::all_of(leftOver.begin(), leftOver.end(),
            [&sorted](const DicomStackImage &image) { return isCopy(image, sorted); });
    const bool one = leftOver.size() == 1;
    plan.remarks.push_back(std::to_string(leftOver.size())
        + (one ? " image lies where another one lies, and makes"
               : " images lie where others lie, and make")
        + " no complete volume; left out.");
}

bool refuseIrregular(const SliceGrid &grid, DicomVolumePlan &plan)
{
    const auto most = static_cast<int>(grid.positions.size()) * 8;
    if (grid.numSlices <= most) {
        return false;
    }
    plan.refusal = "The images are spaced too unevenly to make a volume.";
    plan.remarks.push_back(plan.refusal);
    return true;
}

DicomVolumePlan planStack(const std::vector<DicomStackImage> &images)
{
    const DicomStackImage &any = images.front();
    const bool isFilm = !any.frame().hasPosition && any.file->frames.size() > 1;
    const bool isLeafed = !any.frame().hasPosition && !isFilm;
    const DicomPhases sorted
        = sortIntoPhases(images, isFilm ? "frame" : (isLeafed ? "image" : "t"));
    const std::vector<DicomStackImage> &first = sorted.phases.front().images;
    DicomVolumePlan plan;
    plan.uid = first.front().file->sopInstanceUid;
    collectFiles(sorted, plan);
    remarkOnLeftOver(sorted, plan);
    const SliceGrid grid = sliceGrid(first);
    placeGrid(grid, first, plan);
    if (refuseIrregular(grid, plan)) {
        return plan;
    }
    remarkOnGaps(grid, plan);
    chooseScalars(sorted, plan);
    for (const DicomPhase &phase : sorted.phases) {
        DicomVolumePlan::Phase planned;
        planned.label = phase.label;
        planned.slices = recipes(grid, phase);
        chooseWindow(phase, planned);
        plan.phases.push_back(std::move(planned));
    }
    remarkOnUnused(first, plan.phases.front(), plan);
    return plan;
}

/// Two volumes may begin in one multi-frame file; their identifiers must differ all the same.
void makeUidsUnique(std::vector<DicomVolumePlan> &plans)
{
    std::set<std::string> known;
    for (DicomVolumePlan &plan : plans) {
        if (plan.uid.empty()) {
            plan.uid = "file:" + plan.files.front()->file.string();
        }
        const std::string stem = plan.uid;
        for (int number = 2; !known.insert(plan.uid).second; ++number) {
            plan.uid = stem + "." + std::to_string(number);
        }
    }
}

} // namespace

std::vector<DicomVolumePlan> planVolumes(const std::vector<const DicomFileHeader *> &files)
{
    std::vector<const DicomFileHeader *> ordered = files;
    std::stable_sort(ordered.begin(), ordered.end(),
        [](const auto *a, const auto *b) { return a->instanceNumber < b->instanceNumber; });
    std::vector<DicomVolumePlan> plans;
    for (const std::vector<DicomStackImage> &group : groupByGrid(ordered)) {
        if (!group.front().frame().hasPosition) {
            plans.push_back(planStack(group));
            continue;
        }
        for (const Stack &slab : splitSideways(placed(group))) {
            for (const Stack &part : splitAtLargeGaps(slab)) {
                plans.push_back(planStack(withLocations(part)));
            }
        }
    }
    makeUidsUnique(plans);
    return plans;
}
