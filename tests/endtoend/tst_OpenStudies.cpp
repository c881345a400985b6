#include "client/layout/ViewerArea.h"
#include "client/loading/SampleMaker.h"
#include "client/panels/ProblemsButton.h"
#include "client/panels/StatusText.h"
#include "client/panels/StudyTree.h"
#include "framework/application/ExApplication.h"
#include "framework/loading/ExLoadHelper.h"
#include "framework/tools/ExActionUI.h"
#include "tests/endtoend/WindowFixture.h"
#include "tests/platform/dicomio/DicomFixture.h"
#include "tests/support/DragAndDrop.h"
#include "tests/support/NextDialog.h"

#include <QScopeGuard>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QtWidgets>

using namespace Qt::StringLiterals;

namespace {

constexpr int largeSide = 64;

bool showsBright(const WorkstationViewer &viewer)
{
    const QImage &frame = viewer.widget()->frame();
    return !frame.isNull() && qGray(frame.pixel(frame.rect().center())) == 255;
}

auto click(QMessageBox::StandardButton button)
{
    return
        [button](QWidget &dialog) { dynamic_cast<QMessageBox &>(dialog).button(button)->click(); };
}

/// Presses the button with this text; without it the box is closed.
void answer(QWidget &box, const char *text)
{
    for (QAbstractButton *each : box.findChildren<QAbstractButton *>()) {
        if (each->text().remove(u'&') == QLatin1String(text)) {
            each->click();
            return;
        }
    }
    box.close();
}

} // namespace

