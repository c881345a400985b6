#include "tests/platform/dicomio/DicomFixture.h"

#include "platform/dicom/KxVolumeInfoCache.h"
#include "platform/dicomio/DicomHeaderReader.h"
#include "platform/dicomio/DicomScanner.h"
#include "tests/support/Rows.h"

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

void describe(const DicomDirectoryEntry &entry, int depth, QStringList &lines)
{
    QString line(qsizetype(2) * depth, u' ');
    switch (entry.level()) {
    case DicomDirectoryEntry::Patient:
        line += u"patient " % text(entry.patientName()) % u'/' % text(entry.patientId());
        break;
    case DicomDirectoryEntry::Study:
        line += u"study " % text(entry.uid());
        break;
    case DicomDirectoryEntry::Series:
        line += u"series " % text(entry.uid()) % u' ' % text(entry.modality());
        break;
    case DicomDirectoryEntry::StoredVolume:
        line += u"volume of " % QString::number(entry.numImages());
        break;
    }
    line += entry.isComplete() ? u"" : u" incomplete";
    line += entry.isImage() ? u"" : u" no images";
    lines << line;
    for (const std::string &remark : entry.remarks()) {
        lines << QString(depth * 2 + 2, u' ') % u"! " % text(remark);
    }
    for (const auto &child : entry.children()) {
        describe(*child, depth + 1, lines);
    }
}

