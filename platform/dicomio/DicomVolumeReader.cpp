#include "platform/dicomio/DicomVolumeReader.h"

#include "platform/dicomio/DicomCodec.h"
#include "platform/dicomio/DicomHeaderReader.h"
#include "platform/dicomio/DicomVolumePlan.h"
#include "platform/util/McGuard.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <list>
#include <new>

namespace {

using Bytes = std::vector<std::byte>;
using ScalarType = KxVolume::ScalarType;

template <typename Scalar>
Scalar scalarAt(const Bytes &bytes, std::size_t index)
{
    Scalar scalar{};
    std::memcpy(&scalar, bytes.data() + index * sizeof scalar, sizeof scalar);
    return scalar;
}

template <typename Scalar>
void setScalar(std::byte *bytes, std::size_t index, double value)
{
    const double whole = std::is_floating_point_v<Scalar> ? value : std::nearbyint(value);
    const auto scalar = static_cast<Scalar>(whole);
    std::memcpy(bytes + index * sizeof scalar, &scalar, sizeof scalar);
}

/// Calls @p work with a value of the C++ type that stands behind @p type.
template <typename Work>
void withScalar(ScalarType type, Work work)
{
    switch (type) {
    case ScalarType::UInt8:
        return work(std::uint8_t{});
    case ScalarType::Int16:
        return work(std::int16_t{});
    case ScalarType::Float32:
        return work(float{});
    }
}

void fillWith(ScalarType type, double value, std::byte *bytes, std::size_t size)
{
    withScalar(type, [=](auto scalar) {
        for (std::size_t i = 0; i < size / sizeof scalar; ++i) {
            setScalar<decltype(scalar)>(bytes, i, value);
        }
    });
}

double lowestValue(ScalarType type, const Bytes &bytes)
{
    double lowest = std::numeric_limits<double>::infinity();
    withScalar(type, [&](auto scalar) {
        for (std::size_t i = 0; i < bytes.size() / sizeof scalar; ++i) {
            lowest = std::min(lowest, static_cast<double>(scalarAt<decltype(scalar)>(bytes, i)));
        }
    });
    return lowest;
}

/// (1 - fraction) * a + fraction * b.
Bytes blended(ScalarType type, const Bytes &a, const Bytes &b, double fraction)
{
    Bytes result(a.size());
    withScalar(type, [&](auto scalar) {
        using Scalar = decltype(scalar);
        for (std::size_t i = 0; i < a.size() / sizeof scalar; ++i) {
            const double value = static_cast<double>(scalarAt<Scalar>(a, i)) * (1 - fraction)
                + static_cast<double>(scalarAt<Scalar>(b, i)) * fraction;
            setScalar<Scalar>(result.data(), i, value);
        }
    });
    return result;
}

/// The window that shows all but the darkest and brightest hundredth.
KxVolume::Window estimatedWindow(ScalarType type, const Bytes &bytes)
{
    std::vector<double> values;
    withScalar(type, [&](auto scalar) {
        const std::size_t count = bytes.size() / sizeof scalar;
        const std::size_t step = count / 20000 + 1;
        for (std::size_t i = 0; i < count; i += step) {
            values.push_back(static_cast<double>(scalarAt<decltype(scalar)>(bytes, i)));
        }
    });
    const auto quantile = [&values](double part) {
        const auto position
            = static_cast<std::ptrdiff_t>(part * static_cast<double>(values.size() - 1));
        std::nth_element(values.begin(), values.begin() + position, values.end());
        return values[static_cast<std::size_t>(position)];
    };
    const double low = quantile(0.01);
    const double high = quantile(0.99);
    return {(low + high) / 2, std::max(high - low, 1.0)};
}

/// 0 to count - 1, from the middle outwards.
std::vector<int> middleOut(int count)
{
    std::vector<int> order;
    const int middle = count / 2;
    for (int distance = 0; distance <= middle; ++distance) {
        if (distance > 0) {
            order.push_back(middle - distance);
        }
        if (middle + distance < count) {
            order.push_back(middle + distance);
        }
    }
    std::stable_sort(order.begin(), order.end(),
        [middle](int a, int b) { return std::abs(a - middle) < std::abs(b - middle); });
    return order;
}

/// The stored volume to read: the entry itself, or the largest of a series.
const DicomVolumePlan *choosePlan(
    const std::vector<DicomVolumePlan> &plans, const Zel::DicomDirectoryEntry &entry)
{
    const DicomVolumePlan *chosen = nullptr;
    for (const DicomVolumePlan &plan : plans) {
        if (entry.isStoredVolume() && plan.uid == entry.uid()) {
            return &plan;
        }
        const bool larger = !chosen || plan.numImages > chosen->numImages;
        if (plan.refusal.empty() && larger) {
            chosen = &plan;
        }
    }
    return chosen;
}

} // namespace