/// Opening folders: what is shown while it is read, when it is, and when it cannot be.
class tst_OpenStudies : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_files = std::make_unique<DicomFixture>();
        m_fixture = std::make_unique<WindowFixture>();
    }

    void cleanup()
    {
        m_fixture.reset();
        m_files.reset();
    }

    void largestSeriesIsShown()
    {
        m_files->addSlice(1, 0, {{"G0020-0011", "3"}});
        m_files->addSlice(2, 5, {{"G0020-0011", "3"}});
        for (int i = 10; i < 14; ++i) {
            m_files->addSlice(i, 3 * i,
                {{"G0020-000E", "2.25.1.2"}, {"G0020-0011", "7"}, {"G0008-103E", "second"}});
        }
        openAndWait();
        QCOMPARE(treeTexts(),
            (QStringList{u"Doe, Jane  ID1"_s, u"(study without date)"_s, u"CT 3|images: 2"_s,
                u"CT 7: second|images: 4"_s}));
        QCOMPARE(viewer(0).series()->uid(), std::string("2.25.1.2"));
        QCOMPARE(m_fixture->slice(0).stack().count(), 4);
        QCOMPARE(m_fixture->slice(0).stack().step(), 3.0);
        const OverlayContent &overlay = viewer(0).widget()->overlay();
        QCOMPARE(overlay.corners[OverlayContent::TopLeft],
            (QStringList{u"Doe, Jane"_s, u"ID1"_s, u"born 1970-01-02"_s}));
        QCOMPARE(overlay.corners[OverlayContent::BottomLeft][0], u"Im 2/4"_s);
        QCOMPARE(m_fixture->window().windowTitle(), u"Doe, Jane – Movara"_s);
        QCOMPARE(overlay.progress, 1.0);
        // Both series have a picture, of their own form.
        const QTreeWidgetItem &study = *tree().topLevelItem(0)->child(0);
        QVERIFY(!study.child(0)->icon(0).isNull() && !study.child(1)->icon(0).isNull());
    }

    void otherSeriesByDoubleClick()
    {
        largestSeriesIsShown();
        tree().setCurrentItem(tree().topLevelItem(0)->child(0)->child(0));
        Q_EMIT tree().itemActivated(tree().currentItem(), 0);
        for (const WorkstationViewer *each : workstation().viewers()) {
            QCOMPARE(each->series()->uid(), std::string("2.25.1.1"));
        }
        m_fixture->settle();
        QCOMPARE(m_fixture->slice(0).stack().count(), 2);
    }

    void seriesIsDroppedOnOneViewer()
    {
        largestSeriesIsShown();
        QMimeData dragged;
        dragged.setData(ViewerArea::seriesMimeType, "2.25.1.1");
        const QPoint target = viewer(1).widget()->geometry().center();
        QVERIFY(dragAndDrop(dragged, find<ViewerArea>(), target));
        QTRY_COMPARE(viewer(1).series()->uid(), std::string("2.25.1.1"));
        QCOMPARE(viewer(0).series()->uid(), std::string("2.25.1.2"));
        m_fixture->settle();
    }

    void phasesOfOneSeries()
    {
        for (int phase = 1; phase <= 3; ++phase) {
            for (int z = 0; z < 2; ++z) {
                m_files->addSlice(100 * phase + z, 4 * z, {{"G0020-0012", std::to_string(phase)}});
            }
        }
        openAndWait();
        QCOMPARE(viewer(0).numPhases(), 3);
        QCOMPARE(m_fixture->slice(0).stack().count(), 2);
        QVERIFY(treeTexts().last().endsWith(u"images: 6, phases: 3"_s));
    }

    void patientsAreNotMixedUnasked()
    {
        addPatients();
        openAndWait();
        QCOMPARE(viewer(0).series()->uid(), std::string("2.25.3.1")); // The largest one.
        QStringList log;
        const QSignalSpy closed(&workstation().gate(), &LoadGate::patientClosed);
        const auto openIn = [&](std::size_t i, const char *uid, const char *button) {
            log += openAnswering(i, uid, button);
        };
        openIn(1, "2.25.1.1", "Cancel");
        openIn(1, "2.25.1.1", "Ignore");
        openIn(2, "2.25.1.1", "none"); // Open already.
        openIn(2, "2.25.2.1", "Ignore"); // Another one, to both.
        openIn(3, "2.25.1.1", "none");
        workstation().close({"2.25.1.1"});
        QVERIFY(viewer(1).series() == nullptr && viewer(3).series() == nullptr);
        openIn(1, "2.25.3.1", "none"); // Stays open.
        openIn(1, "2.25.1.1", "Ignore"); // The answer went with the patient.
        workstation().close({"2.25.2.1"});
        ExLoadHelper &helper = *ExApplication::instance().loadHelper();
        helper.setPatientLockId("IDA");
        helper.setPatientLock(true);
        openIn(2, "2.25.2.1", "OK"); // Of another patient than the locked one.
        const QString line = u"(Name: %1, Date of Birth: 1970-01-02)|"_s;
        const QString a = line.arg(u"A"_s);
        const QString b = line.arg(u"B"_s);
        const QString c = line.arg(u"C"_s);
        const QStringList expected{a % c, u"2.25.3.1"_s, a % c, u"2.25.1.1"_s, u"2.25.1.1"_s,
            b % a % c, u"2.25.2.1"_s, u"2.25.1.1"_s, u"2.25.3.1"_s, a % b % c, u"2.25.1.1"_s,
            u"IDA|IDB|Loading prohibited!|"_s, u"-"_s};
        QCOMPARE(log, expected);
        QCOMPARE(closed.count(), 2);
        QCOMPARE(find<QStatusBar>().currentMessage(), u"Closed: B"_s);
        m_fixture->settle();
    }

    void lockedPatientsKeepOthersOut()
    {
        addPatients();
        QAction &lock = *ExActionUI::createAction("File.LockPatient", nullptr);
        QStringList log;
        const auto tell = [&] {
            m_fixture->settle();
            log += QString(QLatin1String(lock.isEnabled() ? "enabled" : "disabled")
                % QLatin1String(lock.isChecked() ? " on" : " off"));
        };
        const auto &status = find<QStatusBar>();
        const auto *const locked = status.findChild<QLabel *>(u"LockedPatients"_s);
        const auto click = [&] {
            lock.trigger();
            log += locked->isVisible() ? locked->text() : status.currentMessage();
            tell();
        };
        tell();
        openAndWait();
        tell();
        log += openAnswering(1, "2.25.1.1", "Ignore").last();
        click();
        workstation().close({"2.25.1.1"}); // The lock outlasts it.
        log += openAnswering(2, "2.25.2.1", "OK");
        log += openAnswering(1, "2.25.1.1", "Ignore").last();
        workstation().session().close();
        tell();
        openAndWait(); // The largest one is of a locked patient.
        log += openAnswering(2, "2.25.2.1", "OK");
        workstation().session().close();
        click();
        const QStringList expected{u"disabled off"_s, u"enabled off"_s, u"2.25.1.1"_s,
            u"Locked: A; C"_s, u"enabled on"_s, u"IDA|IDB|Loading prohibited!|"_s, u"2.25.3.1"_s,
            u"2.25.1.1"_s, u"enabled on"_s, u"IDC|IDB|Loading prohibited!|"_s, u"2.25.3.1"_s,
            u"The patient is no longer locked."_s, u"disabled off"_s};
        QCOMPARE(log, expected);
    }

    /// What the question is about stays open until it is answered.
    void scanEndsBehindAQuestion()
    {
        addPatients();
        openAndWait();
        const QSignalSpy scanned(&workstation().session(), &StudySession::scanned);
        open();
        const NextDialog ask([&](QWidget &box) {
            QTRY_VERIFY(!workstation().session().isScanning());
            QCoreApplication::processEvents();
            QVERIFY(scanned.isEmpty() && viewer(0).series() != nullptr);
            answer(box, "Ignore");
        });
        workstation().openIn(viewer(1), "2.25.1.1");
        QVERIFY(viewer(1).series() != nullptr && scanned.isEmpty());
        QTRY_COMPARE(scanned.size(), 1);
        m_fixture->settle();
        QCOMPARE(viewer(1).series()->uid(), std::string("2.25.3.1"));
        QCOMPARE(ExApplication::instance().loadHelper()->loadedList().items().size(), 1U);
    }

    void missingSlicesAreAskedAboutOnce()
    {
        m_files->addStackAt({0, 5, 10, 25, 30});
        for (const auto answer : {QMessageBox::Cancel, QMessageBox::Ok}) {
            const NextDialog ask(click(answer));
            openAndWait(); // In all viewers.
            QVERIFY(ask.hasAppeared());
            for (const std::size_t i : {0U, 3U}) {
                QCOMPARE(viewer(i).series() != nullptr, answer == QMessageBox::Ok);
            }
        }
        // The gap keeps its size: what is not there is empty, nothing moves together.
        QCOMPARE(m_fixture->slice(0).stack().count(), 7);
        QCOMPARE(m_fixture->slice(0).stack().step(), 5.0);
        QVERIFY(viewer(0).widget()->overlay().warnings.first().startsWith(u"Images are missing"_s));
        workstation().close({"2.25.1.1"});
        workstation().gate().setUnattended(true);
        workstation().openInAll("2.25.1.1");
        QVERIFY(viewer(0).series() != nullptr && viewer(3).series() != nullptr);
        m_fixture->settle();
    }

    void firstImageComesBeforeTheLast()
    {
        addLargeSlices(60);
        bool wasSeenEarly = false;
        QObject::connect(viewer(0).widget(), &ViewerRenderWidget::painted, this, [&] {
            wasSeenEarly
                = wasSeenEarly || (showsBright(viewer(0)) && !viewer(0).series()->isComplete());
        });
        openAndWait();
        QVERIFY(wasSeenEarly && viewer(0).series()->isComplete());
        QVERIFY(viewer(0).series()->remark().isEmpty());
    }

    void cancelledScanIsTold()
    {
        constexpr int listed = 20000; // Reading them must take longer than hearing of it.
        const McFilename file = m_files->addSlice(1, 0);
        for (int i = 1; i < listed; ++i) {
            std::filesystem::create_hard_link(file, m_files->path("link" + std::to_string(i)));
        }
        m_fixture->settle(); // Painting is not to hold up the cancellation.
        StudySession &session = workstation().session();
        connect(&session, &StudySession::progressChanged, this, [&session](int done) {
            if (done > 0 && session.isScanning()) {
                session.cancel();
            }
        });
        const NextDialog ask(click(QMessageBox::Ok));
        openAndWait();
        const QString incomplete = u"Opening was cancelled: the list is incomplete."_s;
        const StatusText &status = find<StatusText>();
        QVERIFY2(
            status.isWarning() && status.text().startsWith(incomplete), qPrintable(status.text()));
        QVERIFY(session.found().numFiles < listed);
        const ProblemsButton &button = find<ProblemsButton>();
        QVERIFY(button.isVisible());
        QDialog &dialog = openProblems();
        QCOMPARE(dialog.findChild<StatusText *>()->text(), incomplete);
        dialog.close();
        session.close();
        QVERIFY(!button.isVisible() && !status.isWarning());
    }

    void cancelKeepsWhatWasRead()
    {
        addLargeSlices(60);
        auto &button = find<QPushButton>(u"CancelButton"_s);
        QVERIFY(!button.isVisible());
        bool wasClicked = false;
        QObject::connect(viewer(0).widget(), &ViewerRenderWidget::painted, this, [&] {
            if (showsBright(viewer(0)) && !std::exchange(wasClicked, true)) {
                QVERIFY(button.isVisible());
                QTest::mouseClick(&button, Qt::LeftButton);
            }
        });
        openAndWait();
        QVERIFY(wasClicked && !button.isVisible());
        QVERIFY(viewer(0).series()->progress() < 1);
        QVERIFY(viewer(0).series()->remark().contains(u"cancelled"_s));
        QVERIFY(viewer(0).widget()->overlay().warnings.contains(viewer(0).series()->remark()));
        m_fixture->wheel(viewer(0), -1); // What was read can be worked with.
    }

    void closeWhileReading()
    {
        addLargeSlices(60);
        const QSignalSpy opened(&m_fixture->session(), &WorkSession::opened);
        open();
        QTRY_COMPARE(opened.count(), 1);
        workstation().session().close();
        QVERIFY(!workstation().session().isBusy());
        QCOMPARE(treeTexts(), QStringList());
        for (const WorkstationViewer *each : workstation().viewers()) {
            QVERIFY(each->series() == nullptr);
            QVERIFY(each->widget()->overlay().message.startsWith(u"No series. Open a folder"_s));
        }
        m_fixture->settle();
        QVERIFY(viewer(0).widget()->frame().isNull());
    }

    void openWhileSampleIsMade()
    {
        const QTemporaryDir cache;
        qputenv("XDG_CACHE_HOME", cache.path().toLocal8Bit());
        const auto restore = qScopeGuard([] { qunsetenv("XDG_CACHE_HOME"); });
        m_files->addStack(2);
        m_fixture->session().openSample();
        m_fixture->session().openSample(); // It is under way.
        openAndWait();
        const QStringList wanted = treeTexts();
        QTRY_VERIFY(m_fixture->session().findChildren<SampleMaker *>().isEmpty());
        QTRY_VERIFY(m_fixture->session().isSettled());
        QCOMPARE(treeTexts(), wanted); // The sample study does not take its place.
        m_fixture->session().openSample();
        tool("File.Close").setActive(true);
        QVERIFY(!find<QProgressBar>().isVisible());
        QTRY_VERIFY(m_fixture->session().findChildren<SampleMaker *>().isEmpty());
        QTRY_VERIFY(m_fixture->session().isSettled());
        QCOMPARE(treeTexts(), QStringList());
    }

    void openWhileReading()
    {
        addLargeSlices(60);
        open();
        openAndWait();
        QCOMPARE(treeTexts().size(), 3);
        QVERIFY(viewer(0).series()->isComplete());
    }

    void nothingToShow()
    {
        const DicomFixture empty;
        const auto report = DicomFixture::attributes(1,
            {{"G0008-0016", "1.2.840.10008.5.1.4.1.1.88.11"}, {"G0008-0060", "SR"},
                {"G0028-0010", ""}, {"G0028-0011", ""}});
        m_files->add("report.dcm", *report, {});
        const std::pair<QString, QString> rows[]
            = {{empty.folderName() % u"/not-there", u"Nothing can be read from "_s},
                {empty.folderName(), u"There are no files here"_s},
                {m_files->folderName(), u"There are no images here (files looked at: 1)"_s}};
        for (const auto &[path, text] : rows) {
            const QSignalSpy opened(&m_fixture->session(), &WorkSession::opened);
            m_fixture->session().open({path});
            QTRY_COMPARE(opened.count(), 1);
            const QString &problem = m_fixture->session().openProblem();
            QVERIFY2(problem.startsWith(text), qPrintable(problem));
            QVERIFY(viewer(0).series() == nullptr);
        }
        QTreeWidgetItem *const item = tree().topLevelItem(0)->child(0)->child(0);
        QVERIFY(item->text(0).startsWith(u"SR"_s));
        QVERIFY(item->toolTip(0).contains(u"Cannot be opened"_s));
        Q_EMIT tree().itemActivated(item, 0); // Nothing to open.
        QVERIFY(viewer(0).series() == nullptr);
    }

    void whatIsOpenStaysWithoutImages()
    {
        addLargeSlices(60);
        const QSignalSpy opened(&m_fixture->session(), &WorkSession::opened);
        open();
        QTRY_COMPARE(opened.count(), 1);
        const QStringList listed = treeTexts();
        const DicomFixture empty;
        m_fixture->session().open({empty.folderName()});
        QTRY_COMPARE(opened.count(), 2);
        QTRY_VERIFY(m_fixture->session().isSettled());
        QCOMPARE(treeTexts(), listed);
        QVERIFY(viewer(0).series() != nullptr && viewer(0).series()->isComplete());
        QVERIFY(viewer(0).series()->remark().isEmpty());
        const StatusText &status = find<StatusText>();
        QVERIFY(status.isWarning() && status.text() == m_fixture->session().openProblem());
        QVERIFY2(status.text().startsWith(u"There are no files here"), qPrintable(status.text()));
        viewer(0).setSeries(nullptr);
        QVERIFY(viewer(0).widget()->overlay().message.contains(u"Double-click one"_s));
    }

    void problemsAreListed()
    {
        m_files->addStack(2);
        m_files->addText("notes.dcm", "no DICOM at all");
        openAndWait();
        const ProblemsButton &button = find<ProblemsButton>();
        QVERIFY(button.isVisible());
        QCOMPARE(button.text(), u"Files that could not be used: 1…"_s);
        QDialog &dialog = openProblems();
        auto *const list = dialog.findChild<QTreeWidget *>();
        QCOMPARE(list->topLevelItemCount(), 1);
        QCOMPARE(list->topLevelItem(0)->text(0), u"notes.dcm"_s);
        QVERIFY(!list->topLevelItem(0)->text(1).isEmpty());
        dialog.close();
        workstation().session().close();
        QVERIFY(!button.isVisible());
    }

    void sidesAreToldOnlyWhenKnown()
    {
        // Place and spacing are known; the letter at the right, lines in the corner
        const std::tuple<bool, bool, QString, qsizetype> rows[]
            = {{true, true, u"L"_s, 4}, {false, true, QString(), 3}, {false, false, QString(), 2}};
        for (const auto &[hasPosition, hasSpacing, letter, lines] : rows) {
            for (int i = 1; i <= 2; ++i) {
                m_files->addSlice(i, 5 * i,
                    {{"G0020-0032", hasPosition ? "0\\0\\" + std::to_string(5 * i) : std::string()},
                        {"G0020-0037", hasPosition ? "1\\0\\0\\0\\1\\0" : ""},
                        {"G0028-0030", hasSpacing ? "0.5\\0.25" : ""}});
            }
            openAndWait();
            const OverlayContent &overlay = viewer(0).widget()->overlay();
            QCOMPARE(overlay.letters[OverlayContent::Right], letter);
            QCOMPARE(overlay.mmPerPixel > 0, hasSpacing);
            QCOMPARE(overlay.corners[OverlayContent::BottomLeft].size(), lines);
        }
    }

    void refusedSeriesSaysWhy()
    {
        for (int i = 0; i < 25; ++i) { // 1 mm and 16 mm apart by turns
            m_files->addSlice(i + 1, i / 2 * 17 + i % 2);
        }
        openAndWait();
        for (const WorkstationViewer *each : workstation().viewers()) {
            QVERIFY(each->volume(0) == nullptr);
            QCOMPARE(each->widget()->overlay().message,
                u"The images are spaced too unevenly to make a volume."_s);
        }
        m_fixture->wheel(viewer(0), 1); // There is nothing to scroll, and no harm.
        m_fixture->drag(viewer(0), Qt::LeftButton, {30, 30});
    }

    void unreadableSlicesAreTold()
    {
        m_files->addStack(3);
        m_files->cutOff("3.dcm", 10); // The header is whole.
        const NextDialog ask(click(QMessageBox::Ok));
        openAndWait();
        QVERIFY(ask.hasAppeared());
        QCOMPARE(
            viewer(0).widget()->overlay().warnings.last(), u"slices that could not be read: 1"_s);
    }

