#include "tests/platform/dicomio/DicomFixture.h"

#include "platform/dicomio/DicomVolumeReader.h"
#include "tests/support/Rows.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <cstring>

using namespace Qt::StringLiterals;
using Slice = DicomVolumeReader::Slice;

namespace {

/// A reader whose slices have been copied into its volumes.
struct Loaded
{
    DicomVolumeReader reader;
    bool isPrepared = false;
    QStringList order; ///< "phase/z", with "!" for a slice that could not be read

    explicit Loaded(const McHandle<Zel::DicomDirectoryEntry> &entry)
        : isPrepared(reader.prepare(*entry))
    {
        reader.readSlices([this](Slice &&slice) {
            order << u"%1/%2%3"_s.arg(slice.phase)
                         .arg(slice.z)
                         .arg(slice.problem.empty() ? QString() : u"!"_s);
            KxVolume &target = *reader.series()->volume(slice.phase);
            std::memcpy(target.slice(slice.z), slice.bytes.data(), slice.bytes.size());
            if (slice.window) {
                target.setDefaultWindow(*slice.window);
            }
        });
    }

    [[nodiscard]] const KxVolume &volume(int phase = 0) const
    {
        return *reader.series()->volume(phase);
    }
    /// The first voxel of each slice of a phase.
    [[nodiscard]] QString corners(int phase = 0) const
    {
        QStringList values;
        for (int z = 0; z < volume().dimensions()[2]; ++z) {
            values << QString::number(volume(phase).value(0, 0, z));
        }
        return values.join(u' ');
    }
    [[nodiscard]] QString remarks() const
    {
        QString all;
        for (const std::string &remark : reader.remarks()) {
            all += QString::fromStdString(remark);
        }
        return all;
    }
    [[nodiscard]] QString phases() const
    {
        QStringList labels;
        for (int phase = 0; phase < reader.series()->numVolumes(); ++phase) {
            labels << QString::fromStdString(reader.series()->phaseLabel(phase));
        }
        return labels.join(u'|');
    }
};

QString text(const McVec3d &v)
{
    return u"%1 %2 %3"_s.arg(v.x, 0, 'f', 2).arg(v.y, 0, 'f', 2).arg(v.z, 0, 'f', 2);
}

std::string position(double x, double y, double z)
{
    return std::to_string(x) + '\\' + std::to_string(y) + '\\' + std::to_string(z);
}

QByteArray deflated(const QByteArray &file)
{
    constexpr qsizetype zlibHeader = 2;
    constexpr qsizetype qtLength = 4;
    constexpr qsizetype checksum = 4;
    const QByteArray mark = QByteArray::fromHex("08000500"); // the first element of the data set
    const qsizetype start = file.indexOf(mark);
    const QByteArray packed = qCompress(file.mid(start));
    QByteArray header = file.left(start);
    // Element (0002,0010) grows by two bytes, and with it the group's length.
    const QByteArray old = QByteArray::fromHex("020010005549"
                                               "1400")
        + QByteArray("1.2.840.10008.1.2.1\0", 20);
    header.replace(old, QByteArray::fromHex("0200100055491600").append("1.2.840.10008.1.2.1.99"));
    header[140] = static_cast<char>(header[140] + 2);
    return header
        + packed.mid(qtLength + zlibHeader, packed.size() - qtLength - zlibHeader - checksum);
}

} // namespace

