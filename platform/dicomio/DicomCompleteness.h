#pragma once

#include "platform/dicomio/DicomFileHeader.h"

#include <string>
#include <vector>

/// Judges from headers whether all that they announce was found. A stateless set of rules; any
/// thread. What may be explained without loss is: a false alarm at every second study would teach
/// people to confirm without reading.
///
/// A series misses something when
///  - there are gaps in the instance numbers of its images. Counting may begin anywhere and run in
///    equal steps; numbers that tell the phase in front and the slice behind (1001 to 1030, 2001 to
///    2030) are looked at part by part;
///  - fewer files are there than the Number of Series Related Instances (0020,1209);
///  - an acquisition has fewer images than the Images in Acquisition (0020,1002), and neither do
///    all its acquisitions together have exactly as many, nor the series of the study that share
///    the acquisition. Images that were derived are counted by themselves; where their sources are
///    in the study, and announce as many, they only repeat that and say nothing.
/// A study misses something when there are fewer series or files than the Number of Study Related
/// Series or Instances (0020,1206 and 0020,1208). Of several announcements the highest counts.
/// Holes in the geometry and pixels that end too early are found where volumes are planned.
class DicomCompleteness
{
public:
    using Headers = std::vector<const DicomFileHeader *>;

    DicomCompleteness() = delete;

    /// What is missing from a series, in sentences; empty when it is complete.
    /// @param study files of the whole study, those of the series among them.
    static std::vector<std::string> missingFromSeries(const Headers &series, const Headers &study);
    /// What is missing from a study as a whole.
    static std::vector<std::string> missingFromStudy(const Headers &study, int numSeries);
};
