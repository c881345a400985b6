#include "framework/dialogs/ExMessageBox.h"
#include "framework/loading/ExLoadHelper.h"
#include "framework/loading/LoadIncompleteStudies.h"
#include "platform/dicom/DicomDirectory.h"
#include "platform/dicom/KxVolumeInfoCache.h"
#include "tests/support/Prelude.h"

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

Entry patientEntry(const QByteArray &name, const QByteArray &id)
{
    const Entry patient = childOf(nullptr, DicomDirectoryEntry::Patient, id.constData());
    patient->setText(DicomDirectoryEntry::Attribute::PatientName, name.toStdString());
    patient->setText(DicomDirectoryEntry::Attribute::PatientBirthDate, "19700102");
    patient->setText(DicomDirectoryEntry::Attribute::PatientId, id.toStdString());
    return patient;
}

/// Waits for the next box, takes down what it says and clicks the button with the given text.
class Click
{
public:
    explicit Click(const QString &button)
        : m_dialog([this, button](QWidget &dialog) {
            auto &box = dynamic_cast<ExMessageBox &>(dialog);
            const bool isArrow = QApplication::overrideCursor()->shape() == Qt::ArrowCursor;
            m_seen = (box.icon() == QMessageBox::Critical ? u"error " : u"warning ")
                % QLatin1String(isArrow ? "" : "busy ");
            QAbstractButton *wanted = nullptr;
            for (QAbstractButton *const each : box.buttons()) {
                m_seen += u'[' % each->text().remove(u'&')
                    % QLatin1String(each == box.defaultButton() ? "*] " : "] ");
                wanted = each->text().remove(u'&') == button ? each : wanted;
            }
            m_seen += box.text();
            if (wanted != nullptr) {
                wanted->click();
            } else {
                dialog.close();
            }
        })
    { }

    /// Icon, buttons and text; empty when no box was there.
    [[nodiscard]] QString seen() const { return m_seen; }

private:
    QString m_seen;
    NextDialog m_dialog;
};

const QString severalText
    = u"The studies you are trying to load seem to come from multiple patients.\n\n"_s;

} // namespace

