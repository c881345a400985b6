// Headers of ten thousand files, beside the directory reader of vtk-dicom and the lister of DCMTK.
// All three read the same files in turn, from the page cache, so that the ratio of one repetition
// counts: the peers' figures are counters "by WHO", in seconds or bytes.

#include "benchmarks/dicomio/ScanBenchmark.h"

#include "platform/dicomio/DicomScanner.h"
#include "platform/dicomio/DicomWriter.h"

#include <vtkDICOMDirectory.h>
#include <vtkNew.h>
#include <vtkStringArray.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <sched.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int numFiles = 10000;
constexpr int filesPerSeries = 200;

/// What a CT of the usual kind tells of an image, beside what tells the images apart.
constexpr std::pair<const char *, const char *> commonAttributes[]{
    {"G0008-0008", "ORIGINAL\\PRIMARY\\AXIAL\\CT_SOM5 SPI"},
    {"G0008-0016", "1.2.840.10008.5.1.4.1.1.2"}, {"G0008-0020", "20240102"},
    {"G0008-0021", "20240102"}, {"G0008-0022", "20240102"}, {"G0008-0023", "20240102"},
    {"G0008-0030", "101112.000000"}, {"G0008-0031", "101113.000000"},
    {"G0008-0032", "101114.000000"}, {"G0008-0033", "101115.000000"}, {"G0008-0050", "A123456"},
    {"G0008-0060", "CT"}, {"G0008-0070", "Movara"}, {"G0008-0080", "Hospital"},
    {"G0008-0081", "Street 1, Town"}, {"G0008-0090", "Referring^Physician"}, {"G0008-1010", "CT1"},
    {"G0008-1030", "Thorax and abdomen"}, {"G0008-1040", "Radiology"}, {"G0008-1090", "Scanner"},
    {"G0010-0030", "19700102"}, {"G0010-0040", "F"}, {"G0010-1010", "054Y"}, {"G0010-1030", "70"},
    {"G0018-0015", "CHEST"}, {"G0018-0022", "HELICAL MODE"}, {"G0018-0050", "1"},
    {"G0018-0060", "120"}, {"G0018-0090", "500"}, {"G0018-1000", "12345"}, {"G0018-1020", "1.0"},
    {"G0018-1030", "Thorax routine"}, {"G0018-1100", "400"}, {"G0018-1110", "1040"},
    {"G0018-1111", "570"}, {"G0018-1120", "0"}, {"G0018-1130", "150"}, {"G0018-1140", "CW"},
    {"G0018-1150", "500"}, {"G0018-1151", "200"}, {"G0018-1152", "100"}, {"G0018-1160", "FLAT"},
    {"G0018-1170", "50"}, {"G0018-1190", "1.2"}, {"G0018-1210", "B30f"}, {"G0018-5100", "HFS"},
    {"G0020-0010", "1"}, {"G0020-0012", "1"}, {"G0020-0037", "1\\0\\0\\0\\1\\0"},
    {"G0020-1040", ""}, {"G0028-0002", "1"}, {"G0028-0004", "MONOCHROME2"},
    {"G0028-0030", "0.78125\\0.78125"}, {"G0028-0100", "16"}, {"G0028-0101", "12"},
    {"G0028-0102", "11"}, {"G0028-0103", "0"}, {"G0028-1050", "40"}, {"G0028-1051", "400"},
    {"G0028-1052", "-1024"}, {"G0028-1053", "1"}, {"G0032-1032", "Requesting^Physician"},
    {"G0040-0002", "20240102"}, {"G0040-0244", "20240102"}, {"G0040-0253", "A123456"}};

/// Ten thousand images of several patients and series, written once in the process.
class Files
{
public:
    explicit Files(int side)
        : m_pixels(static_cast<std::size_t>(side) * static_cast<std::size_t>(side) * 2)
    {
        m_attributes = new HxParamBundle;
        for (const auto &[name, value] : commonAttributes) {
            m_attributes->set(name, value);
        }
        m_attributes->set("G0028-0010", std::to_string(side));
        m_attributes->set("G0028-0011", std::to_string(side));
        for (int i = 0; i < numFiles; ++i) {
            write(i);
        }
    }
    [[nodiscard]] std::string folder() const { return m_folder.path().toStdString(); }
    static const Files &ofSide(int side)
    {
        static std::map<int, std::unique_ptr<Files>> all;
        std::unique_ptr<Files> &files = all[side];
        if (!files) {
            files = std::make_unique<Files>(side);
        }
        return *files;
    }

private:
    void write(int index)
    {
        const std::string series = "2.25.100." + std::to_string(index / filesPerSeries);
        const std::string study = "2.25.200." + std::to_string(index / (filesPerSeries * 5));
        const std::string patient = std::to_string(index / (filesPerSeries * 10));
        m_attributes->set("G0010-0010", "Patient^" + patient);
        m_attributes->set("G0010-0020", patient);
        m_attributes->set("G0020-000D", study);
        m_attributes->set("G0020-000E", series);
        m_attributes->set("G0020-0052", study + ".9");
        m_attributes->set("G0008-0018", series + '.' + std::to_string(index));
        m_attributes->set("G0020-0011", std::to_string(index / filesPerSeries + 1));
        m_attributes->set("G0020-0013", std::to_string(index % filesPerSeries + 1));
        m_attributes->set("G0020-0032", "-200\\-200\\" + std::to_string(index % filesPerSeries));
        const McFilename file(folder() + "/image" + std::to_string(index) + ".dcm");
        const std::string problem = DicomWriter::write(file, *m_attributes, m_pixels);
        if (!problem.empty()) {
            qFatal("%s", problem.c_str());
        }
    }

