#include "tests/platform/dicomio/DicomFixture.h"

#include "platform/dicomio/DicomVolumeReader.h"

#include <QTest>

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

std::string position(const McVec3d &v)
{
    return std::to_string(v.x) + '\\' + std::to_string(v.y) + '\\' + std::to_string(v.z);
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
    const QByteArray old
        = QByteArray::fromHex("0200100055491400") + QByteArray("1.2.840.10008.1.2.1\0", 20);
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
    void geometry()
    {
        // Orientation, from slice to slice; the grid's z axis and the place of its first slice
        const std::tuple<const char *, McVec3d, QString, QString> rows[]
            = {{"1\\0\\0\\0\\1\\0", {0, 0, 3}, u"0.00 0.00 3.00"_s, u"-10.00 -20.00 5.00"_s},
                {"1\\0\\0\\0\\1\\0", {0, 0, -3}, u"0.00 0.00 3.00"_s, u"-10.00 -20.00 -1.00"_s},
                {"1\\0\\0\\0\\0\\-1", {0, 2, 0}, u"0.00 2.00 0.00"_s, u"-10.00 -20.00 5.00"_s},
                {"0\\1\\0\\0\\0\\-1", {4, 0, 0}, u"-4.00 0.00 0.00"_s, u"-2.00 -20.00 5.00"_s},
                {"0.6\\0.8\\0\\0\\0\\-1", {-0.8, 0.6, 0}, u"-0.80 0.60 0.00"_s,
                    u"-10.00 -20.00 5.00"_s}};
        for (const auto &[orientation, step, zAxis, first] : rows) {
            DicomFixture files;
            for (int i = 0; i < 3; ++i) {
                const McVec3d place = McVec3d{-10, -20, 5} + step * i;
                files.addSlice(
                    i + 1, 0, {{"G0020-0037", orientation}, {"G0020-0032", position(place)}});
            }
            const Loaded loaded(files.onlySeries());
            QVERIFY(loaded.isPrepared);
            const McTransform3d &grid = loaded.volume().voxelToPatient();
            QCOMPARE(text(grid.zAxis()), zAxis);
            QCOMPARE(text(grid.origin()), first);
            QVERIFY(grid.determinant() > 0);
            QCOMPARE(loaded.volume().dimensions(), (std::array<int, 3>{4, 3, 3}));
            QCOMPARE(loaded.volume().spacing()[0], 0.25); // The second of the spacings: of columns
            QCOMPARE(loaded.volume().spacing()[1], 0.5);
            QVERIFY(loaded.remarks().isEmpty());
        }
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
                    {"G0020-0032", position({0, 0, 2.0 * i})}});
        }
        const Loaded loaded(files.onlySeries());
        const McTransform3d &grid = loaded.volume().voxelToPatient();
        QCOMPARE(text(grid.zAxis()), u"0.00 0.00 2.00"_s);
        QVERIFY(std::abs(grid.yAxis().dot(grid.zAxis())) > 0.2);
        QCOMPARE(loaded.corners(), u"100 200 300 400 500"_s);
        QVERIFY(loaded.remarks().isEmpty());
    }

    void values()
    {
        using Scalar = KxVolume::ScalarType;
        // "attribute=value", separated by blanks; what is stored; the type and value of the volume
        const QString wide = u"G0028-0101=16 G0028-0102=15"_s;
        const QString inverse = u"G0028-0004=MONOCHROME1"_s;
        const std::tuple<QString, int, Scalar, double> rows[] = {{{}, 77, Scalar::Int16, 77.0},
            {u"G0028-1052=-1024 G0028-1053=1"_s, 77, Scalar::Int16, -947.0},
            {u"G0028-1052=10 G0028-1053=3"_s, 77, Scalar::Int16, 241.0},
            {u"G0028-1052=0 G0028-1053=0.5"_s, 77, Scalar::Float32, 38.5},
            {u"G0028-1052=5 G0028-1053=0"_s, 77, Scalar::Int16, 82.0}, // a slope of zero
            {u"G0028-1052=0 G0028-1053=100"_s, 77, Scalar::Float32, 7700.0}, // a large range
            {wide, -1, Scalar::Float32, 65535.0},
            {wide + u" G0028-0103=1", -1, Scalar::Int16, -1.0},
            {u"G0028-0103=1"_s, 0xfff, Scalar::Int16, -1.0}, // 12 bits with sign
            {{}, 0xf001, Scalar::Int16, 1.0}, // bits above the stored ones
            {inverse, 95, Scalar::Int16, 4000.0},
            {inverse + u" G0028-1052=-1000 G0028-1053=2", 95, Scalar::Int16, 7000.0}};
        for (const auto &[changes, stored, type, value] : rows) {
            const McHandle<HxParamBundle> attributes = DicomFixture::attributes(1);
            for (const QString &change : changes.split(u' ', Qt::SkipEmptyParts)) {
                const QStringList parts = change.split(u'=');
                attributes->set(parts[0].toStdString(), parts[1].toStdString());
            }
            DicomFixture files;
            files.add("a", *attributes, std::vector(12, static_cast<std::int16_t>(stored)));
            const Loaded loaded(files.onlySeries());
            QCOMPARE(loaded.volume().scalarType(), type);
            QCOMPARE(loaded.volume().value(2, 1, 0), value);
        }
    }

    void colours()
    {
        // Of an image of 2 x 1 pixels: pixel by pixel, plane by plane, luminance
        const std::tuple<const char *, const char *, const char *, QString> rows[]
            = {{"RGB", "0", "ff0001020304", u"255 0 1 2 3 4"_s},
                {"RGB", "1", "ff0200030104", u"255 0 1 2 3 4"_s},
                {"YBR_FULL", "0", "508080ff8080", u"80 80 80 255 255 255"_s}};
        for (const auto &[photometric, planar, pixels, expected] : rows) {
            const QByteArray bytes = QByteArray::fromHex(pixels);
            DicomFixture files;
            files.addBytes("a",
                *DicomFixture::attributes(1,
                    {{"G0028-0004", photometric}, {"G0028-0002", "3"}, {"G0028-0006", planar},
                        {"G0028-0010", "1"}, {"G0028-0011", "2"}, {"G0028-0100", "8"},
                        {"G0028-0101", "8"}, {"G0028-0102", "7"}}),
                std::as_bytes(std::span(bytes)));
            const Loaded loaded(files.onlySeries());
            QStringList shown;
            for (int i = 0; i < 6; ++i) {
                shown << QString::number(loaded.volume().value(i / 3, 0, 0, i % 3));
            }
            QCOMPARE(shown.join(u' '), expected);
        }
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
        files.addStackAt({0, 2, 4.6, 6, 8});
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
        files.addStackAt({0, 2, 4, 10, 12}, {{"G0028-1052", "-1000"}, {"G0028-1053", "1"}});
        const auto series = files.onlySeries();
        const Loaded loaded(series);
        QCOMPARE(loaded.corners(), u"-900 -800 -700 -900 -900 -600 -500"_s);
        QCOMPARE(loaded.remarks(),
            u"Images are missing: a gap of 6 mm, where 2 mm are usual, is left empty."_s);
        QVERIFY(!series->isComplete());
    }

    void phasesByAttribute()
    {
        const QString second = u"500 600 700 800"_s;
        // Attribute, its values, the phases, the first one's corners: by value, not by image number
        const std::tuple<const char *, QString, QString, QString> rows[] = {
            {"G0018-9087", u"1000 0 500"_s, u"b 0|b 500|b 1000"_s, second},
            {"G0018-0024", u"ep_b1000t ep_b0 ep_b500t"_s, u"b 0|b 500|b 1000"_s, second},
            {"G0020-0100", u"10 9 8"_s, u"t 8|t 9|t 10"_s, u"900 1000 1100 1200"_s},
            {"G0018-0081", u"80 20 100"_s, u"TE 20 ms|TE 80 ms|TE 100 ms"_s, second},
            {"G0008-0032", u"101502 101501.5 101503"_s, u"10:15:01|10:15:02|10:15:03"_s, second}};
        for (const auto &[attribute, values, labels, corners] : rows) {
            DicomFixture files;
            int instance = 0;
            for (const QString &value : values.split(u' ')) {
                for (int slice = 0; slice < 4; ++slice) {
                    files.addSlice(++instance, 3 * slice, {{attribute, value.toStdString()}});
                }
            }
            const auto series = files.onlySeries();
            const Loaded loaded(series);
            QCOMPARE(loaded.phases(), labels);
            QCOMPARE(series->children().size(), 1);
            QCOMPARE(series->phases().size(), 3);
            QCOMPARE(loaded.corners(0), corners);
            QVERIFY(loaded.remarks().isEmpty() && series->isComplete());
        }
    }

    void phasesByOrder()
    {
        DicomFixture files;
        for (int i = 1; i <= 6; ++i) { // Every image has a time of its own.
            files.addSlice(i, i % 3 == 0 ? 3 : i % 3, {{"G0008-0032", std::to_string(100000 + i)}});
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
        files.addStack(3);
        files.addSlice(1, 0, {{"G0020-0037", "0\\1\\0\\0\\0\\-1"}});
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
            attributes->set(
                group + "G0020-9113[0].G0020-0032", position({0, 0, frame < 2 ? 5.0 : 0}));
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
        files.cutOff("4.dcm", 8);
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
        QVERIFY(!report.isPrepared && !report.reader.series() && report.reader.numSlices() == 0);
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

        files.cutOff("1.dcm", 30);
        const auto result = Loaded(series);
        QVERIFY(!result.isPrepared || result.order == QStringList{u"0/0!"_s});
    }
};

QTEST_GUILESS_MAIN(tst_DicomVolumeReader)
#include "tst_DicomVolumeReader.moc"