private:
    Workstation &workstation() { return m_fixture->workstation(); }

    /// A widget of the window.
    template <typename Kind>
    Kind &find(const QString &name = {})
    {
        return *m_fixture->window().findChild<Kind *>(name);
    }

    QDialog &openProblems()
    {
        QTest::mouseClick(&find<ProblemsButton>(), Qt::LeftButton);
        return find<QDialog>(u"ProblemsDialog"_s);
    }

    void open() { m_fixture->session().open({m_files->folderName()}); }

    void openAndWait()
    {
        const QSignalSpy opened(&m_fixture->session(), &WorkSession::opened);
        open();
        QTRY_COMPARE(opened.count(), 1);
        QTRY_VERIFY(m_fixture->session().isSettled());
    }

    /// Opens a series in a viewer. @param button to answer a question with.
    /// @return the question, if there was one, without its first lines; the series in the viewer.
    QStringList openAnswering(std::size_t i, const char *uid, const char *button)
    {
        QStringList log;
        const NextDialog dialog([&](QWidget &shown) {
            auto &box = dynamic_cast<QMessageBox &>(shown);
            log += box.text().section(u'\n', 2).replace(u'\n', u'|');
            answer(box, button);
        });
        workstation().openIn(viewer(i), uid);
        return log << QString::fromStdString(viewer(i).series() ? viewer(i).series()->uid() : "-");
    }

    /// A, B, C with one, two, three slices.
    void addPatients()
    {
        int slices = 0;
        for (const char *name : {"A", "B", "C"}) {
            addPatient(name, ++slices);
        }
    }

    /// A patient with one series of so many slices, UID "2.25.<slices>.1".
    void addPatient(const std::string &name, int slices)
    {
        const std::string uid = "2.25." + std::to_string(slices);
        for (int i = 1; i <= slices; ++i) {
            const auto image = DicomFixture::attributes(i,
                {{"G0010-0010", name}, {"G0010-0020", "ID" + name}, {"G0020-000D", uid},
                    {"G0020-000E", uid + ".1"}, {"G0008-0018", uid + ".1." + std::to_string(i)},
                    {"G0020-0032", "0\\0\\" + std::to_string(i)}});
            m_files->add(name + std::to_string(i) + ".dcm", *image, DicomFixture::ramp(i));
        }
    }

    /// 64 x 64 pixels in a series of its own.
    void addLargeSlices(int count)
    {
        const std::vector<std::int16_t> pixels(largeSide * largeSide, 1000);
        for (int i = 0; i < count; ++i) {
            const auto attributes = DicomFixture::attributes(1000 + i,
                {{"G0028-0010", std::to_string(largeSide)},
                    {"G0028-0011", std::to_string(largeSide)}, {"G0020-000E", "2.25.1.3"},
                    {"G0028-1050", "500"}, {"G0028-1051", "1000"},
                    {"G0020-0032", "0\\0\\" + std::to_string(2 * i)}});
            m_files->add("large" + std::to_string(i) + ".dcm", *attributes, pixels);
        }
    }

    [[nodiscard]] QStringList treeTexts()
    {
        QStringList texts;
        for (QTreeWidgetItemIterator each(&tree()); *each != nullptr; ++each) {
            texts += (*each)->text(0).replace(u'\n', u'|');
        }
        return texts;
    }

    [[nodiscard]] StudyTree &tree() { return find<StudyTree>(); }
    [[nodiscard]] WorkstationViewer &viewer(std::size_t i) { return *workstation().viewers()[i]; }

    std::unique_ptr<DicomFixture> m_files;
    std::unique_ptr<WindowFixture> m_fixture;
};

QTEST_MAIN(tst_OpenStudies)
#include "tst_OpenStudies.moc"
