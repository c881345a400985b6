#include "tests/platform/dicomio/DicomFixture.h"

#include "platform/dicom/KxVolumeInfoCache.h"
#include "platform/dicomio/DicomHeaderReader.h"

#include <QSignalSpy>
#include <QTest>
#include <QThread>

#include <array>
#include <filesystem>

using namespace Qt::StringLiterals;
using Zel::DicomDirectoryEntry;
using Attribute = DicomDirectoryEntry::Attribute;

namespace {

QString text(const std::string &value)
{
    return QString::fromStdString(value);
}

QStringList remarksOf(const DicomDirectoryEntry &entry)
{
    QStringList lines;
    for (const std::string &remark : entry.remarks()) {
        lines << u"  ! " % text(remark);
    }
    return lines;
}

/// "patient/id study series modality: images of its volumes", and remarks below.
QStringList describedSeries(const DicomDirectoryEntry &series)
{
    QStringList lines{text(series.patientName() + '/' + series.patientId() + ' ')
        % text(series.studyUid() + ' ' + series.uid() + ' ' + series.modality() + ':')};
    QStringList remarks = remarksOf(series);
    for (const auto &volume : series.children()) {
        lines.first() += u' ' % QString::number(volume->numImages());
        remarks += remarksOf(*volume);
    }
    lines.first() += series.isComplete() ? u"" : u" incomplete";
    lines.first() += series.isImage() ? u"" : u" no images";
    return lines + remarks;
}

QString described(const DicomScanner::Result &result)
{
    QStringList lines;
    for (const auto &patient : result.patients) {
        for (const auto &study : patient->children()) {
            for (const auto &series : study->children()) {
                lines += describedSeries(*series);
            }
        }
    }
    for (const DicomScanner::Problem &problem : result.problems) {
        lines << text(problem.file.filename().string()) % u": " % text(problem.reason);
    }
    return lines.join(u'\n');
}

} // namespace