    QTemporaryDir m_folder;
    McHandle<HxParamBundle> m_attributes;
    std::vector<std::byte> m_pixels;
};

/// The scanner takes as many threads as it has processors: two, on whatever machine.
class TwoProcessors
{
public:
    TwoProcessors()
    {
        sched_getaffinity(0, sizeof m_before, &m_before);
        cpu_set_t two;
        CPU_ZERO(&two);
        for (std::size_t i = 0; i < CPU_SETSIZE && CPU_COUNT(&two) < 2; ++i) {
            if (CPU_ISSET(i, &m_before)) {
                CPU_SET(i, &two);
            }
        }
        sched_setaffinity(0, sizeof two, &two);
    }
    ~TwoProcessors() { sched_setaffinity(0, sizeof m_before, &m_before); }
    TwoProcessors(const TwoProcessors &) = delete;
    TwoProcessors &operator=(const TwoProcessors &) = delete;

private:
    cpu_set_t m_before{};
};

int scanWithOurs(const std::string &folder)
{
    return DicomScanner::scanNow({McFilename(folder)}).numFiles;
}

int scanWithVtk(const std::string &folder)
{
    const vtkNew<vtkDICOMDirectory> directory;
    directory->SetDirectoryName(folder.c_str());
    directory->Update();
    int files = 0;
    for (int i = 0; i < directory->GetNumberOfSeries(); ++i) {
        files += static_cast<int>(directory->GetFileNamesForSeries(i)->GetNumberOfValues());
    }
    return files;
}

/// @return what the program has printed.
QByteArray run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(-1) || process.exitCode() != 0) {
        qFatal("%s fails", qUtf8Printable(program));
    }
    return process.readAllStandardOutput();
}

/// The least that it can be asked for: one attribute of each file, and nothing of the pixels.
int scanWithDcmdump(const std::string &folder)
{
    static const QString program = QString::fromLatin1(DCMDUMP_PROGRAM);
    const QStringList arguments
        = QStringLiteral("-q -M +sb PixelData +sd +r +P PatientID").split(u' ');
    return static_cast<int>(
        run(program, arguments + QStringList(QString::fromStdString(folder))).count("PatientID"));
}

template <typename Scan>
double seconds(Scan scan)
{
    QElapsedTimer clock;
    clock.start();
    scan();
    return static_cast<double>(clock.nsecsElapsed()) / 1e9;
}

void requireAll(int files)
{
    if (files != numFiles) {
        qFatal("%d files were read instead of %d", files, numFiles);
    }
}

void scan(benchmark::State &state)
{
    const TwoProcessors processors;
    const std::string folder = Files::ofSide(static_cast<int>(state.range(0))).folder();
    double ours = 0;
    double vtk = 0;
    double dcmdump = 0;
    for (auto _ : state) {
        ours = seconds([&] { requireAll(scanWithOurs(folder)); });
        vtk = seconds([&] { requireAll(scanWithVtk(folder)); });
        dcmdump = seconds([&] { requireAll(scanWithDcmdump(folder)); });
        state.SetIterationTime(ours);
    }
    state.counters["by vtkDICOMDirectory"] = vtk;
    state.counters["by dcmdump"] = dcmdump;
    state.counters["to the faster peer"] = ours / std::min(vtk, dcmdump);
}

/// Of processes that do nothing else, beyond what the same process takes that scans nothing.
void memory(benchmark::State &state)
{
    const std::string folder = Files::ofSide(static_cast<int>(state.range(0))).folder();
    const auto peakOf = [&folder](const char *reader) {
        return run(QCoreApplication::applicationFilePath(),
            {QStringLiteral("--scan-once"), QString::fromLatin1(reader),
                QString::fromStdString(folder)})
            .toDouble();
    };
    constexpr double kilobyte = 1024;
    for (auto _ : state) {
        const double nothing = peakOf("none");
        state.counters["by movara"] = (peakOf("ours") - nothing) * kilobyte;
        state.counters["by vtkDICOMDirectory"] = (peakOf("vtk") - nothing) * kilobyte;
    }
}

BENCHMARK(scan)
    ->Name("scan: headers of 10000 images by their side/movara")
    ->Arg(32)
    ->Arg(256)
    ->Iterations(1)
    ->Repetitions(7)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->ReportAggregatesOnly();
BENCHMARK(memory)
    ->Name("scan: memory for 10000 images by their side/movara")
    ->Arg(32)
    ->Arg(256)
    ->Iterations(1);

} // namespace

int scanOnce(const char *reader, const char *folder)
{
    const std::string name = reader;
    if (name != "none") {
        requireAll(name == "ours" ? scanWithOurs(folder) : scanWithVtk(folder));
    }
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmHWM:")) {
            std::printf("%ld\n", std::strtol(line.c_str() + std::strlen("VmHWM:"), nullptr, 10));
        }
    }
    return 0;
}
