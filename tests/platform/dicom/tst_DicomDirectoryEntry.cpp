#include "platform/dicom/DicomDirectoryEntry.h"
#include "platform/dicom/ExDicomUtilities.h"
#include "platform/util/HxParamBundle.h"

#include <QTest>

using Zel::DicomDirectoryEntry;
using Attribute = DicomDirectoryEntry::Attribute;
using EntryHandle = McHandle<DicomDirectoryEntry>;

namespace {

EntryHandle child(DicomDirectoryEntry &parent, DicomDirectoryEntry::Level level, const char *uid)
{
    EntryHandle entry(new DicomDirectoryEntry(level, uid));
    parent.appendChild(entry);
    return entry;
}

} // namespace

class tst_DicomDirectoryEntry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pathsUpAndTextsFromAbove()
    {
        const EntryHandle patient(new DicomDirectoryEntry(DicomDirectoryEntry::Patient, "p"));
        const EntryHandle study = child(*patient, DicomDirectoryEntry::Study, "1");
        const EntryHandle series = child(*study, DicomDirectoryEntry::Series, "1.1");
        const EntryHandle volume = child(*series, DicomDirectoryEntry::StoredVolume, "1.1.1");
        QVERIFY(volume->topLevel() == patient.get() && patient->topLevel() == patient.get());
        QCOMPARE(volume->ancestor(DicomDirectoryEntry::Series), series.get());
        QCOMPARE(volume->ancestor(DicomDirectoryEntry::StoredVolume), volume.get());
        QVERIFY(!study->ancestor(DicomDirectoryEntry::Series));
        QCOMPARE(volume->levelFlags() | series->levelFlags(), 3U); // What can be loaded.
        patient->setText(Attribute::PatientName, "Doe^Jane");
        study->setText(Attribute::StudyDate, "20240309");
        QCOMPARE(series->patientName() + series->text(Attribute::StudyDate),
            std::string("Doe^Jane20240309"));
        QCOMPARE(patient->text(Attribute::StudyDate), std::string());
    }

    void marksOfATree()
    {
        const EntryHandle study(new DicomDirectoryEntry(DicomDirectoryEntry::Study, "1"));
        const EntryHandle scan = child(*study, DicomDirectoryEntry::Series, "1.1");
        const EntryHandle report = child(*study, DicomDirectoryEntry::Series, "1.2");
        const EntryHandle scout = child(*scan, DicomDirectoryEntry::StoredVolume, "1.1.1");
        const EntryHandle stack = child(*scan, DicomDirectoryEntry::StoredVolume, "1.1.2");
        QVERIFY(study->isImage() && study->numImages() == 0); // Not counted yet.
        scout->setNumImages(1);
        stack->setNumImages(60);
        QVERIFY(study->isComplete() && !study->isExcluded());
        stack->setIncomplete();
        scan->setExcluded(true);
        QCOMPARE(study->numImages(), 61);
        QVERIFY(scan->isImage() && !report->isImage());
        QVERIFY(!study->isComplete() && !scan->isComplete() && report->isComplete());
        QVERIFY(stack->isExcluded() && !study->isExcluded() && !report->isExcluded());
    }

    void childOutlivesItsParent()
    {
        EntryHandle series;
        {
            const EntryHandle study(new DicomDirectoryEntry(DicomDirectoryEntry::Study, "1"));
            study->setText(Attribute::StudyUid, "1");
            study->setExcluded(true);
            series = child(*study, DicomDirectoryEntry::Series, "1.1");
        }
        QVERIFY(!series->parent());
        QCOMPARE(series->topLevel(), series.get());
        QCOMPARE(series->studyUid(), std::string());
        QVERIFY(!series->isExcluded());
    }

    void tagsAndDates()
    {
        const McHandle<HxParamBundle> bundle(new HxParamBundle);
        bundle->set(ExDicomUtilities::tagName(0x0008, 0x103e), "Thorax");
        QCOMPARE(ExDicomUtilities::findTag(*bundle, "G0008-103e"), std::string("Thorax"));
        QCOMPARE(ExDicomUtilities::displayDate("20240309"), std::string("2024-03-09"));
        QCOMPARE(ExDicomUtilities::displayDate("2024.03.09"), std::string("2024.03.09"));
    }

    void displayNames()
    {
        const std::pair<const char *, const char *> rows[] = {{"Doe^Jane", "Doe, Jane"},
            {"Doe^Jane^Ann^Dr^Jr", "Doe, Jane Ann"}, // without title and suffix
            {"Doe", "Doe"}, {"^Jane", "Jane"},
            {"Yamada^Tarou=山田^太郎", "Yamada, Tarou"}, // the alphabetic spelling first
            {"=山田^太郎", "山田, 太郎"}, {"^^^^", ""}, {" Doe ^ Jane ", "Doe, Jane"}};
        for (const auto &[name, shown] : rows) {
            QCOMPARE(QString::fromStdString(ExDicomUtilities::displayName(name)),
                QString::fromUtf8(shown));
        }
    }
};

QTEST_APPLESS_MAIN(tst_DicomDirectoryEntry)
#include "tst_DicomDirectoryEntry.moc"