class tst_DicomScanner : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tree()
    {
        DicomFixture files;
        files.addStack(3);
        const DicomFixture::Changes roe{{"G0010-0010", "Roe^Richard"}, {"G0010-0020", "ID2"},
            {"G0020-000D", "2.25.2"}, {"G0020-000E", "2.25.2.1"}, {"G0020-0011", "7"},
            {"G0008-0060", "MR"}, {"G0008-103E", "axial"}};
        std::filesystem::create_directories(files.path("deep/er"));
        files.add("deep/er/1", *DicomFixture::attributes(11, roe), DicomFixture::ramp(0));
        // Same ID, other name: must not become one person.
        files.addSlice(21, 0,
            {{"G0010-0010", "Doe^John"}, {"G0020-000D", "2.25.3"}, {"G0020-000E", "2.25.3.1"}});

        const DicomScanner::Result result = files.scan();
        QCOMPARE(described(result),
            u"Doe^Jane/ID1 2.25.1 2.25.1.1 CT: 3\n"
            "Doe^John/ID1 2.25.3 2.25.3.1 CT: 1\n"
            "Roe^Richard/ID2 2.25.2 2.25.2.1 MR: 1"_s);
        QCOMPARE(result.numFiles, 5);
        const DicomDirectoryEntry &series
            = *result.patients.last()->children().first()->children().first();
        QCOMPARE(series.text(Attribute::SeriesNumber), std::string("7"));
        QCOMPARE(series.text(Attribute::SeriesDescription), std::string("axial"));
        QCOMPARE(series.patientBirthDate(), std::string("19700102"));
        QCOMPARE(series.files(), (McDArray<McFilename>{files.path("deep/er/1")}));
    }

    void namesAreUtf8()
    {
        DicomFixture files;
        const std::string name = "Yamada^Tarou=山田^太郎=やまだ^たろう";
        files.addSlice(1, 0, {{"G0010-0010", name}, {"G0008-103E", "Schädel"}});
        QByteArray latin = files.read("1.dcm");
        // The same file as a Latin-1 device would have written it.
        latin.replace("ISO_IR 192", "ISO_IR 100");
        latin.replace("Schädel", "Sch\344del ");
        files.addText("1.dcm",
            latin.replace(QByteArray::fromStdString(name),
                QByteArray("J\xfcrgens^\xc5sa").leftJustified(qsizetype(name.size()), ' ')));

        const DicomScanner::Result result = files.scan();
        QCOMPARE(result.patients.first()->patientName(), std::string("Jürgens^Åsa"));
        QCOMPARE(files.onlySeries()->text(Attribute::SeriesDescription), std::string("Schädel"));

        files.addSlice(1, 0, {{"G0010-0010", name}});
        QCOMPARE(files.scan().patients.first()->patientName(), name);
    }

    void sameBytesInOtherCharacterSets()
    {
        DicomFixture files;
        for (int i = 1; i <= 8; ++i) {
            files.addSlice(i, i, {{"G0010-0010", "Horak^Jan "}});
            const std::string name = std::to_string(i) + ".dcm";
            files.replace(name, "ISO_IR 192", i % 2 ? "ISO_IR 100" : "ISO_IR 101");
            files.replace(name, "Horak", "Hor\xe8k");
        }
        // Two people with one series: each keeps a series of its own.
        QCOMPARE(described(files.scan()),
            u"Horèk^Jan/ID1 2.25.1 2.25.1.1+93d0f7aa CT: 4\n"
            "Horčk^Jan/ID1 2.25.1 2.25.1.1+1c999fdf CT: 4"_s);
    }

    void missingIdentity()
    {
        DicomFixture files;
        files.addSlice(1, 0, {{"G0010-0010", ""}, {"G0010-0020", ""}, {"G0010-0030", ""}});
        QByteArray anonymous = files.read("1.dcm");
        // The writer insists on a series; take it away by turning its element into a private one.
        anonymous.replace(QByteArray::fromHex("20000e00"), QByteArray::fromHex("20000f00"));
        files.addText("2.dcm", anonymous.replace("2.25.1.1.1", "2.25.1.1.2"));
        const DicomScanner::Result result = files.scan();
        QCOMPARE(described(result),
            u"/ 2.25.1 2.25.1.1 CT: 1\n"
            "/ 2.25.1 file:%1 CT: 1\n"
            "  ! The file names no series; it stands alone."_s.arg(
                text(files.path("2.dcm").string())));
    }

    void damagedFiles()
    {
        DicomFixture files;
        files.addStack(3);
        const QByteArray whole = files.read("1.dcm");
        files.cutOff("1.dcm", 10);
        files.addText("header.dcm", whole.left(whole.indexOf("Doe^Jane") + 3));
        files.addText("3.dcm", files.read("3.dcm").mid(132)); // without a preamble
        files.addText("notes.txt", "These are notes, and they are long enough to look at.");
        files.addText("empty.dcm", QByteArray());

        QCOMPARE(described(files.scan()),
            u"Doe^Jane/ID1 2.25.1 2.25.1.1 CT: 3 incomplete\n"
            "  ! The file 1.dcm ends before its pixels do.\n"
            "empty.dcm: This is not a DICOM file.\n"
            "header.dcm: The header is damaged: In PatientName (0010,0010): Item length exceeds "
            "the bytes remaining in file.\n"
            "notes.txt: This is not a DICOM file."_s);
    }

    void valuesOfUndefinedLength()
    {
        DicomFixture files;
        files.addSlice(1, 0);
        const QByteArray whole = files.read("1.dcm");
        const auto add = [&](const std::string &name, const QByteArray &items) {
            QByteArray bytes = whole;
            // A private element, as devices pass on what they do not know.
            bytes.insert(bytes.indexOf(QByteArray::fromHex("10001000504e")),
                QByteArray::fromHex("09000110") + QByteArray("UN\0\0\xff\xff\xff\xff", 8) + items);
            files.addText(name, bytes);
        };
        const QByteArray begin = QByteArray::fromHex("feff00e0ffffffff");
        const QByteArray value = QByteArray::fromHex("09000210040000004142ffff");
        const QByteArray itemEnd = QByteArray::fromHex("feff0de000000000");
        const QByteArray end = QByteArray::fromHex("feffdde000000000");
        const QByteArray known = QByteArray::fromHex("feff00e00c000000") + value;
        add("1.dcm", begin + value + itemEnd + known + end);
        add("deep", begin.repeated(10000));
        add("item", QByteArray::fromHex("feff00e0ffffff7f") + value + end);
        add("value", begin + QByteArray::fromHex("09000210ffff36df41424344") + itemEnd + end);
        // The same further down, in a sequence whose length is known.
        add("within", known + begin + QByteArray(value).replace(7, 1, "\x70") + itemEnd + end);

        const QString damage = u": The header is damaged: "_s;
        const QString tooLong = u": Item length exceeds the bytes remaining in file."_s;
        QCOMPARE(described(files.scan()),
            QStringList({u"Doe^Jane/ID1 2.25.1 2.25.1.1 CT: 1"_s,
                            u"deep"_s % damage % u"Sequences are nested too deeply."_s,
                            u"item"_s % damage % u"In (FFFE,E000)"_s % tooLong,
                            u"value"_s % damage % u"In (0009,1002)"_s % tooLong,
                            u"within"_s % damage % u"In (0009,1002)"_s % tooLong})
                .join(u'\n'));
    }

    void impossibleSizes()
    {
        DicomFixture files;
        const auto add = [&files](const char *name, DicomFixture::Changes changes) {
            files.add(name, *DicomFixture::attributes(1, changes), DicomFixture::ramp(0));
        };
        add("huge", {{"G0028-0010", "65535"}, {"G0028-0011", "65535"}});
        add("long", {{"G0028-0008", "2000000000"}});
        add("flat", {{"G0028-0010", "0"}});
        add("four", {{"G0028-0002", "4"}});
        QCOMPARE(described(files.scan()),
            u"flat: The image has no size.\n"
            "four: Images with 4 values per pixel cannot be shown.\n"
            "huge: The file is far too short for the image that it announces.\n"
            "long: The file is far too short for the image that it announces."_s);
    }

    void duplicates()
    {
        DicomFixture files;
        files.addStack(2);
        files.addText("a copy.dcm", files.read("1.dcm"));
        // Of a file cut short and a whole one, the whole one counts, whatever their names.
        files.addText("3.dcm", files.read("2.dcm"));
        files.cutOff("2.dcm", 6);
        QCOMPARE(described(DicomScanner::scanNow({files.folder(), files.path("1.dcm")})),
            u"Doe^Jane/ID1 2.25.1 2.25.1.1 CT: 2\n"
            "  ! Files that repeat images of this series are left out: a copy.dcm, 2.dcm."_s);
    }

    void seriesOfTwoPatientsAreTwo()
    {
        // A copy under another name keeps the UIDs of study and series.
        DicomFixture files;
        files.addSlice(1, 1);
        files.addSlice(2, 2, {{"G0010-0010", "Other"}});
        files.addSlice(3, 3, {{"G0020-000E", "2.25.1.7"}});
        QStringList uids;
        const DicomScanner::Result result = files.scan();
        for (const auto &patient : result.patients) {
            for (const auto &series : patient->children().first()->children()) {
                uids += QString::fromStdString(series->uid());
                QVERIFY(series->uid().rfind(series->seriesUid(), 0) == 0);
            }
        }
        QCOMPARE(uids.size(), 3);
        QVERIFY2(uids.removeDuplicates() == 0 && uids.contains(u"2.25.1.7"_s),
            qPrintable(uids.join(u' ')));
    }

    void completeness()
    {
        const QString missing = u"Images are missing by their numbers: "_s;
        const QString fewer = u"Only 2 of 9 images are there."_s;
        const char *const derived = "DERIVED\\SECONDARY";
        // Numbers, how many the acquisition announces, the type, the remark on an incomplete series
        const std::tuple<QList<int>, const char *, const char *, QString> rows[]
            = {{{5, 6, 7}, "", "", {}}, {{2, 4, 6}, "", "", {}},
                {{1001, 1002, 1003, 2001, 2002, 2003}, "", "", {}}, // phase and slice
                {{1, 2, 5, 6}, "", "", missing + u"3, 4."},
                {{101, 102, 201}, "", "", // a slice lost of a phase
                    missing + u"103, 104, 105, 106, 107, 108, 109, 110 and 90 more."},
                {{101, 102, 301, 302}, "", "", // a phase lost
                    missing + u"103, 104, 105, 106, 107, 108, 109, 110 and 190 more."},
                {{1, 2}, "2", "", {}}, {{1, 2}, "9", "", fewer},
                {{1, 2}, "9", derived, fewer}}; // without its source
        for (const auto &[numbers, announced, imageType, remark] : rows) {
            DicomFixture files;
            int height = 0;
            for (const int number : numbers) {
                files.addSlice(
                    number, ++height, {{"G0020-1002", announced}, {"G0008-0008", imageType}});
            }
            const QString line = u"Doe^Jane/ID1 2.25.1 2.25.1.1 CT: %1"_s.arg(numbers.size());
            const auto series = files.onlySeries();
            QCOMPARE(describedSeries(*series).join(u'\n'),
                remark.isEmpty() ? line : QString(line % u" incomplete\n  ! " % remark));
            // A volume that is opened by itself is no more complete.
            QCOMPARE(series->children().first()->isComplete(), remark.isEmpty());
        }
    }

    void acquisitionsAndStudies()
    {
        // Images as "series.acquisition", derived ones with a "d", and what all of them announce.
        // Of each series and the study whether it is complete.
        const char *const images = "G0020-1002";
        const std::tuple<QString, const char *, const char *, QString> rows[]
            = {{u"1.1 1.1 2.1 2.1"_s, images, "4", u"yes yes yes"_s}, // one in two series
                {u"1.1 1.1 1.2 1.2"_s, images, "4", u"yes yes"_s}, // two, as many in all
                {u"1.1 1.1 1.2"_s, images, "2", u"no no"_s}, // two, one short
                {u"1.1 1.1 2.1"_s, images, "2", u"yes no no"_s}, // two series, one short
                {u"1.1 1.1 2.1d"_s, images, "2", u"yes yes yes"_s}, // derived beside its source
                {u"1.1 2.1d"_s, images, "2", u"no yes no"_s}, // derived in part, source short
                {u"1.1 1.1 2.2d"_s, images, "2", u"yes no no"_s}, // derived from nothing here
                {u"1.1 1.1 2.1"_s, "G0020-1209", "2", u"yes no no"_s}, // files of a series
                {u"1.1 2.1"_s, "G0020-1208", "3", u"yes yes no"_s}, // files of the study
                {u"1.1 2.1"_s, "G0020-1206", "3", u"yes yes no"_s}}; // series of the study
        for (const auto &[list, attribute, announced, expected] : rows) {
            DicomFixture files;
            int instance = 0;
            for (const QString &image : list.split(u' ')) {
                const std::string series = image.section(u'.', 0, 0).toStdString();
                ++instance;
                files.addSlice(instance, instance,
                    {{"G0020-000E", "2.25.1." + series}, {"G0020-0011", series},
                        {"G0020-0012", image.section(u'.', 1).left(1).toStdString()},
                        {"G0008-0008", image.endsWith(u'd') ? "DERIVED\\SECONDARY" : ""},
                        {attribute, announced}});
            }
            const DicomScanner::Result result = files.scan();
            const auto &study = result.patients.first()->children().first();
            QString complete;
            for (const auto &series : study->children()) {
                complete += series->isComplete() ? u"yes "_s : u"no "_s;
            }
            QCOMPARE(complete + (study->isComplete() ? u"yes"_s : u"no"_s), expected);
        }
    }

    void copiesLackNothing()
    {
        DicomFixture files;
        files.addStack(3);
        files.addText("copy.dcm", files.read("2.dcm"));
        files.replace("copy.dcm", "2.25.1.1.2", "2.25.1.1.7"); // an image of its own
        QVERIFY(files.onlySeries()->isComplete());
    }

    void separateVolumes()
    {
        DicomFixture files;
        files.addStack(4);
        files.addSlice(1, 0, {{"G0020-0037", "0\\1\\0\\0\\0\\-1"}}); // a scout
        files.addSlice(5, 900); // far away
        files.addSlice(6, 2, {{"G0028-0030", "2\\2"}}); // another magnification
        const auto series = files.onlySeries();
        QCOMPARE(describedSeries(*series).join(u'\n'),
            u"Doe^Jane/ID1 2.25.1 2.25.1.1 CT: 1 3 1 1\n"
            "  ! The images make 4 separate volumes: they differ in size, direction or place."_s);
        QCOMPARE(series->children()[1]->uid(), std::string("2.25.1.1.2"));
        QCOMPARE(series->numImages() + static_cast<int>(series->files().size()), 12);
    }

    void privateBValues()
    {
        DicomFixture files;
        for (int i = 0; i < 4; ++i) {
            files.addSlice(i, i / 2, {{"G0008-0060", "MR"}});
            const std::string name = std::to_string(i) + ".dcm";
            QByteArray bytes = files.read(name);
            const QByteArray value = i % 2 ? "500 " : "0   ";
            bytes.insert(bytes.indexOf(QByteArray("\x20\x00\x0d\x00UI", 6)),
                QByteArray(
                    "\x19\x00\x11\x00LO\x12\x00SIEMENS MR HEADER \x19\x00\x0c\x11IS\x04\x00", 34)
                    + value);
            files.addText(name, bytes);
        }
        const McDArray<std::string> phases = files.onlySeries()->phases();
        QCOMPARE(std::vector<std::string>(phases.begin(), phases.end()),
            (std::vector<std::string>{"b 0", "b 500"}));
    }

    void otherObjects()
    {
        DicomFixture files;
        files.add("pr",
            *DicomFixture::attributes(1, {{"G0008-0060", "PR"}, {"G0020-000E", "2.25.1.2"}}), {});
        files.add("dose",
            *DicomFixture::attributes(2, {{"G0008-0060", "RTDOSE"}, {"G0020-000E", "2.25.1.3"}}),
            DicomFixture::ramp(0));
        files.add("ct", *DicomFixture::attributes(3), {});
        const DicomScanner::Result result = files.scan();
        QCOMPARE(described(result),
            u"Doe^Jane/ID1 2.25.1 2.25.1.1 CT: no images\n"
            "  ! This series holds no images.\n"
            "Doe^Jane/ID1 2.25.1 2.25.1.2 PR: no images\n"
            "  ! Presentation state: tells how images of another series are to be shown.\n"
            "Doe^Jane/ID1 2.25.1 2.25.1.3 RTDOSE: no images\n"
            "  ! Radiotherapy dose: cannot be shown as an image."_s);
        const auto &all = result.patients.first()->children().first()->children();
        QVERIFY(all[1]->isPresentationState() && !all[2]->isPresentationState());
        QCOMPARE(all[1]->files(), (McDArray<McFilename>{files.path("pr")}));
    }

    void mediaDirectory()
    {
        DicomFixture files;
        std::filesystem::create_directories(files.path("IMG"));
        files.addSlice(1, 0);
        std::filesystem::rename(files.path("1.dcm"), files.path("IMG/i1"));
        files.addSlice(2, 1); // lies in the folder, but is not listed
        McHandle<HxParamBundle> directory(new HxParamBundle);
        directory->set("G0008-0016", "1.2.840.10008.1.3.10");
        directory->set("G0008-0018", "2.25.7");
        directory->set("G0020-000D", "2.25.8");
        directory->set("G0020-000E", "2.25.9");
        const std::array listed{"IMG\\I1", "IMG\\I2", "..\\OUT"};
        for (std::size_t i = 0; i < listed.size(); ++i) {
            directory->set("G0004-1220[" + std::to_string(i) + "].G0004-1500", listed[i]);
        }
        files.add("DICOMDIR", *directory, {});

        const DicomScanner::Result result = DicomScanner::scanNow({files.path("DICOMDIR")});
        // What a file system shows in small letters is found all the same.
        QCOMPARE(described(result),
            u"Doe^Jane/ID1 2.25.1 2.25.1.1 CT: 1\n"
            "I2: The media directory lists this file, but it is missing.\n"
            "DICOMDIR: It lists a file outside its folder: ../OUT."_s);
        QCOMPARE(files.scan().patients.first()->numImages(), 2);
        QVERIFY(files.scan().problems.isEmpty());
    }

    void absentAndHiddenPaths()
    {
        DicomFixture files;
        files.addText(".hidden", "x");
        std::filesystem::create_directories(files.path(".trash"));
        files.addText(".trash/x", "x");
        std::filesystem::create_directory_symlink(files.folder(), files.path("around"));
        const DicomScanner::Result result
            = DicomScanner::scanNow({files.folder(), files.path("absent")});
        QCOMPARE(described(result), u"absent: There is no such file or folder."_s);
        QCOMPARE(result.numFiles, 0);
    }

    void cancelledMidwayAndBeforehand()
    {
        DicomFixture files;
        constexpr int listed = 40;
        files.addStack(listed);
        std::stop_source source;
        const auto scan = [&] {
            const auto stop = [&source](int, int) { source.request_stop(); };
            return DicomScanner::scanNow({files.folder()}, stop, source.get_token());
        };
        const DicomScanner::Result midway = scan();
        QVERIFY(midway.wasCancelled);
        QVERIFY2(midway.numFiles > 0 && midway.numFiles < listed,
            qPrintable(QString::number(midway.numFiles)));
        QCOMPARE(midway.patients.first()->numImages(), midway.numFiles);
        const DicomScanner::Result nothing = scan(); // It has been stopped already.
        QVERIFY(nothing.wasCancelled && nothing.patients.isEmpty() && nothing.problems.isEmpty());
    }

    /// Of so many files the first are read while the others are still being found.
    void manyFiles()
    {
        DicomFixture files;
        constexpr int listed = 300;
        std::filesystem::create_directories(files.path("deep"));
        McDArray<McFilename> ordered;
        for (int i = 1; i <= listed; ++i) {
            const std::string name = std::to_string(1000 + i);
            const McFilename file = files.path(i <= listed / 2 ? name : "deep/" + name);
            std::filesystem::rename(files.addSlice(i, -i), file);
            ordered.insert(0, file);
        }
        QStringList log;
        const auto tell
            = [&log](int done, int total) { log << u"%1 of %2"_s.arg(done).arg(total); };
        // What lies in the folder does not count again.
        const DicomScanner::Result result
            = DicomScanner::scanNow({files.folder(), files.path("deep"), files.path("1001")}, tell);
        QCOMPARE(result.numFiles, listed);
        const DicomDirectoryEntry &series
            = *result.patients.first()->children().first()->children().first();
        QCOMPARE(series.files(), ordered);
        QVERIFY(series.remarks().isEmpty());
        QCOMPARE(QString(log.first() % u", " % log.last()), u"0 of -1, 300 of 300"_s);

        std::stop_source source;
        const DicomScanner::Result cancelled = DicomScanner::scanNow(
            {files.folder()}, [&source](int, int) { source.request_stop(); }, source.get_token());
        QVERIFY(cancelled.wasCancelled);
        QVERIFY(cancelled.numFiles < listed && cancelled.problems.isEmpty());
    }

    void folderVanishes()
    {
        DicomFixture files;
        const McFilename folder = files.path("study");
        std::filesystem::create_directories(folder / "deep");
        constexpr int listed = 40;
        for (int i = 1; i <= listed; ++i) {
            const McFilename file = files.addSlice(i, i);
            std::filesystem::rename(file, folder / (i % 2 ? "." : "deep") / file.filename());
        }
        const DicomScanner::Result result = DicomScanner::scanNow(
            {folder}, [&folder](int, int) { std::filesystem::remove_all(folder); });
        QVERIFY(!result.wasCancelled);
        QCOMPARE(result.numFiles, listed);
        const int read = listed - result.problems.size();
        QVERIFY2(read > 0 && read < listed, qPrintable(QString::number(read)));
        QCOMPARE(result.patients.first()->numImages(), read);
        for (const DicomScanner::Problem &problem : result.problems) {
            QCOMPARE(text(problem.reason), u"The file is no longer there."_s);
        }
        QCOMPARE(described(DicomScanner::scanNow({folder})),
            u"study: There is no such file or folder."_s);
    }

    void signalsComeInTheScannersThread()
    {
        DicomFixture files;
        files.addStack(5);
        DicomScanner scanner;
        QStringList log;
        QObject::connect(
            &scanner, &DicomScanner::progressChanged, this, [this, &log](int done, int total) {
                log << u"%1 of %2"_s.arg(done).arg(total);
                QVERIFY(QThread::currentThread() == thread());
            });
        QObject::connect(&scanner, &DicomScanner::finished, this, [&] {
            log << (scanner.isRunning() ? u"finished, running"_s : u"finished, idle"_s);
            QVERIFY(QThread::currentThread() == thread());
        });
        scanner.start({files.folder()});
        QVERIFY(scanner.isRunning());
        QTRY_VERIFY(!scanner.isRunning());
        QCOMPARE(log.join(u'\n'), u"1 of 5\n2 of 5\n3 of 5\n4 of 5\n5 of 5\nfinished, idle"_s);
        QCOMPARE(scanner.result().patients.first()->numImages(), 5);
    }

    void restartedScanReportsOnce()
    {
        DicomFixture first;
        DicomFixture second;
        first.addSlice(1, 0);
        second.addSlice(1, 0, {{"G0010-0010", "Roe^Richard"}});
        DicomScanner scanner;
        QSignalSpy finished(&scanner, &DicomScanner::finished);
        scanner.start({first.folder()});
        scanner.start({second.folder()});
        QTRY_VERIFY(!scanner.isRunning());
        QCoreApplication::processEvents();
        QCOMPARE(finished.count(), 1);
        QCOMPARE(scanner.result().patients.first()->patientName(), std::string("Roe^Richard"));

        scanner.start({first.folder()});
        scanner.cancel();
        QTRY_COMPARE(finished.count(), 2);
        scanner.start({first.folder()}); // destroyed while it runs
    }

    void headerBundles()
    {
        DicomFixture files;
        const McFilename image = files.addSlice(1, 0,
            {{"G0010-0010", "Müller^Ann"}, {"G0008-0008", "A\\B"},
                {"G5200-9230[0].G0028-9145[0].G0028-1054", "OD"}});
        const McFilename notes = files.addText("notes.txt", "nothing");
        DicomHeaderReader::install();
        KxVolumeInfoCache &cache = KxVolumeInfoCache::instance();
        const McHandle<HxParamBundle> bundle = cache.parameterBundle(image);
        std::string found;
        for (const char *const tag : {"G0010-0010", "G0008-0008", "G0028-0011", "G0028-1054"}) {
            found += bundle->find(tag).value_or("none") + ' '; // the last one: of the first frame
        }
        QCOMPARE(found, std::string("Müller^Ann A\\B 4 OD "));
        QVERIFY(!bundle->find("G7FE0-0010") && !cache.parameterBundle(notes));
        cache.setHeaderReader({});
    }
};

QTEST_GUILESS_MAIN(tst_DicomScanner)
#include "tst_DicomScanner.moc"
