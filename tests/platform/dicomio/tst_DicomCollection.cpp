// Real files of many kinds, found through MOVARA_TEST_DICOM; skipped without them.

#include "platform/dicomio/DicomScanner.h"
#include "platform/dicomio/DicomVolumeReader.h"
#include "tests/support/Rows.h"

#include <QCryptographicHash>
#include <QTest>

#include <map>

using namespace Qt::StringLiterals;
using Zel::DicomDirectoryEntry;

namespace {

/// The stored volumes of a scan, each in one line.
void collectVolumes(const DicomDirectoryEntry &entry, McDArray<const DicomDirectoryEntry *> &found)
{
    if (entry.isStoredVolume()) {
        found.append(&entry);
    }
    for (const auto &child : entry.children()) {
        collectVolumes(*child, found);
    }
}

QString summary(const DicomDirectoryEntry &volume)
{
    DicomVolumeReader reader;
    if (!reader.prepare(volume)) {
        return QString::fromStdString(reader.errorText());
    }
    int failures = 0;
    std::map<int, QByteArray> slices;
    reader.readSlices([&](DicomVolumeReader::Slice &&slice) {
        failures += slice.problem.empty() ? 0 : 1;
        slices[slice.phase * 10000 + slice.z] = QByteArray(
            reinterpret_cast<const char *>(slice.bytes.data()), qsizetype(slice.bytes.size()));
    });
    QCryptographicHash hash(QCryptographicHash::Md5);
    for (const auto &[number, bytes] : slices) {
        hash.addData(bytes);
    }
    const auto [columns, rows, depth] = volume.dimensions();
    return u"%1x%2x%3 of %4 phases, %5 failed, %6"_s.arg(columns)
        .arg(rows)
        .arg(depth)
        .arg(reader.series()->numVolumes())
        .arg(failures)
        .arg(QString::fromLatin1(hash.result().toHex().left(8)));
}

} // namespace

class tst_DicomCollection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        if (m_folder.isEmpty()) {
            QSKIP("MOVARA_TEST_DICOM names no folder with DICOM files.");
        }
    }

    void volumes_data()
    {
        const Rows<QString> row("expected"); // Named by the paths.
        for (const char *const encoding : {"", "_RLE", "_bigendian", "_implicit", "_jp2klossless",
                 "_jpeg_ls_lossless", "_padded"}) { // One image.
            row(qPrintable(u"edge-pydicom/MR_small%1.dcm"_s.arg(QLatin1String(encoding))),
                "64x64x1 of 1 phases, 0 failed, dc9943d2");
        }
        row("ct-abdomen-pancreas", "512x512x30 of 1 phases, 0 failed, 09556ae7");
        row("ct-head-tiny", "64x64x93 of 1 phases, 0 failed, 5b395cd8");
        row("mr-brain-study/se05-t1-sag", "270x320x29 of 1 phases, 0 failed, 444bd413");
        row("mr-brain-study/se06-t2-flair-tra", "270x320x30 of 1 phases, 0 failed, 071c060c");
        row("mr-brain-study/se09-dwi-trace-3b", "190x188x30 of 3 phases, 0 failed, 30029331");
        row("mr-brain-study/pr", "");
        row("edge-compressed/CT-JPEGLosslessSV1.dcm", "512x512x1 of 1 phases, 0 failed, 3fc7fc4e");
        row("edge-compressed/US1_J2KR.dcm", "640x480x1 of 1 phases, 0 failed, eb52dce9");
        row("edge-compressed/MR2_J2KI.dcm", "1024x1024x1 of 1 phases, 0 failed, d1e34dcc");
        row("edge-pydicom/SC_rgb_rle.dcm", "100x100x1 of 1 phases, 0 failed, 6e292886");
        row("edge-pydicom/examples_palette.dcm", "800x350x1 of 1 phases, 0 failed, 64f1feea");
        row("edge-pydicom/examples_ybr_color.dcm", "320x240x1 of 30 phases, 0 failed, 56491f2b");
        row("edge-pydicom/emri_small.dcm", "64x64x1 of 10 phases, 0 failed, 35c5e95f");
        row("edge-pydicom/image_dfl.dcm", "512x512x1 of 1 phases, 0 failed, 9841785b");
        row("edge-pydicom/JPGExtended.dcm", "256x1024x1 of 1 phases, 0 failed, 812050a7");
        row("edge-pydicom/MR_truncated.dcm", "64x64x1 of 1 phases, 1 failed, 0829f717");
        row("edge-derived/missing-slices", "64x64x14 of 1 phases, 0 failed, 101ec869");
        row("edge-derived/duplicate-position", "64x64x6 of 1 phases, 0 failed, 52abb859");
        row("edge-derived/not_dicom.dcm", "");
    }

    void volumes()
    {
        const QString path = QString::fromUtf8(QTest::currentDataTag());
        QFETCH(const QString, expected);
        const DicomScanner::Result result = DicomScanner::scanNow({this->path(path)});
        QStringList lines;
        for (const auto &patient : result.patients) {
            McDArray<const DicomDirectoryEntry *> found;
            collectVolumes(*patient, found);
            for (const DicomDirectoryEntry *const volume : found) {
                lines << summary(*volume);
            }
        }
        QCOMPARE(lines.join(u'\n'), expected);
    }

    void statesAreListedBehindTheirSeries()
    {
        const DicomScanner::Result result = DicomScanner::scanNow({path(u"mr-brain-study"_s)});
        QCOMPARE(result.patients.size(), 1);
        QStringList listed;
        for (const auto &series : result.patients.first()->children().first()->children()) {
            listed << QString::fromStdString(series->modality() + " "
                + series->text(DicomDirectoryEntry::Attribute::SeriesNumber));
            if (series->isPresentationState()) {
                listed << QString::fromStdString(series->remarks().last());
            }
        }
        QCOMPARE(listed.join(u'|'), u"MR 5|MR 6|PR 1|It is about series 6.|MR 9"_s);
    }

private:
    [[nodiscard]] McFilename path(const QString &name) const
    {
        return McFilename(m_folder.toStdString()) / name.toStdString();
    }

    QString m_folder = qEnvironmentVariable("MOVARA_TEST_DICOM");
};

QTEST_GUILESS_MAIN(tst_DicomCollection)
#include "tst_DicomCollection.moc"