class tst_ExLoadHelper : public TestWithSettings
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        ExApplication::busy();
        KxVolumeInfoCache::instance().setHeaderReader([this](const McFilename &file) {
            return m_headers.count(file) > 0 ? m_headers[file] : nullptr;
        });
    }

    void cleanup()
    {
        QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
        ExApplication::notBusy();
        Zel::DicomDirectory::instance().setSelection({});
    }

    void severalPatients_data()
    {
        const Rows<int, bool, QString, bool, QString> row(
            "patients", "prohibit", "button", "accepted", "expected");
        const auto lines = [](int count, const QString &form) {
            QString text;
            for (int i = 1; i <= count; ++i) {
                text += form.arg(i);
            }
            return text;
        };
        const QString named = u"(Name: Doe^Nr%1, Date of Birth: 19700102)\n"_s;
        const QString withId = u"(Name: Doe^Nr%1, Date of Birth: 19700102, ID: ID%1)\n"_s;
        const QString asks = u"warning [Ignore] [Cancel*] "_s % severalText;
        const QString refuses = u"error [OK] "_s % severalText % u"Loading prohibited!\n";
        row("none", 0, true, "", true, QString());
        row("one", 1, true, "", true, QString());
        row("ignored", 2, false, "Ignore", true, asks % lines(2, named));
        row("cancelled", 2, false, "Cancel", false, asks % lines(2, named));
        row("closed", 20, false, "close", false, asks % lines(20, named));
        row("prohibited", 21, true, "OK", false, refuses % lines(21, withId));
        row("more", 22, true, "OK", false,
            refuses % lines(20, withId) % u"\nAdditional 2 patients are not shown in this list.");
    }

    void severalPatients()
    {
        QFETCH(const int, patients);
        QFETCH(const bool, prohibit);
        QFETCH(const QString, button);
        QFETCH(const bool, accepted);
        QFETCH(const QString, expected);
        Zel::DicomDirectory::Selection selection;
        McDArray<McFilename> files;
        for (int i = 1; i <= patients; ++i) {
            const QByteArray number = QByteArray::number(i);
            // Two series each; the full stops tell of nobody else.
            const Entry patient = patientEntry("Doe^Nr" + number, "ID" + number);
            selection.append(childOf(patient, DicomDirectoryEntry::Series, "a"));
            const Entry same = patientEntry("Doe^Nr" + number + "...", "ID" + number);
            selection.append(childOf(same, DicomDirectoryEntry::Study, "b"));
            m_kept.append(patient);
            m_kept.append(same);
            files.append(file(number, "Doe^Nr" + number, "ID" + number));
        }
        Zel::DicomDirectory::instance().setSelection(selection);
        ExLoadHelper helper;
        bool several = patients < 2;
        const Click click(button);
        QCOMPARE(helper.checkDifferentPatients(several, prohibit), accepted);
        QCOMPARE(several, patients > 1);
        QCOMPARE(click.seen(), expected);
        const Click clickFiles(u"OK"_s);
        several = patients < 2;
        QCOMPARE(helper.checkDifferentPatients(files, prohibit, several), !prohibit || accepted);
        QCOMPARE(several, patients > 1);
        QCOMPARE(clickFiles.seen(), prohibit ? expected : QString());
    }

    void unnamedPatientsAndUnreadableFiles()
    {
        const McDArray<McFilename> files{file("1", "M\xC3\xBCller...", ""),
            file("2", "%2=\xE5\xB1\xB1\xE7\x94\xB0", "<b>\n%1"), McFilename("/nowhere")};
        ExLoadHelper helper;
        bool several = false;
        const Click click(u"OK"_s);
        QVERIFY(!helper.checkDifferentPatients(files, true, several) && several);
        QCOMPARE(click.seen(),
            u"error [OK] "_s % severalText
                % u"Loading prohibited!\n(Name: M\u00FCller, Date of Birth: 19700102, ID: "
                  u"N/A)\n"
                  "(Name: %2=\u5C71\u7530, Date of Birth: 19700102, ID: <b>\n%1)\n");
    }

    void unnamedPatientsAreToldApart()
    {
        const Entry a = patientEntry("", "A1");
        const Entry b = patientEntry("...", "B2");
        Zel::DicomDirectory::instance().setSelection({a, b});
        ExLoadHelper helper;
        bool several = false;
        const Click click(u"Cancel"_s);
        QVERIFY(!helper.checkDifferentPatients(several, false) && several);
        QVERIFY(click.seen().contains(u"(Name: , Date of Birth: 19700102, ID: B2)\n"));
    }

    void lockedPatient()
    {
        const auto check = [](ExLoadHelper &helper, const ExLoadHelper::Entries &entries) {
            Zel::DicomDirectory::instance().setSelection(entries);
            const Click click(u"OK"_s);
            bool several = false;
            const bool accepted = helper.checkDifferentPatients(several, false);
            std::string id;
            helper.getPatientLock(id);
            return QString((accepted ? u"yes "_s : u"no "_s) % QString::fromStdString(id) % u' '
                % click.seen());
        };
        const QString refusal
            = u"error [OK] The studies/series you are trying to load do not belong to the "
              "locked patient:\n\nA1\nB2\nLoading prohibited!\n"_s;
        const Entry a = patientEntry("A", "A1");
        const Entry b = patientEntry("B", "B2");
        ExLoadHelper helper;
        QCOMPARE(check(helper, {b}), u"yes B2 "_s); // Follows what is loaded.
        QCOMPARE(check(helper, {a}), u"yes A1 "_s);
        helper.setPatientLock(true);
        QCOMPARE(check(helper, {a}), u"yes A1 "_s);
        QCOMPARE(check(helper, {b}), u"no A1 "_s % refusal);
        QCOMPARE(check(helper, {a, b}), u"no A1 "_s % refusal); // Not in a's shadow either.
        QCOMPARE(check(helper, {}), u"yes A1 "_s);
        helper.setPatientLockId("A");
        QCOMPARE(check(helper, {b}), u"yes B2 "_s); // Too short to hold anybody.
        QCOMPARE(check(helper, {a}).left(6), u"no B2 "_s);
        helper.setPatientLock(false);
        QCOMPARE(check(helper, {a}), u"yes A1 "_s);
    }

    void incompleteStudies_data()
    {
        const Rows<int, QString, QString> row("policy", "button", "expected");
        const QString asks
            = u"warning [OK] [Cancel*] The studies you are trying to load may be incomplete.\nDo "
              "you want to load them anyway?"_s;
        row("accepted", 28, "OK", u"-, load "_s % asks % u", load , ok, ok, stopped");
        row("partner", 27, "OK", u"-, load "_s % asks % u", load , ok, ok, stopped");
        row("cancelled", 28, "Cancel", u"-, refuse "_s % asks % u", refuse , bad, bad, stopped");
        row("closed", 28, "close", u"-, refuse "_s % asks % u", refuse , bad, bad, stopped");
        row("never", 29, "Close",
            u"-, refuse warning [Close] The studies you are trying to load may be "
            u"incomplete.\nYou "
            "cannot load them., refuse , bad, bad, stopped"_s);
        row("unknown", 5, "OK", u"-, load , load , ok, ok, stopped"_s);
    }

    void incompleteStudies()
    {
        QFETCH(const int, policy);
        QFETCH(const QString, button);
        QFETCH(const QString, expected);
        const Entry incomplete = childOf(m_study, DicomDirectoryEntry::Series, "incomplete");
        incomplete->setIncomplete();
        ExLoadHelper helper;
        const auto ask = [&helper, button](const Entry &entry) -> QString {
            const Click click(button);
            const bool refused = helper.hasIncompleteStudy({nullptr, entry});
            return (refused ? u"refuse "_s : u"load "_s) % click.seen();
        };
        QCOMPARE(ask(incomplete), u"load "_s); // No check in force.
        helper.checkIncompleteStudyStart();
        auto *const property = KxPropertyPool::instance().find<Zel::LoadIncompleteStudies>(
            "General.LoadIncompleteStudies");
        QVERIFY(property != nullptr && property->label() == u"Load Incomplete Studies");
        QCOMPARE(property->defaultValue().name(), u"LoadIfConfirmed"_s);
        property->setValue(Zel::LoadIncompleteStudies(policy));
        helper.checkIncompleteStudyStart();
        QCOMPARE(ask(m_otherStudy), u"load "_s); // Complete.
        QStringList log{helper.checkIncompleteStudyOK() ? u"-"_s : u"bad"_s};
        log += ask(incomplete->isComplete() ? nullptr : m_study); // By what is below.
        log += ask(incomplete);
        log += helper.checkIncompleteStudyOK() ? u"ok"_s : u"bad"_s;
        log += helper.checkIncompleteStudyStop() ? u"ok"_s : u"bad"_s;
        log += ask(incomplete) == u"load " && helper.checkIncompleteStudyOK() ? u"stopped"_s
                                                                              : u"on"_s;
        QCOMPARE(log.join(u", "), expected);
        property->resetToDefault();
    }

    void loadItems_data()
    {
        const Rows<QString, bool, QString> row("selection", "quiet", "expected");
        const QString nothing = u"|warning [Close] No appropriate studies or series selected. No "
                                "data will be loaded."_s;
        const QString storage
            = u"|warning [Close] There were problems accessing the volume storage.\nContact your "
              "system administrator."_s;
        row("patient, volume again", "v2 patient s1", false,
            u"s1/v1+pr s1/v2+pr odd/+pr remote/+pr query:remote"_s % storage);
        row("lost file", "lost", false, u"lost/half"_s);
        row("known already", "s1 loaded", false, u"s1/v1+pr s1/v2+pr"_s);
        row("states only", "pr", false, nothing);
        row("report, quietly", "sr", true, QString());
        row("excluded", "out", false, nothing);
        row("excluded volume", "refused", false, nothing);
        row("storage away, quietly", "gone", true, storage);
        row("incomplete", "incomplete", false,
            u"|warning [Close] The studies you are trying to load may be incomplete.\nYou cannot "
            "load them."_s);
    }

    void loadItems()
    {
        QFETCH(const QString, selection);
        QFETCH(const bool, quiet);
        QFETCH(const QString, expected);
        const std::map<QString, Entry> tree = makeTree();
        ExLoadHelper helper;
        helper.addToLoadedList("known", tree.at(u"loaded"_s));
        helper.checkIncompleteStudyStart();
        auto *const policy = KxPropertyPool::instance().find<Zel::LoadIncompleteStudies>(
            "General.LoadIncompleteStudies");
        policy->setValue(Zel::LoadNever());
        helper.checkIncompleteStudyStart();
        ExLoadHelper::Entries entries;
        for (const QString &uid : selection.split(u' ')) {
            entries.append(tree.at(uid));
        }
        McDArray<ExLoadInfo> items;
        const Click click(u"Close"_s);
        helper.getLoadInfoItems(entries, items, quiet);
        policy->resetToDefault();
        QStringList found;
        for (const ExLoadInfo &item : items) {
            const std::string &uid
                = item.volumeUid.empty() ? item.seriesUids.front() : item.volumeUid;
            QVERIFY(helper.loadedList().items().count(uid) == 1 && item.patientId == "P7");
            found += QString::fromStdString(item.seriesUids.front() + "/" + item.volumeUid);
            for (const std::string &states : item.presentationSeriesUids) {
                found.last() += u'+' % QString::fromStdString(states);
            }
        }
        std::set<std::string> missing{"x"};
        helper.takeSeriesToBeQueried(missing);
        for (const std::string &uid : missing) {
            found += u"query:" % QString::fromStdString(uid);
        }
        QCOMPARE(int(helper.loadedList().items().size()), items.size() + 1);
        QCOMPARE(
            found.join(u' ') % (click.seen().isEmpty() ? u""_s : u"|" % click.seen()), expected);
    }

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
            + QByteArray::number(list.patientCounts().size());
    }

    /// A file whose header names a patient.
    McFilename file(const QByteArray &name, const QByteArray &patient, const QByteArray &id)
    {
        const QString path = m_settings.path(name);
        writeFile(path, "header");
        const McHandle<HxParamBundle> header(new HxParamBundle);
        header->set("G0010-0010", patient.toStdString());
        header->set("G0010-0020", id.toStdString());
        header->set("G0010-0030", "19700102");
        const McFilename result(path.toStdString());
        m_headers[result] = header;
        return result;
    }

    /// Entries of one study by their UIDs.
    std::map<QString, Entry> makeTree()
    {
        std::map<QString, Entry> tree;
        m_kept.append(tree[u"patient"_s] = patientEntry("Doe", "P7"));
        const Entry study = childOf(tree[u"patient"_s], DicomDirectoryEntry::Study, "study");
        const McFilename good = file("good", "Doe", "P7");
        const auto add = [&](const Entry &parent, const char *uid, const char *modality,
                             const McDArray<McFilename> &files, int images) {
            const auto level = parent->isSeries() ? DicomDirectoryEntry::StoredVolume
                                                  : DicomDirectoryEntry::Series;
            const Entry entry = childOf(parent, level, uid);
            entry->setText(DicomDirectoryEntry::Attribute::Modality, modality);
            entry->setFiles(files);
            entry->setNumImages(images);
            return tree[QLatin1String(uid)] = entry;
        };
        add(study, "sr", "SR", {good}, 0);
        add(study, "pr", "PR", {good}, 0);
        const Entry s1 = add(study, "s1", "CT", {good}, 0);
        add(s1, "v1", "CT", {good}, 3);
        add(s1, "v2", "CT", {good}, 3);
        add(s1, "refused", "CT", {good}, 3)->setExcluded(true);
        add(add(study, "gone", "CT", {good}, 0), "away", "CT", {"/nowhere/1"}, 3);
        add(add(study, "out", "CT", {good}, 0), "inside", "CT", {good}, 3);
        tree[u"out"_s]->setExcluded(true);
        add(add(study, "odd", "CT", {good}, 0), "bad", "CT", {good}, 1)->setExcluded(true);
        add(study, "remote", "CT", {}, 0);
        m_kept.append(patientEntry("Doe", "P7"));
        const Entry other = childOf(m_kept.last(), DicomDirectoryEntry::Study, "other");
        add(add(other, "loaded", "CT", {good}, 0), "known", "CT", {good}, 3);
        const McFilename lost(m_settings.path("lost").toStdString());
        add(add(other, "lost", "CT", {good}, 0), "half", "CT", {lost, good}, 3);
        add(other, "incomplete", "CT", {good}, 0)->setIncomplete();
        return tree;
    }

    FakeApplication m_app;
    std::map<McFilename, McHandle<HxParamBundle>> m_headers;
    McDArray<Entry> m_kept;
    Entry m_patient = childOf(nullptr, DicomDirectoryEntry::Patient, "p1");
    Entry m_study = childOf(m_patient, DicomDirectoryEntry::Study, "study");
    Entry m_series = childOf(m_study, DicomDirectoryEntry::Series, "series");
    Entry m_volume = childOf(m_series, DicomDirectoryEntry::StoredVolume, "volume");
    Entry m_other = childOf(nullptr, DicomDirectoryEntry::Patient, "p2");
    Entry m_otherStudy = childOf(m_other, DicomDirectoryEntry::Study, "study2");
};

QTEST_MAIN(tst_ExLoadHelper)
#include "tst_ExLoadHelper.moc"
