#include "platform/dicomio/DicomPhases.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>
#include <set>
#include <tuple>
#include <utility>

namespace {

struct PhaseName
{
    PhaseAttribute attribute;
    const char *prefix;
    const char *suffix;
};

constexpr std::array<PhaseName, static_cast<std::size_t>(PhaseAttribute::Count)> phaseNames{{
    {PhaseAttribute::BValue, "b ", ""},
    {PhaseAttribute::TemporalPosition, "t ", ""},
    {PhaseAttribute::EchoTime, "TE ", " ms"},
    {PhaseAttribute::TriggerTime, "trigger ", " ms"},
    {PhaseAttribute::CardiacPhase, "", " %"},
    {PhaseAttribute::InversionTime, "TI ", " ms"},
    {PhaseAttribute::ImageType, "", ""},
    {PhaseAttribute::AcquisitionNumber, "acquisition ", ""},
    {PhaseAttribute::AcquisitionTime, "", ""},
}};

/// Orders texts by their numbers where they have some.
struct NumberOrder
{
    bool operator()(const std::string &a, const std::string &b) const
    {
        const double x = std::strtod(a.c_str(), nullptr);
        const double y = std::strtod(b.c_str(), nullptr);
        return std::tie(x, a) < std::tie(y, b);
    }
};

/// Names a value; of a time, perhaps with a date before it, the clock.
std::string labelText(const PhaseName &name, const std::string &value)
{
    const bool isTime = name.attribute == PhaseAttribute::AcquisitionTime;
    const std::size_t digits = value.find('.');
    const std::size_t end = isTime && digits != std::string::npos ? digits : value.size();
    if (isTime && end >= 6) {
        const std::string time = value.substr(end - 6, 6);
        return time.substr(0, 2) + ":" + time.substr(2, 2) + ":" + time.substr(4);
    }
    return name.prefix + value + name.suffix;
}

/// Images sorted into classes; each class is to become a phase.
class Partition
{
public:
    explicit Partition(const std::vector<DicomStackImage> &images)
        : m_images(&images)
        , m_classes(images.size(), 0)
        , m_labels(1)
    { }

    [[nodiscard]] std::size_t numClasses() const { return m_labels.size(); }
    [[nodiscard]] const std::string &label(int number) const
    {
        return m_labels[static_cast<std::size_t>(number)];
    }
    [[nodiscard]] int classOf(std::size_t image) const { return m_classes[image]; }

    /// Images that share class and position with another one.
    [[nodiscard]] std::size_t numCollisions() const
    {
        std::set<std::pair<int, int>> places;
        for (std::size_t i = 0; i < m_images->size(); ++i) {
            places.emplace(m_classes[i], (*m_images)[i].location);
        }
        return m_images->size() - places.size();
    }

    /// Splits the classes further by an attribute.
    [[nodiscard]] Partition refined(const PhaseName &name) const
    {
        const auto value = [this, &name](std::size_t i) -> const std::string & {
            return (*m_images)[i].frame().phaseText(name.attribute);
        };
        using Order = NumberOrder;
        std::vector<std::set<std::string, Order>> values(numClasses());
        for (std::size_t i = 0; i < m_images->size(); ++i) {
            values[static_cast<std::size_t>(m_classes[i])].insert(value(i));
        }
        std::map<std::pair<int, std::string>, int> numbers;
        Partition result(*m_images);
        result.m_labels.clear();
        for (std::size_t c = 0; c < values.size(); ++c) {
            for (const std::string &text : values[c]) {
                numbers[{static_cast<int>(c), text}] = static_cast<int>(result.m_labels.size());
                const std::string part
                    = text.empty() ? std::string("other") : labelText(name, text);
                result.m_labels.push_back(m_labels[c].empty() ? part : m_labels[c] + ", " + part);
            }
        }
        for (std::size_t i = 0; i < m_images->size(); ++i) {
            result.m_classes[i] = numbers[{m_classes[i], value(i)}];
        }
        return result;
    }

    /// Splits the classes by the order in which the images at one place were taken.
    [[nodiscard]] Partition rankedByAcquisition(const std::string &rankLabel) const
    {
        const std::vector<int> ranks = acquisitionRanks();
        std::vector<int> numRanks(numClasses(), 0);
        for (std::size_t i = 0; i < ranks.size(); ++i) {
            int &count = numRanks[static_cast<std::size_t>(m_classes[i])];
            count = std::max(count, ranks[i] + 1);
        }
        Partition result(*m_images);
        result.m_labels.clear();
        std::vector<int> firstOfClass;
        for (std::size_t c = 0; c < numRanks.size(); ++c) {
            firstOfClass.push_back(static_cast<int>(result.m_labels.size()));
            for (int rank = 0; rank < numRanks[c]; ++rank) {
                result.m_labels.push_back(rankedLabel(c, numRanks[c], rank, rankLabel));
            }
        }
        for (std::size_t i = 0; i < ranks.size(); ++i) {
            result.m_classes[i] = firstOfClass[static_cast<std::size_t>(m_classes[i])] + ranks[i];
        }
        return result;
    }

private:
    [[nodiscard]] std::string rankedLabel(
        std::size_t number, int numRanks, int rank, const std::string &rankLabel) const
    {
        const std::string &label = m_labels[number];
        if (numRanks == 1) {
            return label;
        }
        const std::string order = std::to_string(rank + 1);
        return label.empty() ? rankLabel + " " + order : label + " (" + order + ")";
    }

