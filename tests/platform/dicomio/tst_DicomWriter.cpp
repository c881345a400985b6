#include "tests/platform/dicomio/DicomFixture.h"

#include "platform/dicomio/DicomHeaderReader.h"
#include "platform/dicomio/DicomWriter.h"

#include <QTest>

#include <filesystem>

using namespace Qt::StringLiterals;

class tst_DicomWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sameInputSameBytes()
    {
        DicomFixture files;
        files.addSlice(1, 0);
        const QByteArray first = files.read("1.dcm");
        files.addSlice(1, 0);
        QVERIFY(!first.isEmpty());
        QCOMPARE(files.read("1.dcm"), first);
    }

    void formOfTheFile()
    {
        DicomFixture files;
        const McFilename file = files.addSlice(1, 0);
        const QByteArray bytes = files.read("1.dcm");
        const McHandle<HxParamBundle> header = DicomHeaderReader::readHeader(file);
        QCOMPARE(bytes.mid(128, 4), QByteArray("DICM"));
        QCOMPARE(header->find("G0002-0010"), std::string("1.2.840.10008.1.2.1"));
        QCOMPARE(header->find("G0002-0003"), header->find("G0008-0018"));
        QCOMPARE(header->find("G0008-0005"), std::string("ISO_IR 192"));
        const auto pixels = DicomFixture::ramp(100);
        QCOMPARE(bytes.right(24), QByteArray(reinterpret_cast<const char *>(pixels.data()), 24));
        // Element, type "OW", two reserved bytes, length.
        QCOMPARE(bytes.mid(bytes.size() - 36, 12), QByteArray::fromHex("e07f10004f57000018000000"));
    }

    void refusals()
    {
        // Attribute and value, the folder, and what is told; empty: whatever the system says
        const std::tuple<const char *, const char *, const char *, std::string> rows[]
            = {{"G0008-0018", "", ".", "The attribute G0008-0018 is missing."},
                {"G0020-000E", "", ".", "The attribute G0020-000E is missing."},
                {"PatientName", "x", ".", "\"PatientName\" names no attribute."},
                {"G0008-0008", "x", "absent", ""}};
        const DicomFixture files;
        for (const auto &[attribute, value, folder, error] : rows) {
            const auto attributes = DicomFixture::attributes(1, {{attribute, value}});
            const McFilename file = files.path(folder) / "x.dcm";
            const std::string told = DicomWriter::write(file, *attributes, {});
            QVERIFY2(error.empty() ? !told.empty() : told == error, told.c_str());
            QVERIFY(!std::filesystem::exists(file));
        }
    }
};

QTEST_APPLESS_MAIN(tst_DicomWriter)
#include "tst_DicomWriter.moc"
