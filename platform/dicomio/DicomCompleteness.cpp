#include "platform/dicomio/DicomCompleteness.h"

#include "platform/dicomio/DicomTexts.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <numeric>
#include <set>

namespace {

using Headers = DicomCompleteness::Headers;
using Numbers = std::set<int>;

/// Numbers that are missing between the lowest and the highest. Some devices count in even steps.
std::vector<std::string> gaps(const Numbers &numbers)
{
    std::vector<std::string> missing;
    if (numbers.size() < 2) {
        return missing;
    }
    int step = 0;
    for (auto next = std::next(numbers.begin()); next != numbers.end(); ++next) {
        step = std::gcd(step, *next - *std::prev(next));
    }
    constexpr std::size_t most = 1000; // Numbers may be as far apart as can be.
    auto present = numbers.begin();
    for (int number = *present; number < *numbers.rbegin() && missing.size() < most;
         number += step) {
        if (number == *present) {
            ++present;
        } else {
            missing.push_back(std::to_string(number));
        }
    }
    return missing;
}

/// Whether the numbers are made of a phase and a slice, each phase with the same slices and none
/// missing: @p base is the first number that the slice cannot have.
bool areMadeOfPhaseAndSlice(const Numbers &numbers, int base)
{
    std::map<int, Numbers> slices;
    Numbers phases;
    for (const int number : numbers) {
        slices[number / base].insert(number % base);
        phases.insert(number / base);
    }
    const Numbers &first = slices.begin()->second;
    const bool areAlike = std::all_of(
        slices.begin(), slices.end(), [&first](const auto &each) { return each.second == first; });
    const int numPhases = *phases.rbegin() - *phases.begin() + 1;
    return areAlike && numPhases > 1 && numPhases == static_cast<int>(phases.size())
        && gaps(first).empty();
}

std::vector<std::string> missingNumbers(const Headers &files)
{
    Numbers numbers;
    for (const DicomFileHeader *const file : files) {
        if (file->isImage && file->instanceNumber >= 0) {
            numbers.insert(file->instanceNumber);
        }
    }
    std::vector<std::string> missing = gaps(numbers);
    for (const int base : {100, 1000, 10000, 100000}) {
        if (!missing.empty() && areMadeOfPhaseAndSlice(numbers, base)) {
            missing.clear();
        }
    }
    return missing;
}

const std::string &acquisitionOf(const DicomFileHeader &file)
{
    return file.frames.front().phaseText(PhaseAttribute::AcquisitionNumber);
}

struct Count
{
    int announced = 0;
    int found = 0;
};

enum class Origin { Acquired, Derived };
using Counts = std::map<std::string, Count>;

/// The images of each acquisition that were acquired, or that were derived from such, with the
/// number that they announce.
Counts countAcquisitions(const Headers &files, Origin origin)
{
    Counts counts;
    for (const DicomFileHeader *const file : files) {
        if (file->isImage && file->isDerived == (origin == Origin::Derived)) {
            Count &count = counts[acquisitionOf(*file)];
            count.announced = std::max(count.announced, file->announcedInAcquisition);
            count.found += static_cast<int>(file->frames.size());
        }
    }
    return counts;
}

void noteMissing(
    int found, int announced, const std::string &what, std::vector<std::string> &missing)
{
    if (found < announced) {
        missing.push_back("Only " + std::to_string(found) + " of " + std::to_string(announced) + " "
            + what + " are there.");
    }
}

void noteShortAcquisitions(
    const Headers &series, const Headers &study, Origin origin, std::vector<std::string> &missing)
{
    const Counts counts = countAcquisitions(series, origin);
    const int found = std::accumulate(counts.begin(), counts.end(), 0,
        [](int sum, const auto &each) { return sum + each.second.found; });
    Counts acquired;
    Counts alike;
    for (const auto &[acquisition, count] : counts) {
        if (count.found >= count.announced || found == count.announced) {
            continue;
        }
        if (alike.empty()) {
            acquired = countAcquisitions(study, Origin::Acquired);
            alike = countAcquisitions(study, origin);
        }
        // Derived images repeat what their sources announce. Where no source is there they are all
        // that the announcement can mean.
        const bool tellsOfSources
            = origin == Origin::Derived && acquired[acquisition].announced == count.announced;
        // Magnitude and phase, or the echoes, of one acquisition may be series of their own.
        if (!tellsOfSources && alike[acquisition].found != count.announced) {
            noteMissing(count.found, count.announced, "images", missing);
        }
    }
}

template <typename Member>
int highest(const Headers &files, Member member)
{
    int result = 0;
    for (const DicomFileHeader *const file : files) {
        result = std::max(result, file->*member);
    }
    return result;
}

} // namespace

std::vector<std::string> DicomCompleteness::missingFromSeries(
    const Headers &series, const Headers &study)
{
    std::vector<std::string> missing;
    if (const std::vector<std::string> numbers = missingNumbers(series); !numbers.empty()) {
        missing.push_back("Images are missing by their numbers: " + joinedText(numbers) + ".");
    }
    noteMissing(static_cast<int>(series.size()),
        highest(series, &DicomFileHeader::announcedInSeries), "images", missing);
    noteShortAcquisitions(series, study, Origin::Acquired, missing);
    noteShortAcquisitions(series, study, Origin::Derived, missing);
    return missing;
}

std::vector<std::string> DicomCompleteness::missingFromStudy(const Headers &study, int numSeries)
{
    std::vector<std::string> missing;
    noteMissing(numSeries, highest(study, &DicomFileHeader::announcedSeriesInStudy),
        "series of the study", missing);
    noteMissing(static_cast<int>(study.size()), highest(study, &DicomFileHeader::announcedInStudy),
        "files of the study", missing);
    return missing;
}
