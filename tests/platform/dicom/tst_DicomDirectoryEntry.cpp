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
    void climbing();
    void textsComeFromAbove();
    void marksOfATree();
    void childOutlivesItsParent();
    void tags();
    void displayNames_data();
    void displayNames();
    void displayDates();
};

void tst_DicomDirectoryEntry::climbing()
{
    const EntryHandle patient(new DicomDirectoryEntry(DicomDirectoryEntry::Patient, "p"));
    const EntryHandle study = child(*patient, DicomDirectoryEntry::Study, "1");
    const EntryHandle series = child(*study, DicomDirectoryEntry::Series, "1.1");
    const EntryHandle volume = child(*series, DicomDirectoryEntry::StoredVolume, "1.1.1");

    QCOMPARE(volume->topLevel(), patient.get());
    QCOMPARE(patient->topLevel(), patient.get());
    QCOMPARE(volume->ancestor(DicomDirectoryEntry::Series), series.get());
    QCOMPARE(volume->ancestor(DicomDirectoryEntry::StoredVolume), volume.get());
    QVERIFY(!study->ancestor(DicomDirectoryEntry::Series));
    QVERIFY(!patient->parent());
    QCOMPARE(
        patient->levelFlags() | study->levelFlags() | series->levelFlags() | volume->levelFlags(),
        15U);
    constexpr unsigned loadable = 3;
    QVERIFY((volume->levelFlags() & loadable) && (series->levelFlags() & loadable));
    QVERIFY(!(study->levelFlags() & loadable) && !(patient->levelFlags() & loadable));
}

void tst_DicomDirectoryEntry::textsComeFromAbove()
{
    const EntryHandle patient(new DicomDirectoryEntry(DicomDirectoryEntry::Patient, "p"));
    const EntryHandle study = child(*patient, DicomDirectoryEntry::Study, "1");
    const EntryHandle series = child(*study, DicomDirectoryEntry::Series, "1.1");
    patient->setText(Attribute::PatientName, "Doe^Jane");
    study->setText(Attribute::StudyDate, "20240309");
    series->setText(Attribute::Modality, "PR");

    QCOMPARE(series->patientName(), std::string("Doe^Jane"));
    QCOMPARE(series->text(Attribute::StudyDate), std::string("20240309"));
    QCOMPARE(patient->text(Attribute::StudyDate), std::string());
    QVERIFY(series->isPresentationState());
    QVERIFY(!study->isPresentationState());
}

void tst_DicomDirectoryEntry::marksOfATree()
{
    const EntryHandle study(new DicomDirectoryEntry(DicomDirectoryEntry::Study, "1"));
    const EntryHandle scan = child(*study, DicomDirectoryEntry::Series, "1.1");
    const EntryHandle report = child(*study, DicomDirectoryEntry::Series, "1.2");
    const EntryHandle scout = child(*scan, DicomDirectoryEntry::StoredVolume, "1.1.1");
    const EntryHandle stack = child(*scan, DicomDirectoryEntry::StoredVolume, "1.1.2");
    scout->setNumImages(1);
    stack->setNumImages(60);
    stack->setPhases({"b 0", "b 500"});
    QVERIFY(study->isComplete() && !study->isExcluded());

    stack->setIncomplete();
    scan->setExcluded(true);
    scan->addRemark("odd");
    scan->addRemark("odd");

    QCOMPARE(study->numImages(), 61);
    QVERIFY(scan->isImage() && !report->isImage());
    QVERIFY(!study->isComplete() && !scan->isComplete() && report->isComplete());
    QVERIFY(stack->isExcluded() && !study->isExcluded() && !report->isExcluded());
    QCOMPARE(scan->phases(), (McDArray<std::string>{"b 0", "b 500"}));
    QCOMPARE(scan->remarks().size(), 1);
}

void tst_DicomDirectoryEntry::childOutlivesItsParent()
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

void tst_DicomDirectoryEntry::tags()
{
    const McHandle<HxParamBundle> bundle(new HxParamBundle);
    bundle->set(ExDicomUtilities::tagName(0x0008, 0x103e), "Thorax");
    QCOMPARE(ExDicomUtilities::findTag(*bundle, "G0008-103E"), std::string("Thorax"));
    QCOMPARE(ExDicomUtilities::findTag(*bundle, "G0008-103e"), std::string("Thorax"));
    QCOMPARE(ExDicomUtilities::findTag(*bundle, "G0010-0010"), std::string());
}

void tst_DicomDirectoryEntry::displayNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("shown");
    QTest::newRow("two parts") << "Doe^Jane"
                               << "Doe, Jane";
    QTest::newRow("title and suffix are left out") << "Doe^Jane^Ann^Dr^Jr"
                                                   << "Doe, Jane Ann";
    QTest::newRow("one part") << "Doe"
                              << "Doe";
    QTest::newRow("given name only") << "^Jane"
                                     << "Jane";
    QTest::newRow("alphabetic spelling first") << "Yamada^Tarou=山田^太郎"
                                               << "Yamada, Tarou";
    QTest::newRow("ideographic spelling only") << "=山田^太郎"
                                               << "山田, 太郎";
    QTest::newRow("nothing but carets") << "^^^^"
                                        << "";
    QTest::newRow("blanks") << " Doe ^ Jane "
                            << "Doe, Jane";
}

void tst_DicomDirectoryEntry::displayNames()
{
    QFETCH(const QString, name);
    QFETCH(const QString, shown);
    QCOMPARE(QString::fromStdString(ExDicomUtilities::displayName(name.toStdString())), shown);
}

void tst_DicomDirectoryEntry::displayDates()
{
    QCOMPARE(ExDicomUtilities::displayDate("20240309"), std::string("2024-03-09"));
    QCOMPARE(ExDicomUtilities::displayDate("2024.03.09"), std::string("2024.03.09"));
    QCOMPARE(ExDicomUtilities::displayDate(""), std::string());
}

QTEST_APPLESS_MAIN(tst_DicomDirectoryEntry)
#include "tst_DicomDirectoryEntry.moc"
