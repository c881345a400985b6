#include "client/sample/SampleStudy.h"

#include "platform/dicomio/DicomScanner.h"
#include "platform/dicomio/DicomVolumeReader.h"
#include "platform/util/McProgressInterface.h"
#include "tests/support/Files.h"

#include <QCryptographicHash>
#include <QDirIterator>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <cstring>

using namespace Qt::StringLiterals;

using Zel::DicomDirectoryEntry;
using Attribute = DicomDirectoryEntry::Attribute;

namespace {

McFilename pathOf(const QTemporaryDir &folder)
{
    return McFilename(folder.path().toStdString());
}

/// Names and contents of all files.
QByteArray fingerprint(const QTemporaryDir &folder)
{
    QStringList names;
    QDirIterator files(folder.path(), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        names << files.next();
    }
    names.sort();
    QCryptographicHash hash(QCryptographicHash::Sha1);
    for (const QString &name : names) {
        hash.addData(QDir(folder.path()).relativeFilePath(name).toUtf8());
        hash.addData(readFile(name));
    }
    return hash.result();
}

/// The volume of a series with one phase; null when it cannot be read.
McHandle<KxVolume> load(const DicomDirectoryEntry &series)
{
    DicomVolumeReader reader;
    if (!reader.prepare(series)) {
        return nullptr;
    }
    const McHandle<KxVolume> volume(reader.series()->volume(0));
    reader.readSlices([&volume](DicomVolumeReader::Slice &&slice) {
        std::memcpy(volume->slice(slice.z), slice.bytes.data(), slice.bytes.size());
    });
    return volume;
}

/// Mean and number of the voxels whose centres lie within a ball and whose values lie within a
/// range.
struct Voxels
{
    double mean = 0;
    int count = 0;
};

Voxels voxelsAround(const KxVolume &volume, const McVec3d &center, double radius, double lowest)
{
    Voxels voxels;
    const auto [columns, rows, slices] = volume.dimensions();
    for (int i = 0; i < columns * rows * slices; ++i) {
        const int x = i % columns;
        const int y = i / columns % rows;
        const int z = i / columns / rows;
        const McVec3d point = volume.voxelToPatient().map({double(x), double(y), double(z)});
        const double value = volume.value(x, y, z);
        if ((point - center).length() <= radius && value >= lowest) {
            voxels.mean += value;
            ++voxels.count;
        }
    }
    voxels.mean /= voxels.count;
    return voxels;
}

/// Interrupts after a number of steps.
class Impatience final : public McProgressInterface
{
public:
    void setProgressValue(float /*value*/) override { ++m_steps; }
    int wasInterrupted() override { return m_steps >= 7 ? 1 : 0; }

private:
    int m_steps = 0;
};

} // namespace

class tst_SampleStudy : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QCOMPARE(SampleStudy::write(pathOf(m_folder)), std::string());
        m_found = DicomScanner::scanNow({pathOf(m_folder)});
    }

    void sameBytesOnEveryRun()
    {
        const QTemporaryDir again;
        QCOMPARE(SampleStudy::write(pathOf(again)), std::string());
        QCOMPARE(fingerprint(again), fingerprint(m_folder));
    }

    void directory()
    {
        QStringList lines;
        QStringList frames;
        for (const auto &patient : m_found.patients) {
            lines << QString::fromStdString(patient->patientName());
            QCOMPARE(patient->children().size(), 1);
            for (const auto &entry : patient->children().first()->children()) {
                lines << u"  %1 %2, %3 images, %4 phases"_s
                             .arg(QString::fromStdString(entry->modality()),
                                 QString::fromStdString(entry->text(Attribute::SeriesDescription)))
                             .arg(entry->numImages())
                             .arg(entry->phases().size());
                frames << QString::fromStdString(entry->text(Attribute::FrameOfReferenceUid));
                QCOMPARE(entry->children().size(), 1);
                QVERIFY(entry->isComplete());
                QVERIFY(entry->remarks().isEmpty());
            }
        }
        QCOMPARE(lines.join(u'\n'),
            u"Probe^Jörg\n"
            "  MR T1 sagittal, 36 images, 0 phases\n"
            "  MR T2 axial, 30 images, 0 phases\n"
            "Sample^Petra\n"
            "  CT Trunk soft 2.5, 108 images, 0 phases\n"
            "  CT Trunk sharp coronal 3, 72 images, 0 phases\n"
            "  CT Liver contrast 5 phases, 120 images, 5 phases"_s);
        QCOMPARE(m_found.numFiles, SampleStudy::numFiles());
        QVERIFY(m_found.problems.isEmpty());
        // One frame of reference a study.
        QCOMPARE(frames.count(frames.first()), 2);
        QCOMPARE(frames.count(frames.last()), 3);
        QVERIFY(!frames.contains(QString()));
    }

    /// Found at the same place and size in reconstructions that lie differently.
    void objectsToMeasure()
    {
        for (const char *description : {"Trunk soft 2.5", "Trunk sharp coronal 3"}) {
            const McHandle<KxVolume> loaded = load(series(description));
            QVERIFY(loaded);
            const KxVolume &volume = *loaded;
            const double voxel = std::abs(volume.voxelToPatient().determinant());
            const double radius = SampleStudy::sphereDiameter / 2;
            const double sphere = 4.0 / 3 * M_PI * std::pow(radius, 3);
            const double cube = std::pow(SampleStudy::cubeEdge, 3);
            // Thresholds halfway to what surrounds them
            const Voxels all = voxelsAround(volume, SampleStudy::sphereCenter, 15, -2000);
            const Voxels bright = voxelsAround(volume, SampleStudy::sphereCenter, radius + 4, 132);
            const Voxels brighter = voxelsAround(volume, SampleStudy::cubeCenter, 30, 182);
            QVERIFY2(std::abs(all.mean - 200) < 3, qPrintable(QString::number(all.mean)));
            for (const double share :
                {bright.count * voxel / sphere, brighter.count * voxel / cube}) {
                QVERIFY2(std::abs(share - 1) < 0.06, qPrintable(QString::number(share)));
            }
        }
    }

    void interruption()
    {
        const QTemporaryDir folder;
        Impatience progress;
        QCOMPARE(SampleStudy::write(pathOf(folder), &progress),
            std::string("Writing the sample study was interrupted."));
        QCOMPARE(DicomScanner::scanNow({pathOf(folder)}).numFiles, 7);
    }

private:
    const DicomDirectoryEntry &series(const char *description) const
    {
        for (const auto &patient : m_found.patients) {
            for (const auto &entry : patient->children().first()->children()) {
                if (entry->text(Attribute::SeriesDescription) == description) {
                    return *entry;
                }
            }
        }
        qFatal("no series %s", description);
    }

    QTemporaryDir m_folder;
    DicomScanner::Result m_found;
};

QTEST_GUILESS_MAIN(tst_SampleStudy)
#include "tst_SampleStudy.moc"
