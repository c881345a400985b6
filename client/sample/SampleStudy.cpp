#include "client/sample/SampleStudy.h"

#include "client/sample/SamplePhantom.h"
#include "platform/dicomio/DicomWriter.h"
#include "platform/util/HxParamBundle.h"
#include "platform/util/McHandle.h"
#include "platform/util/McProgressInterface.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <random>
#include <span>
#include <system_error>
#include <vector>

namespace {

struct Patient
{
    const char *name;
    const char *id;
    const char *birthDate;
    const char *sex;
    const char *studyDate;
    const char *studyDescription;
    const char *accession;
    const char *bodyPart;
};

constexpr std::array patients{
    Patient{"Sample^Petra", "SAMPLE-1", "19680412", "F", "20240115", "CT trunk", "S0001", "TRUNK"},
    Patient{"Probe^Jörg", "SAMPLE-2", "19551103", "M", "20240220", "MR head", "S0002", "HEAD"},
};

enum class Body { Trunk, HeadT1, HeadT2 };

struct Series
{
    int patient = 0;
    int number = 0;
    const char *folder = "";
    const char *description = "";
    Body body = Body::Trunk;
    McVec3d right; ///< along the rows
    McVec3d down; ///< along the columns
    McVec3d center; ///< of the whole stack
    int columns = 0;
    int rows = 0;
    int slices = 0;
    double pixel = 0; ///< mm
    double step = 0; ///< mm between slices
    double thickness = 0;
    double blur = 0; ///< mm, of edges: the reconstruction's sharpness
    double noise = 0;
    int numTimes = 0;
    double windowCenter = 0;
    double windowWidth = 0;
    const char *kernel = "";
};

constexpr std::array series{
    Series{0, 1, "ct-soft", "Trunk soft 2.5", Body::Trunk, {1, 0, 0}, {0, 1, 0}, {0, 0, 0}, 192,
        192, 108, 2, 2.5, 2.5, 3, 11, 1, 40, 400, "SOFT"},
    Series{0, 2, "ct-sharp-coronal", "Trunk sharp coronal 3", Body::Trunk, {1, 0, 0}, {0, 0, -1},
        {0, 0, 0}, 256, 192, 72, 1.5, 3, 3, 1.2, 34, 1, -500, 1500, "SHARP"},
    Series{0, 3, "ct-contrast", "Liver contrast 5 phases", Body::Trunk, {1, 0, 0}, {0, 1, 0},
        {0, 0, -50}, 112, 112, 24, 3.2, 5, 5, 4, 9, 5, 90, 300, "SOFT"},
    Series{1, 1, "mr-t1-sagittal", "T1 sagittal", Body::HeadT1, {0, 1, 0}, {0, 0, -1}, {0, 0, 0},
        128, 128, 36, 1.9, 4.5, 4, 2.2, 16, 1, 380, 760, ""},
    Series{1, 2, "mr-t2-axial", "T2 axial", Body::HeadT2, {1, 0, 0},
        {0, 0.984807753012208, -0.17364817766693}, {0, 0, 0}, 128, 128, 30, 1.7, 5.5, 5, 2, 18, 1,
        450, 900, ""},
};

/// Seconds after the contrast agent, one a phase; the first is before it arrives.
constexpr std::array phaseTimes{0.5, 14.0, 28.0, 55.0, 110.0};

/// When the single images are taken: vessels and organs stand out alike.
constexpr double portalTime = 62;

/// Unsigned values are written; this is what lies below.
constexpr double hounsfieldOffset = 1024;
constexpr int largestValue = 4095;

/// Unique identifiers of this study: one fixed number (made once from random digits), plus an
/// index.
std::string uid(int index)
{
    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), "2.25.27308164539281740655%09d", index);
    return text.data();
}

enum UidKind { StudyUid = 1, FrameOfReferenceUid, SeriesUid, ImageUid };

std::string studyUid(int patient, UidKind kind)
{
    return uid(1000 * (patient + 1) + kind);
}

std::string seriesUid(std::size_t index)
{
    return uid(100000 * (static_cast<int>(index) + 1) + SeriesUid);
}

std::string imageUid(std::size_t index, int instance)
{
    return uid(100000 * (static_cast<int>(index) + 1) + 10 * instance + ImageUid);
}

std::string number(double value)
{
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.8g", value);
    return text.data();
}

std::string vector(const McVec3d &v)
{
    return number(v.x) + '\\' + number(v.y) + '\\' + number(v.z);
}

McVec3d normalOf(const Series &s)
{
    return s.right.cross(s.down);
}