class DicomVolumeReader::Private
{
public:
    std::string readHeaders(const Zel::DicomDirectoryEntry &entry, const std::stop_token &stop);
    std::string plan(const Zel::DicomDirectoryEntry &entry);
    void makeSeries(const Zel::DicomDirectoryEntry &entry);
    McHandle<KxVolume> makeVolume(const DicomVolumePlan::Phase &phase) const;

    /// A slice's voxels, or the reason why there are none. Of a gap both are empty.
    std::string decode(const DicomSliceRecipe &recipe, Bytes &bytes);
    std::string decode(const DicomStackImage &image, Bytes &bytes);

    std::vector<DicomFileHeader> headers;
    DicomVolumePlan volumePlan;
    std::string errorText;
    McDArray<std::string> remarks;
    McHandle<KxImageSeries> series;
    std::unique_ptr<DicomFrameDecoder> decoder = DicomCodec::instance().makeFrameDecoder();

    struct Decoded
    {
        DicomStackImage image;
        Bytes bytes;
    };
    /// Images decoded last, since slices between two images share them.
    std::list<Decoded> recent;
};

std::string DicomVolumeReader::Private::readHeaders(
    const Zel::DicomDirectoryEntry &entry, const std::stop_token &stop)
{
    headers.clear();
    std::string firstError;
    const auto reader = DicomCodec::instance().makeFileHeaderReader();
    for (const McFilename &file : entry.files()) {
        if (stop.stop_requested()) {
            return "Loading was cancelled.";
        }
        DicomFileHeader header;
        header.file = file;
        reader->read(header);
        if (header.isImage) {
            headers.push_back(std::move(header));
        } else if (!header.error.empty()) {
            const std::string problem = file.filename().string() + ": " + header.error;
            remarks.append(problem);
            firstError = firstError.empty() ? problem : firstError;
        }
    }
    if (headers.empty()) {
        return firstError.empty() ? "There are no images to load." : firstError;
    }
    return {};
}

std::string DicomVolumeReader::Private::plan(const Zel::DicomDirectoryEntry &entry)
{
    std::vector<const DicomFileHeader *> files;
    for (const DicomFileHeader &header : headers) {
        files.push_back(&header);
    }
    const std::vector<DicomVolumePlan> plans = planVolumes(files);
    const DicomVolumePlan *const chosen = choosePlan(plans, entry);
    if (!chosen) {
        return plans.front().refusal;
    }
    if (!chosen->refusal.empty()) {
        return chosen->refusal;
    }
    volumePlan = *chosen;
    for (const std::string &remark : volumePlan.remarks) {
        remarks.append(remark);
    }
    if (entry.isSeries() && plans.size() > 1) {
        remarks.append("The series holds " + std::to_string(plans.size())
            + " volumes; the largest one is shown.");
    }
    return {};
}

McHandle<KxVolume> DicomVolumeReader::Private::makeVolume(const DicomVolumePlan::Phase &phase) const
{
    McHandle<KxVolume> volume(
        new KxVolume(volumePlan.dimensions, volumePlan.scalarType, volumePlan.components));
    volume->setVoxelToPatient(volumePlan.voxelToPatient);
    volume->setPlacement(volumePlan.placement);
    volume->setUnit(volumePlan.unit);
    volume->setDefaultWindow(phase.window);
    if (volumePlan.background != 0) {
        for (int z = 0; z < volumePlan.dimensions[2]; ++z) {
            fillWith(volumePlan.scalarType, volumePlan.background, volume->slice(z),
                volume->bytesPerSlice());
        }
    }
    return volume;
}

void DicomVolumeReader::Private::makeSeries(const Zel::DicomDirectoryEntry &entry)
{
    const Zel::DicomDirectoryEntry *const owner = entry.ancestor(Zel::DicomDirectoryEntry::Series);
    series = new KxImageSeries(owner ? owner->uid() : entry.uid());
    const McHandle<HxParamBundle> attributes
        = DicomHeaderReader::readHeader(volumePlan.files.front()->file);
    for (const DicomVolumePlan::Phase &phase : volumePlan.phases) {
        const McHandle<KxVolume> volume = makeVolume(phase);
        volume->setAttributes(attributes);
        series->appendVolume(volume, phase.label);
    }
}