class tst_DicomVolumeReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void geometry_data()
    {
        // step: from slice to slice
        // zAxis: the grid's
        // first: position of the grid's first slice
        const Rows<QString, QString, QString, QString> row("orientation", "step", "zAxis", "first");
        row("axial upwards", "1\\0\\0\\0\\1\\0", "0 0 3", "0.00 0.00 3.00", "-10.00 -20.00 5.00");
        row("axial downwards", "1\\0\\0\\0\\1\\0", "0 0 -3", "0.00 0.00 3.00",
            "-10.00 -20.00 -1.00");
        row("coronal", "1\\0\\0\\0\\0\\-1", "0 2 0", "0.00 2.00 0.00", "-10.00 -20.00 5.00");
        row("sagittal", "0\\1\\0\\0\\0\\-1", "4 0 0", "-4.00 0.00 0.00", "-2.00 -20.00 5.00");
        row("oblique", "0.6\\0.8\\0\\0\\0\\-1", "-0.8 0.6 0", "-0.80 0.60 0.00",
            "-10.00 -20.00 5.00");
    }

    void geometry()
    {
        QFETCH(const QString, orientation);
        QFETCH(const QString, step);
        const QStringList parts = step.split(u' ');
        DicomFixture files;
        for (int i = 0; i < 3; ++i) {
            files.addSlice(i + 1, 0,
                {{"G0020-0037", orientation.toStdString()},
                    {"G0020-0032",
                        position(-10 + i * parts[0].toDouble(), -20 + i * parts[1].toDouble(),
                            5 + i * parts[2].toDouble())}});
        }
        const Loaded loaded(files.onlySeries());
        QVERIFY(loaded.isPrepared);
        const McTransform3d &grid = loaded.volume().voxelToPatient();
        QTEST(text(grid.zAxis()), "zAxis");
        QTEST(text(grid.origin()), "first");
        QVERIFY(grid.determinant() > 0);
        QCOMPARE(loaded.volume().dimensions(), (std::array<int, 3>{4, 3, 3}));
        QCOMPARE(loaded.volume().spacing()[0], 0.25); // the second of the spacings is along the row
        QCOMPARE(loaded.volume().spacing()[1], 0.5);
        QVERIFY(loaded.remarks().isEmpty());
    }

    void voxelsLieWhereTheFilesSay()
    {
        DicomFixture files;
        for (const int instance : {3, 1, 4, 2}) { // numbers that say nothing about the order
            files.addSlice(instance, 10 * ((instance * 2) % 5));
        }
        const Loaded loaded(files.onlySeries());
        QCOMPARE(loaded.corners(), u"300 100 400 200"_s);
        QCOMPARE(loaded.volume().value(3, 0, 0), 303.0);
        QCOMPARE(loaded.volume().value(0, 2, 3), 208.0);
        QCOMPARE(text(loaded.volume().voxelToPatient().map({3, 2, 1})), u"-9.25 -19.00 20.00"_s);
        QCOMPARE(loaded.volume().unit(), std::string("HU"));
        QCOMPARE(loaded.volume().attributes()->find("G0010-0010"), std::string("Doe^Jane"));
        QCOMPARE(loaded.reader.series()->uid(), std::string("2.25.1.1"));
    }

    void gantryTiltShears()
    {
        DicomFixture files;
        const double rise = std::sin(0.3);
        const double run = std::cos(0.3);
        for (int i = 0; i < 5; ++i) {
            // The table moves along z while the images lean.
            files.addSlice(i + 1, 0,
                {{"G0020-0037", "1\\0\\0\\0\\" + std::to_string(run) + "\\" + std::to_string(rise)},
                    {"G0020-0032", position(0, 0, 2 * i)}});
        }
        const Loaded loaded(files.onlySeries());
        const McTransform3d &grid = loaded.volume().voxelToPatient();
        QCOMPARE(text(grid.zAxis()), u"0.00 0.00 2.00"_s);
        QVERIFY(std::abs(grid.yAxis().dot(grid.zAxis())) > 0.2);
        QCOMPARE(loaded.corners(), u"100 200 300 400 500"_s);
        QVERIFY(loaded.remarks().isEmpty());
    }

    void values_data()
    {
        using Scalar = KxVolume::ScalarType;
        // changes: "attribute=value", separated by blanks
        const Rows<QString, int, Scalar, double> row("changes", "stored", "type", "value");
        row("plain", "", 77, Scalar::Int16, 77.0);
        row("intercept", "G0028-1052=-1024 G0028-1053=1", 77, Scalar::Int16, -947.0);
        row("whole slope", "G0028-1052=10 G0028-1053=3", 77, Scalar::Int16, 241.0);
        row("broken slope", "G0028-1052=0 G0028-1053=0.5", 77, Scalar::Float32, 38.5);
        row("slope of zero", "G0028-1052=5 G0028-1053=0", 77, Scalar::Int16, 82.0);
        row("large range", "G0028-1052=0 G0028-1053=100", 77, Scalar::Float32, 7700.0);
        row("unsigned 16 bits", "G0028-0101=16 G0028-0102=15", -1, Scalar::Float32, 65535.0);
        row("signed 16 bits", "G0028-0101=16 G0028-0102=15 G0028-0103=1", -1, Scalar::Int16, -1.0);
        row("signed 12 bits", "G0028-0103=1", 0xfff, Scalar::Int16, -1.0);
        row("bits above the stored ones", "", 0xf001, Scalar::Int16, 1.0);
        row("low is bright", "G0028-0004=MONOCHROME1", 95, Scalar::Int16, 4000.0);
        row("low is bright, rescaled", "G0028-0004=MONOCHROME1 G0028-1052=-1000 G0028-1053=2", 95,
            Scalar::Int16, 7000.0);
    }

    void values()
    {
        QFETCH(const QString, changes);
        QFETCH(const int, stored);
        const McHandle<HxParamBundle> attributes = DicomFixture::attributes(1);
        for (const QString &change : changes.split(u' ', Qt::SkipEmptyParts)) {
            attributes->set(
                change.section(u'=', 0, 0).toStdString(), change.section(u'=', 1).toStdString());
        }
        DicomFixture files;
        files.add(
            "a", *attributes, std::vector<std::int16_t>(12, static_cast<std::int16_t>(stored)));
        const Loaded loaded(files.onlySeries());
        QTEST(loaded.volume().scalarType(), "type");
        QTEST(loaded.volume().value(2, 1, 0), "value");
    }

    void colours_data()
    {
        // Of an image of 2 x 1 pixels.
        const Rows<QString, QString, QString, QString> row(
            "photometric", "planar", "pixels", "shown");
        row("pixel by pixel", "RGB", "0", "ff0001020304", "255 0 1 2 3 4");
        row("plane by plane", "RGB", "1", "ff0200030104", "255 0 1 2 3 4");
        row("luminance", "YBR_FULL", "0", "508080ff8080", "80 80 80 255 255 255");
    }

    void colours()
    {
        QFETCH(const QString, photometric);
        QFETCH(const QString, planar);
        QFETCH(const QString, pixels);
        const QByteArray bytes = QByteArray::fromHex(pixels.toLatin1());
        DicomFixture files;
        files.addBytes("a",
            *DicomFixture::attributes(1,
                {{"G0028-0004", photometric.toStdString()}, {"G0028-0002", "3"},
                    {"G0028-0006", planar.toStdString()}, {"G0028-0010", "1"}, {"G0028-0011", "2"},
                    {"G0028-0100", "8"}, {"G0028-0101", "8"}, {"G0028-0102", "7"}}),
            std::as_bytes(std::span(bytes.constData(), static_cast<std::size_t>(bytes.size()))));
        const Loaded loaded(files.onlySeries());
        QStringList shown;
        for (int i = 0; i < 6; ++i) {
            shown << QString::number(loaded.volume().value(i / 3, 0, 0, i % 3));
        }
        QTEST(shown.join(u' '), "shown");
    }

    void windows()
    {
        const auto windowOf = [](std::initializer_list<DicomFixture::Changes> images) {
            DicomFixture files;
            int instance = 0;
            for (const DicomFixture::Changes &changes : images) {
                ++instance;
                files.addSlice(instance, instance, changes);
            }
            const Loaded loaded(files.onlySeries());
            const KxVolume::Window &window = loaded.volume().defaultWindow();
            return u"%1/%2"_s.arg(window.center).arg(window.width);
        };
        QCOMPARE(windowOf({{}, {{"G0028-1050", "200\\7"}, {"G0028-1051", "50\\9"}}, {}}),
            u"200/50"_s); // That of the image in the middle.
        QCOMPARE(windowOf({{{"G0028-0004", "MONOCHROME1"}, {"G0028-1050", "1000"},
                     {"G0028-1051", "50"}}}),
            u"3095/50"_s);
        QCOMPARE(windowOf({{}}), u"40/400"_s); // A CT.
        // Of the values from 100 to 111, all but the brightest.
        QCOMPARE(windowOf({{{"G0008-0060", "MR"}}}), u"105/10"_s);
    }

    void nearlyEvenGapsAreResampled()
    {
        DicomFixture files;
        int instance = 0;
        for (const double z : {0.0, 2.0, 4.6, 6.0, 8.0}) {
            files.addSlice(++instance, z);
        }
        const Loaded loaded(files.onlySeries());
        QCOMPARE(loaded.volume().dimensions()[2], 5);
        QCOMPARE(loaded.volume().spacing()[2], 2.0);
        // The third slice lies at 4, between the images at 2 and 4.6.
        QCOMPARE(loaded.corners(), u"100 200 277 400 500"_s);
        QCOMPARE(loaded.remarks(),
            u"The distance between the images varies; they were resampled to 2 mm."_s);
    }

    void holesStayEmpty()
    {
        DicomFixture files;
        int instance = 0;
        for (const double z : {0.0, 2.0, 4.0, 10.0, 12.0}) {
            files.addSlice(++instance, z, {{"G0028-1052", "-1000"}, {"G0028-1053", "1"}});
        }
        const auto series = files.onlySeries();
        const Loaded loaded(series);
        QCOMPARE(loaded.corners(), u"-900 -800 -700 -900 -900 -600 -500"_s);
        QCOMPARE(loaded.remarks(),
            u"Images are missing: a gap of 6 mm, where 2 mm are usual, is left empty."_s);
        QVERIFY(!series->isComplete());
    }

    void phasesByAttribute_data()
    {
        // corners: of the first phase: by value, not by image number
        const Rows<QString, QString, QString, QString> row(
            "attribute", "values", "labels", "corners");
        row("b-value", "G0018-9087", "1000 0 500", "b 0|b 500|b 1000", "500 600 700 800");
        row("b-value in the sequence's name", "G0018-0024", "ep_b1000t ep_b0 ep_b500t",
            "b 0|b 500|b 1000", "500 600 700 800");
        row("time position", "G0020-0100", "10 9 8", "t 8|t 9|t 10", "900 1000 1100 1200");
        row("echo", "G0018-0081", "80 20 100", "TE 20 ms|TE 80 ms|TE 100 ms", "500 600 700 800");
        row("moment of acquisition", "G0008-0032", "101502 101501.5 101503",
            "10:15:01|10:15:02|10:15:03", "500 600 700 800");
    }

    void phasesByAttribute()
    {
        QFETCH(const QString, attribute);
        QFETCH(const QString, values);
        QFETCH(const QString, labels);
        const QByteArray name = attribute.toLatin1();
        DicomFixture files;
        int instance = 0;
        for (const QString &value : values.split(u' ')) {
            for (int slice = 0; slice < 4; ++slice) {
                files.addSlice(++instance, 3 * slice, {{name.constData(), value.toStdString()}});
            }
        }
        const auto series = files.onlySeries();
        const Loaded loaded(series);
        QCOMPARE(loaded.phases(), labels);
        QCOMPARE(series->children().size(), 1);
        QCOMPARE(series->phases().size(), 3);
        QCOMPARE(loaded.volume().dimensions()[2], 4);
        QTEST(loaded.corners(0), "corners");
        QVERIFY(loaded.remarks().isEmpty());
        QVERIFY(series->isComplete());
    }

    void phasesByOrder()
    {
        DicomFixture files;
        int instance = 0;
        for (int time = 0; time < 2; ++time) {
            for (int slice = 0; slice < 3; ++slice) {
                ++instance; // every image has a time of its own
                files.addSlice(
                    instance, slice, {{"G0008-0032", std::to_string(100000 + instance)}});
            }
        }
        const Loaded loaded(files.onlySeries());
        QCOMPARE(loaded.phases(), u"t 1|t 2"_s);
        QCOMPARE(loaded.corners(0), u"100 200 300"_s);
        QCOMPARE(loaded.corners(1), u"400 500 600"_s);
    }

    void incompletePhaseIsLeftOut()
    {
        DicomFixture files;
        files.addStack(4);
        files.addSlice(5, 2);
        const auto series = files.onlySeries();
        const Loaded loaded(series);
        QCOMPARE(loaded.reader.series()->numVolumes(), 1);
        QCOMPARE(loaded.corners(), u"100 200 300 400"_s);
        QVERIFY(!series->isComplete());
        QCOMPARE(QString::fromStdString(series->children().first()->remarks().first()),
            u"1 image lies where another one lies, and makes no complete volume; left "
            "out."_s);
    }

    void overlappingAcquisitionsAreOneVolume()
    {
        DicomFixture files;
        for (int i = 1; i <= 5; ++i) {
            files.addSlice(i, i, {{"G0020-0012", "1"}});
            files.addSlice(10 + i, i + 4, {{"G0020-0012", "2"}});
        }
        const Loaded loaded(files.onlySeries());
        QCOMPARE(loaded.corners(), u"100 200 300 400 500 1200 1300 1400 1500"_s);
    }

    void largestVolumeOfASeries()
    {
        DicomFixture files;
        files.addSlice(1, 0, {{"G0020-0037", "0\\1\\0\\0\\0\\-1"}});
        files.addSlice(2, 0);
        files.addSlice(3, 1);
        const auto series = files.onlySeries();
        const Loaded whole(series);
        QCOMPARE(whole.corners(), u"200 300"_s);
        QCOMPARE(whole.remarks(), u"The series holds 2 volumes; the largest one is shown."_s);
        const Loaded scout(series->children().first());
        QCOMPARE(scout.corners(), u"100"_s);
        QCOMPARE(scout.reader.series()->uid(), series->uid());
    }

    void placedFrames()
    {
        // One file with two echoes of two slices each, as newer scanners write them.
        DicomFixture files;
        const McHandle<HxParamBundle> attributes = DicomFixture::attributes(1,
            {{"G0008-0060", "MR"}, {"G0028-0008", "4"}, {"G0020-0032", ""}, {"G0028-0030", ""},
                {"G0020-0037", ""}, {"G5200-9229[0].G0028-9110[0].G0028-0030", "0.5\\0.25"},
                {"G5200-9229[0].G0020-9116[0].G0020-0037", "1\\0\\0\\0\\1\\0"}});
        for (int frame = 0; frame < 4; ++frame) {
            const std::string group = "G5200-9230[" + std::to_string(frame) + "].";
            attributes->set(group + "G0020-9113[0].G0020-0032", position(0, 0, frame < 2 ? 5 : 0));
            attributes->set(group + "G0018-9114[0].G0018-9082", frame % 2 == 0 ? "80" : "20");
            attributes->set(group + "G0028-9145[0].G0028-1053", "1");
            attributes->set(group + "G0028-9145[0].G0028-1052", std::to_string(1000 * frame));
        }
        files.add("mf", *attributes, DicomFixture::ramp(0, 48));
        const auto series = files.onlySeries();
        const Loaded loaded(series);
        QCOMPARE(loaded.phases(), u"TE 20 ms|TE 80 ms"_s);
        QCOMPARE(loaded.corners(0), u"3036 1012"_s);
        QCOMPARE(loaded.corners(1), u"2024 0"_s);
        QCOMPARE(text(loaded.volume().voxelToPatient().zAxis()), u"0.00 0.00 5.00"_s);
        QCOMPARE(series->numImages(), 4);
        QCOMPARE(series->files().size(), 1);
    }

    void film()
    {
        DicomFixture files;
        files.add("us",
            *DicomFixture::attributes(1,
                {{"G0008-0060", "US"}, {"G0028-0008", "3"}, {"G0020-0032", ""}, {"G0020-0037", ""},
                    {"G0028-0030", ""}}),
            DicomFixture::ramp(0, 36));
        const Loaded loaded(files.onlySeries());
        QCOMPARE(loaded.phases(), u"frame 1|frame 2|frame 3"_s);
        QCOMPARE(loaded.volume(2).value(0, 0, 0), 24.0);
        QCOMPARE(loaded.remarks(), u"The size of the pixels is unknown; lengths are in pixels."_s);
    }

    void orderAndFailures()
    {
        DicomFixture files;
        for (int i = 1; i <= 5; ++i) {
            files.addSlice(i, i);
            files.addSlice(10 + i, i);
        }
        const auto series = files.onlySeries();
        const QByteArray whole = files.read("4.dcm");
        files.addText("4.dcm", whole.left(whole.size() - 8));
        const Loaded loaded(series);
        QVERIFY(loaded.isPrepared);
        QCOMPARE(loaded.order.join(u' '), u"0/2 0/1 0/0 0/4 1/2 1/1 1/3 1/0 1/4 0/3!"_s);
        QCOMPARE(loaded.corners(0), u"100 200 300 100 500"_s);
        QCOMPARE(loaded.reader.numSlices(), 10);
    }

    void stopped()
    {
        DicomFixture files;
        files.addStack(5);
        const auto series = files.onlySeries();
        DicomVolumeReader reader;
        QVERIFY(reader.prepare(*series));
        std::stop_source source;
        int slices = 0;
        const bool isComplete = reader.readSlices(
            [&](Slice &&) {
                if (++slices == 2) {
                    source.request_stop();
                }
            },
            source.get_token());
        QVERIFY(!isComplete);
        QCOMPARE(slices, 2);
        QVERIFY(!reader.prepare(*series, source.get_token()));
        QCOMPARE(reader.errorText(), std::string("Loading was cancelled."));
    }

    void nothingToRead()
    {
        DicomFixture files;
        files.add("pr", *DicomFixture::attributes(1, {{"G0008-0060", "PR"}}), {});
        const Loaded report(files.onlySeries());
        QVERIFY(!report.isPrepared);
        QVERIFY(!report.reader.series());
        QCOMPARE(report.reader.numSlices(), 0);
        QCOMPARE(report.reader.errorText(), std::string("There are no images to load."));

        DicomFixture gone;
        const McFilename file = gone.addSlice(1, 0);
        const auto series = gone.onlySeries();
        std::filesystem::remove(file);
        const Loaded absent(series);
        QVERIFY(!absent.isPrepared);
        QVERIFY2(
            absent.reader.errorText().starts_with("1.dcm: "), absent.reader.errorText().c_str());
    }

    void deflatedFile()
    {
        DicomFixture files;
        files.addSlice(1, 0);
        files.addText("1.dcm", deflated(files.read("1.dcm")));
        const auto series = files.onlySeries();
        QCOMPARE(series->patientName(), std::string("Doe^Jane"));
        const Loaded loaded(series);
        QCOMPARE(loaded.order, QStringList{u"0/0"_s});
        QCOMPARE(loaded.volume().value(3, 2, 0), 111.0);

        const QByteArray whole = files.read("1.dcm");
        files.addText("1.dcm", whole.left(whole.size() - 30));
        const auto result = Loaded(series);
        QVERIFY(!result.isPrepared || result.order == QStringList{u"0/0!"_s});
    }
};

QTEST_GUILESS_MAIN(tst_DicomVolumeReader)
#include "tst_DicomVolumeReader.moc"