/// Centre of the first pixel of a slice.
McVec3d positionOf(const Series &s, int slice)
{
    return s.center + normalOf(s) * (s.step * (slice - (s.slices - 1) / 2.0))
        - s.right * (s.pixel * (s.columns - 1) / 2.0) - s.down * (s.pixel * (s.rows - 1) / 2.0);
}

bool isCt(const Series &s)
{
    return s.body == Body::Trunk;
}

SamplePhantom phantomOf(const Series &s)
{
    return isCt(s) ? SamplePhantom::trunk() : SamplePhantom::head(s.body == Body::HeadT2);
}

/// Nearly normal noise of deviation 1. The distributions of the standard library differ between its
/// makers; the generator itself does not.
class Noise
{
public:
    explicit Noise(unsigned seed)
        : m_generator(seed)
    { }

    double next()
    {
        constexpr int terms = 3;
        double sum = 0;
        for (int i = 0; i < terms; ++i) {
            sum += static_cast<double>(m_generator()) / std::mt19937::max() - 0.5;
        }
        return sum * 2; // a uniform term has a variance of 1/12
    }

private:
    std::mt19937 m_generator;
};

std::vector<std::uint16_t> render(
    const Series &s, const SamplePhantom &whole, int slice, double time, Noise &noise)
{
    const McVec3d corner = positionOf(s, slice);
    const SamplePhantom around = whole.near(corner, normalOf(s), s.blur);
    const double offset = isCt(s) ? hounsfieldOffset : 0;
    std::vector<std::uint16_t> pixels;
    pixels.reserve(static_cast<std::size_t>(s.columns) * static_cast<std::size_t>(s.rows));
    for (int row = 0; row < s.rows; ++row) {
        const McVec3d start = corner + s.down * (s.pixel * row);
        const SamplePhantom phantom = around.near(start, s.down, s.blur);
        for (int column = 0; column < s.columns; ++column) {
            const McVec3d point = start + s.right * (s.pixel * column);
            const double value
                = phantom.value(point, s.blur, time) + s.noise * noise.next() + offset;
            const long stored = std::clamp(std::lrint(value), 0L, long(largestValue));
            pixels.push_back(static_cast<std::uint16_t>(stored));
        }
    }
    return pixels;
}

void setPatient(HxParamBundle &header, const Series &s)
{
    const Patient &patient = patients[static_cast<std::size_t>(s.patient)];
    header.set("G0008-0020", patient.studyDate);
    header.set("G0008-0021", patient.studyDate);
    header.set("G0008-0022", patient.studyDate);
    header.set("G0008-0023", patient.studyDate);
    header.set("G0008-0030", "093000");
    header.set("G0008-0050", patient.accession);
    header.set("G0008-0070", "Movara");
    header.set("G0008-0090", "");
    header.set("G0008-1030", patient.studyDescription);
    header.set("G0010-0010", patient.name);
    header.set("G0010-0020", patient.id);
    header.set("G0010-0030", patient.birthDate);
    header.set("G0010-0040", patient.sex);
    header.set("G0018-0015", patient.bodyPart);
    header.set("G0020-000D", studyUid(s.patient, StudyUid));
    header.set("G0020-0010", patient.accession);
    header.set("G0020-0052", studyUid(s.patient, FrameOfReferenceUid));
    header.set("G0020-1040", "");
}

void setModality(HxParamBundle &header, const Series &s)
{
    const bool ct = isCt(s);
    header.set("G0008-0008", "DERIVED\\PRIMARY");
    header.set("G0008-0016", ct ? "1.2.840.10008.5.1.4.1.1.2" : "1.2.840.10008.5.1.4.1.1.4");
    header.set("G0008-0060", ct ? "CT" : "MR");
    header.set("G0018-5100", "HFS");
    if (ct) {
        header.set("G0018-0060", "120");
        header.set("G0018-1210", s.kernel);
        header.set("G0028-1052", number(-hounsfieldOffset));
        header.set("G0028-1053", "1");
        header.set("G0028-1054", "HU");
        return;
    }
    const bool isT2 = s.body == Body::HeadT2;
    header.set("G0018-0020", "SE");
    header.set("G0018-0021", "NONE");
    header.set("G0018-0022", "");
    header.set("G0018-0023", "2D");
    header.set("G0018-0080", isT2 ? "4000" : "550");
    header.set("G0018-0081", isT2 ? "95" : "12");
    header.set("G0018-0091", "1");
}