std::string DicomVolumeReader::Private::decode(const DicomStackImage &image, Bytes &bytes)
{
    const auto known = std::find_if(recent.begin(), recent.end(), [&image](const Decoded &other) {
        return other.image.file == image.file && other.image.frameIndex == image.frameIndex;
    });
    if (known != recent.end()) {
        bytes = known->bytes;
        return {};
    }
    std::string error;
    const std::string problem = McGuard::run([&] {
        error = decoder->decode(*image.file, image.frameIndex, volumePlan.scalarType, bytes);
    });
    error += problem; // One image that cannot be decoded does not take the others along.
    if (error.empty()) {
        constexpr std::size_t neighbours = 6;
        recent.push_front({image, bytes});
        recent.resize(std::min(recent.size(), neighbours));
        return {};
    }
    return image.file->file.filename().string() + ": " + error;
}

std::string DicomVolumeReader::Private::decode(const DicomSliceRecipe &recipe, Bytes &bytes)
{
    bytes.clear();
    if (recipe.sources.empty()) {
        return {};
    }
    if (recipe.sources.size() == 1) {
        return decode(recipe.sources.front().image, bytes);
    }
    Bytes low;
    Bytes high;
    std::string error = decode(recipe.sources[0].image, low);
    if (error.empty()) {
        error = decode(recipe.sources[1].image, high);
    }
    if (error.empty()) {
        bytes = blended(volumePlan.scalarType, low, high, recipe.sources[1].weight);
    }
    return error;
}

DicomVolumeReader::DicomVolumeReader()
    : d(std::make_unique<Private>())
{ }

DicomVolumeReader::~DicomVolumeReader() = default;

bool DicomVolumeReader::prepare(const Zel::DicomDirectoryEntry &entry, const std::stop_token &stop)
{
    d->series.reset();
    d->remarks.clear();
    d->recent.clear();
    try {
        d->errorText = d->readHeaders(entry, stop);
        if (d->errorText.empty()) {
            d->errorText = d->plan(entry);
        }
        if (d->errorText.empty()) {
            d->makeSeries(entry);
        }
    } catch (const std::bad_alloc &) {
        d->series.reset();
        d->errorText = "There is not enough memory for this volume.";
    }
    return d->errorText.empty();
}

const std::string &DicomVolumeReader::errorText() const
{
    return d->errorText;
}

const McDArray<std::string> &DicomVolumeReader::remarks() const
{
    return d->remarks;
}

const McHandle<KxImageSeries> &DicomVolumeReader::series() const
{
    return d->series;
}

int DicomVolumeReader::numSlices() const
{
    return d->series ? d->volumePlan.dimensions[2] * d->series->numVolumes() : 0;
}

bool DicomVolumeReader::readSlices(const SliceReceiver &receiver, const std::stop_token &stop)
{
    if (!d->series) {
        return false;
    }
    const DicomVolumePlan &plan = d->volumePlan;
    double lowest = std::numeric_limits<double>::infinity();
    std::vector<Slice> unread;
    for (int phase = 0; phase < static_cast<int>(plan.phases.size()); ++phase) {
        const DicomVolumePlan::Phase &planned = plan.phases[static_cast<std::size_t>(phase)];
        bool wantsWindow = !planned.isWindowKnown;
        for (const int z : middleOut(plan.dimensions[2])) {
            if (stop.stop_requested()) {
                return false;
            }
            Slice slice;
            slice.phase = phase;
            slice.z = z;
            slice.problem = d->decode(planned.slices[static_cast<std::size_t>(z)], slice.bytes);
            if (slice.bytes.empty() || !slice.problem.empty()) {
                unread.push_back(std::move(slice));
                continue;
            }
            lowest = std::min(lowest, lowestValue(plan.scalarType, slice.bytes));
            if (wantsWindow) {
                slice.window = estimatedWindow(plan.scalarType, slice.bytes);
                wantsWindow = false;
            }
            receiver(std::move(slice));
        }
    }
    d->recent.clear();
    const double filling = std::isfinite(lowest) ? lowest : plan.background;
    for (Slice &slice : unread) {
        slice.bytes.resize(d->series->volume(slice.phase)->bytesPerSlice());
        fillWith(plan.scalarType, filling, slice.bytes.data(), slice.bytes.size());
        receiver(std::move(slice));
    }
    return true;
}