QString described(const DicomScanner::Result &result)
{
    QStringList lines;
    for (const auto &patient : result.patients) {
        describe(*patient, 0, lines);
    }
    for (const DicomScanner::Problem &problem : result.problems) {
        lines << u"problem " % text(problem.file.filename().string()) % u": "
                % text(problem.reason);
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
        for (int i = 1; i <= 3; ++i) {
            files.addSlice(i, i);
        }
        const DicomFixture::Changes roe{{"G0010-0010", "Roe^Richard"}, {"G0010-0020", "ID2"},
            {"G0020-000D", "2.25.2"}, {"G0020-000E", "2.25.2.1"}, {"G0020-0011", "7"},
            {"G0008-0060", "MR"}, {"G0008-103E", "axial"}};
        std::filesystem::create_directories(files.path("deep/er"));
        files.add("deep/er/1", *DicomFixture::attributes(11, roe), DicomFixture::ramp(0));
        // Same ID, other name: must not become one person.
        files.addSlice(21, 0,
            {{"G0010-0010", "Doe^John"}, {"G0020-000D", "2.25.3"}, {"G0020-000E", "2.25.3.1"}});

        const DicomScanner::Result result = DicomScanner::scanNow({files.folder()});
        QCOMPARE(described(result),
            u"patient Doe^Jane/ID1\n"
            "  study 2.25.1\n"
            "    series 2.25.1.1 CT\n"
            "      volume of 3\n"
            "patient Doe^John/ID1\n"
            "  study 2.25.3\n"
            "    series 2.25.3.1 CT\n"
            "      volume of 1\n"
            "patient Roe^Richard/ID2\n"
            "  study 2.25.2\n"
            "    series 2.25.2.1 MR\n"
            "      volume of 1"_s);
        QCOMPARE(result.numFiles, 5);
        QVERIFY(!result.wasCancelled);
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
        latin.replace("Schädel",
            QByteArray("Sch\xe4"
                       "del "));
        files.addText("1.dcm",
            latin.replace(QByteArray::fromStdString(name),
                QByteArray("J\xfcrgens^\xc5sa").leftJustified(qsizetype(name.size()), ' ')));

        const DicomScanner::Result result = DicomScanner::scanNow({files.folder()});
        QCOMPARE(result.patients.first()->patientName(), std::string("Jürgens^Åsa"));
        QCOMPARE(files.onlySeries()->text(Attribute::SeriesDescription), std::string("Schädel"));

        files.addSlice(1, 0, {{"G0010-0010", name}});
        QCOMPARE(DicomScanner::scanNow({files.folder()}).patients.first()->patientName(), name);
    }

    void missingIdentity()
    {
        DicomFixture files;
        files.addSlice(1, 0, {{"G0010-0010", ""}, {"G0010-0020", ""}, {"G0010-0030", ""}});
        QByteArray anonymous = files.read("1.dcm");
        // The writer insists on a series; take it away by turning its element into a private one.
        anonymous.replace(QByteArray::fromHex("20000e00"), QByteArray::fromHex("20000f00"));
        files.addText("2.dcm", anonymous.replace("2.25.1.1.1", "2.25.1.1.2"));
        const DicomScanner::Result result = DicomScanner::scanNow({files.folder()});
        QCOMPARE(described(result),
            u"patient /\n"
            "  study 2.25.1\n"
            "    series 2.25.1.1 CT\n"
            "      volume of 1\n"
            "    series file:%1 CT\n"
            "      ! The file names no series; it stands alone.\n"
            "      volume of 1"_s.arg(text(files.path("2.dcm").string())));
    }

    void damagedFiles()
    {
        DicomFixture files;
        files.addSlice(1, 0);
        files.addSlice(2, 1);
        const QByteArray whole = files.read("1.dcm");
        files.addText("1.dcm", whole.left(whole.size() - 10));
        files.addText("header.dcm", whole.left(whole.indexOf("Doe^Jane") + 3));
        files.addSlice(3, 2);
        files.addText("3.dcm", files.read("3.dcm").mid(132)); // without a preamble
        files.addText("notes.txt", "These are notes, and they are long enough to look at.");
        files.addText("empty.dcm", QByteArray());

        QCOMPARE(described(DicomScanner::scanNow({files.folder()})),
            u"patient Doe^Jane/ID1 incomplete\n"
            "  study 2.25.1 incomplete\n"
            "    series 2.25.1.1 CT incomplete\n"
            "      volume of 3 incomplete\n"
            "        ! The file 1.dcm ends before its pixels do.\n"
            "problem empty.dcm: This is not a DICOM file.\n"
            "problem header.dcm: The header is damaged: In PatientName (0010,0010): Item "
            "length exceeds the bytes remaining in file.\n"
            "problem notes.txt: This is not a DICOM file."_s);
    }

    void impossibleSizes()
    {
        DicomFixture files;
        const auto pixels = DicomFixture::ramp(0);
        files.add("huge",
            *DicomFixture::attributes(1, {{"G0028-0010", "65535"}, {"G0028-0011", "65535"}}),
            pixels);
        files.add("long", *DicomFixture::attributes(2, {{"G0028-0008", "2000000000"}}), pixels);
        files.add("flat", *DicomFixture::attributes(3, {{"G0028-0010", "0"}}), pixels);
        files.add("four", *DicomFixture::attributes(4, {{"G0028-0002", "4"}}), pixels);
        QCOMPARE(described(DicomScanner::scanNow({files.folder()})),
            u"problem flat: The image has no size.\n"
            "problem four: Images with 4 values per pixel cannot be shown.\n"
            "problem huge: The file is far too short for the image that it announces.\n"
            "problem long: The file is far too short for the image that it announces."_s);
    }

    void duplicates()
    {
        DicomFixture files;
        files.addSlice(1, 0);
        files.addSlice(2, 1);
        const QByteArray whole = files.read("1.dcm");
        files.addText("a copy.dcm", whole);
        files.addText("2.dcm", files.read("2.dcm"));
        // Of a file cut short and a whole one, the whole one counts, whatever their names.
        files.addText("3.dcm", files.read("2.dcm"));
        files.addText("2.dcm", files.read("2.dcm").left(whole.size() - 6));
        QCOMPARE(described(DicomScanner::scanNow({files.folder(), files.path("1.dcm")})),
            u"patient Doe^Jane/ID1\n"
            "  study 2.25.1\n"
            "    series 2.25.1.1 CT\n"
            "      ! Files that repeat images of this series are left out: a copy.dcm, 2.dcm.\n"
            "      volume of 2"_s);
    }

    void completeness_data()
    {
        // announced: images in acquisition
        // remark: empty when complete
        const Rows<QList<int>, QString, QString> row("numbers", "announced", "remark");
        row("counts up", QList<int>{5, 6, 7}, "", "");
        row("counts in twos", QList<int>{2, 4, 6}, "", "");
        row("gap", QList<int>{1, 2, 5, 6}, "", "Images are missing by their numbers: 3, 4.");
        row("all announced ones", QList<int>{1, 2}, "2", "");
        row("fewer than announced", QList<int>{1, 2}, "9", "Only 2 of 9 images are there.");
    }

    void completeness()
    {
        QFETCH(const QList<int>, numbers);
        QFETCH(const QString, announced);
        QFETCH(const QString, remark);
        DicomFixture files;
        for (const int number : numbers) {
            files.addSlice(number, number, {{"G0020-1002", announced.toStdString()}});
        }
        const auto series = files.onlySeries();
        QStringList remarks;
        for (const std::string &line : series->remarks()) {
            remarks << text(line);
        }
        QCOMPARE(remarks.join(u'\n'), remark);
        QCOMPARE(series->isComplete(), remark.isEmpty());
    }

    void separateVolumes()
    {
        DicomFixture files;
        files.addSlice(1, 0, {{"G0020-0037", "0\\1\\0\\0\\0\\-1"}}); // a scout
        for (int i = 2; i <= 4; ++i) {
            files.addSlice(i, i);
        }
        files.addSlice(5, 900); // far away
        files.addSlice(6, 2, {{"G0028-0030", "2\\2"}}); // another magnification
        const auto series = files.onlySeries();
        QStringList volumes;
        for (const auto &volume : series->children()) {
            volumes << QString::number(volume->numImages()) % u": " % text(volume->uid());
        }
        QCOMPARE(
            volumes.join(u'\n'), u"1: 2.25.1.1.1\n3: 2.25.1.1.2\n1: 2.25.1.1.5\n1: 2.25.1.1.6"_s);
        QCOMPARE(series->numImages(), 6);
        QCOMPARE(series->files().size(), 6);
        QCOMPARE(text(series->remarks().first()),
            u"The images make 4 separate volumes: they differ in size, direction or "
            "place."_s);
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
        const DicomScanner::Result result = DicomScanner::scanNow({files.folder()});
        QCOMPARE(described(result),
            u"patient Doe^Jane/ID1 no images\n"
            "  study 2.25.1 no images\n"
            "    series 2.25.1.1 CT no images\n"
            "      ! This series holds no images.\n"
            "    series 2.25.1.2 PR no images\n"
            "      ! Presentation state: tells how images of another series are to be shown.\n"
            "    series 2.25.1.3 RTDOSE no images\n"
            "      ! Radiotherapy dose: cannot be shown as an image."_s);
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
            u"patient Doe^Jane/ID1\n"
            "  study 2.25.1\n"
            "    series 2.25.1.1 CT\n"
            "      volume of 1\n"
            "problem I2: The media directory lists this file, but it is missing.\n"
            "problem DICOMDIR: It lists a file outside its folder: ../OUT."_s);
        QCOMPARE(DicomScanner::scanNow({files.folder()}).patients.first()->numImages(), 2);
        QVERIFY(DicomScanner::scanNow({files.folder()}).problems.isEmpty());
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
        QCOMPARE(described(result), u"problem absent: There is no such file or folder."_s);
        QCOMPARE(result.numFiles, 0);
    }

    void cancelledBeforehand()
    {
        DicomFixture files;
        files.addSlice(1, 0);
        std::stop_source source;
        source.request_stop();
        const DicomScanner::Result result
            = DicomScanner::scanNow({files.folder()}, {}, source.get_token());
        QVERIFY(result.wasCancelled);
        QVERIFY(result.patients.isEmpty());
        QVERIFY(result.problems.isEmpty());
    }

    void signalsComeInTheScannersThread()
    {
        DicomFixture files;
        for (int i = 1; i <= 5; ++i) {
            files.addSlice(i, i);
        }
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
        QVERIFY(bundle);
        QCOMPARE(bundle->find("G0010-0010"), std::string("Müller^Ann"));
        QCOMPARE(bundle->find("G0008-0008"), std::string("A\\B"));
        QCOMPARE(bundle->find("G0028-0011"), std::string("4"));
        QCOMPARE(bundle->find("G0028-1054"), std::string("OD")); // from the first frame
        QVERIFY(!bundle->find("G7FE0-0010"));
        QVERIFY(!cache.parameterBundle(notes));
        QVERIFY(cache.haveCachedVolumeFile(image));
        QVERIFY(!cache.haveCachedVolumeFile(notes));
        cache.setHeaderReader({});
    }
};

QTEST_GUILESS_MAIN(tst_DicomScanner)
#include "tst_DicomScanner.moc"