void setPixelFormat(HxParamBundle &header, const Series &s)
{
    header.set("G0018-0050", number(s.thickness));
    header.set("G0018-0088", number(s.step));
    header.set("G0028-0002", "1");
    header.set("G0028-0004", "MONOCHROME2");
    header.set("G0028-0010", std::to_string(s.rows));
    header.set("G0028-0011", std::to_string(s.columns));
    header.set("G0028-0030", number(s.pixel) + '\\' + number(s.pixel));
    header.set("G0028-0100", "16");
    header.set("G0028-0101", "12");
    header.set("G0028-0102", "11");
    header.set("G0028-0103", "0");
    header.set("G0028-1050", number(s.windowCenter));
    header.set("G0028-1051", number(s.windowWidth));
}

void setTime(HxParamBundle &header, const Series &s, int time)
{
    const double seconds = s.numTimes > 1 ? phaseTimes[static_cast<std::size_t>(time)] : 0;
    const int whole = static_cast<int>(std::ceil(seconds));
    std::array<char, 16> clock{};
    std::snprintf(clock.data(), clock.size(), "09%02d%02d", 40 + whole / 60, whole % 60);
    header.set("G0008-0031", "094000");
    header.set("G0008-0032", clock.data());
    header.set("G0008-0033", clock.data());
    if (isCt(s)) {
        header.set("G0018-0010", "sample agent");
    }
    if (s.numTimes > 1) {
        header.set("G0020-0012", std::to_string(time + 1));
        header.set("G0020-0100", std::to_string(time + 1));
        header.set("G0020-0105", std::to_string(s.numTimes));
    }
}

McHandle<HxParamBundle> headerOf(std::size_t index, int slice, int time)
{
    const Series &s = series[index];
    const int instance = time * s.slices + slice + 1;
    McHandle<HxParamBundle> header(new HxParamBundle);
    setPatient(*header, s);
    setModality(*header, s);
    setPixelFormat(*header, s);
    setTime(*header, s, time);
    header->set("G0008-0018", imageUid(index, instance));
    header->set("G0008-103E", s.description);
    header->set("G0020-000E", seriesUid(index));
    header->set("G0020-0011", std::to_string(s.number));
    header->set("G0020-0013", std::to_string(instance));
    header->set("G0020-0032", vector(positionOf(s, slice)));
    header->set("G0020-0037", vector(s.right) + '\\' + vector(s.down));
    return header;
}

std::string makeFolder(const McFilename &folder)
{
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    return error ? "The folder " + folder.string() + " cannot be made: " + error.message() + "."
                 : std::string();
}

/// Writes the files one by one and says how far it is.
class StudyWriter
{
public:
    StudyWriter(const McFilename &folder, McProgressInterface &progress)
        : m_folder(folder)
        , m_progress(progress)
    { }

    std::string writeSeries(std::size_t index)
    {
        const Series &s = series[index];
        const SamplePhantom phantom = phantomOf(s);
        const McFilename folder = m_folder / s.folder;
        std::string error = makeFolder(folder);
        Noise noise(static_cast<unsigned>(index) + 1);
        m_progress.setProgressInfo(s.description);
        for (int time = 0; time < s.numTimes && error.empty(); ++time) {
            const double seconds
                = s.numTimes > 1 ? phaseTimes[static_cast<std::size_t>(time)] : portalTime;
            for (int slice = 0; slice < s.slices && error.empty(); ++slice) {
                const auto pixels = render(s, phantom, slice, seconds, noise);
                error = writeImage(folder, *headerOf(index, slice, time), pixels);
            }
        }
        return error;
    }

private:
    std::string writeImage(const McFilename &folder, const HxParamBundle &header,
        const std::vector<std::uint16_t> &pixels)
    {
        const int instance = std::stoi(*header.find("G0020-0013"));
        std::array<char, 16> name{};
        std::snprintf(name.data(), name.size(), "%04d.dcm", instance);
        std::string error
            = DicomWriter::write(folder / name.data(), header, std::as_bytes(std::span(pixels)));
        ++m_done;
        m_progress.setProgressValue(
            static_cast<float>(m_done) / static_cast<float>(SampleStudy::numFiles()));
        if (error.empty() && m_progress.wasInterrupted() != 0) {
            error = "Writing the sample study was interrupted.";
        }
        return error;
    }

    McFilename m_folder;
    McProgressInterface &m_progress;
    int m_done = 0;
};

} // namespace

int SampleStudy::numFiles()
{
    int count = 0;
    for (const Series &s : series) {
        count += s.slices * s.numTimes;
    }
    return count;
}

std::string SampleStudy::write(const McFilename &folder, McProgressInterface *progress)
{
    McProgressInterface silent;
    McProgressInterface &display = progress ? *progress : silent;
    display.startWorking("Writing the sample study");
    StudyWriter writer(folder, display);
    std::string error = makeFolder(folder);
    for (std::size_t index = 0; index < series.size() && error.empty(); ++index) {
        error = writer.writeSeries(index);
    }
    display.stopWorking();
    return error;
}