    [[nodiscard]] std::vector<int> acquisitionRanks() const
    {
        std::vector<std::size_t> order(m_images->size());
        for (std::size_t i = 0; i < order.size(); ++i) {
            order[i] = i;
        }
        const auto key = [this](std::size_t i) {
            const DicomStackImage &image = (*m_images)[i];
            return std::make_tuple(
                std::strtod(
                    image.frame().phaseText(PhaseAttribute::AcquisitionTime).c_str(), nullptr),
                image.file->instanceNumber, std::cref(image.file->file), image.frameIndex);
        };
        std::sort(order.begin(), order.end(),
            [&key](std::size_t a, std::size_t b) { return key(a) < key(b); });
        std::map<std::pair<int, int>, int> counts;
        std::vector<int> ranks(order.size());
        for (const std::size_t i : order) {
            ranks[i] = counts[{m_classes[i], (*m_images)[i].location}]++;
        }
        return ranks;
    }

    const std::vector<DicomStackImage> *m_images;
    std::vector<int> m_classes;
    std::vector<std::string> m_labels;
};

std::size_t mostAtOnePlace(const std::vector<DicomStackImage> &images)
{
    std::map<int, std::size_t> counts;
    std::size_t most = 0;
    for (const DicomStackImage &image : images) {
        most = std::max(most, ++counts[image.location]);
    }
    return most;
}

Partition byAttributes(
    const std::vector<DicomStackImage> &images, const std::string &rankLabel, std::size_t most)
{
    Partition partition(images);
    for (const PhaseName &name : phaseNames) {
        const std::size_t collisions = partition.numCollisions();
        if (collisions == 0) {
            break;
        }
        Partition finer = partition.refined(name);
        // An attribute that varies along the stack, such as the time of each slice, would tear the
        // phases apart.
        if (finer.numClasses() <= most && finer.numCollisions() < collisions) {
            partition = finer;
        }
    }
    return partition.numCollisions() > 0 ? partition.rankedByAcquisition(rankLabel) : partition;
}

std::vector<int> locationsOf(const DicomPhase &phase)
{
    std::vector<int> locations;
    for (const DicomStackImage &image : phase.images) {
        locations.push_back(image.location);
    }
    return locations;
}

/// Keeps the phases that cover the same positions as the largest one.
DicomPhases completePhases(const std::vector<DicomStackImage> &images, const Partition &partition)
{
    std::vector<DicomPhase> all(partition.numClasses());
    for (std::size_t i = 0; i < images.size(); ++i) {
        DicomPhase &phase = all[static_cast<std::size_t>(partition.classOf(i))];
        phase.label = partition.label(partition.classOf(i));
        phase.images.push_back(images[i]);
    }
    for (DicomPhase &phase : all) {
        std::sort(phase.images.begin(), phase.images.end(),
            [](const auto &a, const auto &b) { return a.location < b.location; });
    }
    const auto largest = std::max_element(all.begin(), all.end(),
        [](const auto &a, const auto &b) { return a.images.size() < b.images.size(); });
    const std::vector<int> grid = locationsOf(*largest);
    DicomPhases result;
    for (DicomPhase &phase : all) {
        if (locationsOf(phase) == grid) {
            result.phases.push_back(std::move(phase));
        } else {
            result.leftOver.insert(result.leftOver.end(), phase.images.begin(), phase.images.end());
        }
    }
    return result;
}

} // namespace

DicomPhases sortIntoPhases(const std::vector<DicomStackImage> &images, const std::string &rankLabel)
{
    const std::size_t most = mostAtOnePlace(images);
    const Partition whole(images);
    if (most == 1) {
        return completePhases(images, whole);
    }
    if (!images.front().frame().hasPosition) {
        return completePhases(images, whole.rankedByAcquisition(rankLabel));
    }
    DicomPhases told = completePhases(images, byAttributes(images, rankLabel, most));
    // Overlapping acquisitions are told apart by their attributes, too, but then each covers only a
    // part of the stack.
    DicomPhases ranked = completePhases(images, whole.rankedByAcquisition(rankLabel));
    DicomPhases result = ranked.leftOver.size() < told.leftOver.size() ? ranked : told;
    if (result.phases.size() == 1) {
        result.phases.front().label.clear();
    }
    return result;
}
