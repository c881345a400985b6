#include "framework/loading/ExLoadHelper.h"

#include <QTest>

using Zel::DicomDirectoryEntry;
using Entry = McHandle<DicomDirectoryEntry>;

namespace {

Entry childOf(const Entry &parent, DicomDirectoryEntry::Level level, const char *uid)
{
    const Entry entry = new DicomDirectoryEntry(level, uid);
    if (parent) {
        parent->appendChild(entry);
    }
    return entry;
}

} // namespace

class tst_ExLoadHelper : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void loadedList()
    {
        ExLoadHelper helper;
        QVERIFY(!helper.addToLoadedList("", m_series) && !helper.addToLoadedList("u1", nullptr));
        QVERIFY(
            helper.addToLoadedList("u1", m_series) && !helper.addToLoadedList("u1", m_otherStudy));
        QVERIFY(
            helper.addToLoadedList("u2", m_volume) && helper.addToLoadedList("u3", m_otherStudy));
        const Zel::LoadedList saved = helper.loadedList();
        QCOMPARE(contents(saved), QByteArray("u1@series u2@volume u3@p2 2+1 of 2"));
        ExLoadInfo item;
        helper.removeFromLoadedList(item); // Neither volume nor series: nothing.
        item.seriesUids = {"u1", "u1", "unknown", "u3"};
        item.volumeUid = "u2";
        helper.removeFromLoadedList(item);
        QCOMPARE(contents(helper.loadedList()), QByteArray("u1@series u3@p2 1+1 of 2"));
        item.volumeUid.clear();
        helper.removeFromLoadedList(item);
        QCOMPARE(contents(helper.loadedList()), QByteArray("0+0 of 0"));
        helper.setLoadedList(saved);
        helper.clearLoadedList();
        QCOMPARE(contents(helper.loadedList()), QByteArray("0+0 of 0"));
        QCOMPARE(contents(saved), QByteArray("u1@series u2@volume u3@p2 2+1 of 2"));
    }

    void patientLockAndBookkeeping()
    {
        ExLoadHelper helper;
        std::string id = "left over";
        QVERIFY(!helper.getPatientLock(id) && id.empty());
        helper.setPatientLockId("P1");
        QVERIFY(!helper.setPatientLock(true) && helper.setPatientLock(true));
        QVERIFY(helper.getPatientLock(id) && id == "P1");
        McDArray<McString> uids;
        uids.append(McString("1.2"));
        helper.setOtherStudyUIDs(uids);
        QVERIFY(helper.takeOtherStudyUIDs().size() == 1 && helper.takeOtherStudyUIDs().size() == 0);
        helper.setOtherStudyUIDs(uids);
        helper.addToLoadedList("u1", m_series);
        helper.reset();
        QVERIFY(
            !helper.getPatientLock(id) && id.empty() && helper.takeOtherStudyUIDs().size() == 0);
        QCOMPARE(contents(helper.loadedList()), QByteArray("0+0 of 0"));
    }

private:
    /// "uid@entry" of all items, and the number of items of either patient.
    [[nodiscard]] QByteArray contents(const Zel::LoadedList &list) const
    {
        QByteArray all;
        for (const auto &[uid, entry] : list.items()) {
            all += QByteArray::fromStdString(uid) + '@';
            all += QByteArray::fromStdString(entry->uid()) + ' ';
        }
        return all + QByteArray::number(list.patientCount(m_patient)) + '+'
            + QByteArray::number(list.patientCount(m_other)) + " of "
            + QByteArray::number(list.numPatients());
    }

    Entry m_patient = childOf(nullptr, DicomDirectoryEntry::Patient, "p1");
    Entry m_study = childOf(m_patient, DicomDirectoryEntry::Study, "study");
    Entry m_series = childOf(m_study, DicomDirectoryEntry::Series, "series");
    Entry m_volume = childOf(m_series, DicomDirectoryEntry::StoredVolume, "volume");
    Entry m_other = childOf(nullptr, DicomDirectoryEntry::Patient, "p2");
    Entry m_otherStudy = childOf(m_other, DicomDirectoryEntry::Study, "study2");
};

QTEST_GUILESS_MAIN(tst_ExLoadHelper)
#include "tst_ExLoadHelper.moc"
