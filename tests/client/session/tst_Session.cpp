#include "client/session/SessionFile.h"
#include "client/session/SessionState.h"
#include "client/session/WorkstationSessions.h"
#include "client/viewers/VolumeViewer.h"
#include "framework/viewers/ExViewerDB.h"
#include "tests/client/support/Drawn.h"
#include "tests/endtoend/WindowFixture.h"
#include "tests/platform/dicomio/DicomFixture.h"
#include "tests/support/Files.h"
#include "tests/support/NextDialog.h"
#include "tests/support/SmallDisk.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int side = 32;
constexpr int slices = 12;

/// A body whose values differ everywhere, at three times; beside it a second series.
void writePhantom(DicomFixture &files)
{
    for (int i = 0; i < 3 * slices; ++i) {
        const int z = i % slices;
        std::vector<std::int16_t> pixels;
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x) {
                pixels.push_back(
                    static_cast<std::int16_t>(3 * x + 7 * y + 11 * z + 50 * (i / slices)));
            }
        }
        const McHandle<HxParamBundle> header = DicomFixture::attributes(i + 1,
            {{"G0028-0010", std::to_string(side)}, {"G0028-0011", std::to_string(side)},
                {"G0028-0030", "2\\2"}, {"G0020-0100", std::to_string(i / slices + 1)},
                {"G0020-0032", "-30\\-20\\" + std::to_string(3 * z)}});
        files.add("a" + std::to_string(i), *header, pixels);
    }
    for (int i = 100; i < 104; ++i) {
        files.addSlice(i, 5 * i, {{"G0020-000E", "2.25.1.2"}, {"G0008-103E", "second"}});
    }
}

void moveSecondSeries(const DicomFixture &from, const DicomFixture &to)
{
    for (const char *name : {"100.dcm", "101.dcm", "102.dcm", "103.dcm"}) {
        std::filesystem::rename(from.path(name), to.path(name));
    }
}

struct Opened
{
    Opened() = default;
    explicit Opened(const DicomFixture &files) { openFolder(files); }

    std::unique_ptr<WindowFixture> fixture = std::make_unique<WindowFixture>();
    std::unique_ptr<WorkstationSessions> sessions
        = std::make_unique<WorkstationSessions>(fixture->workstation());

    [[nodiscard]] Workstation &workstation() const { return fixture->workstation(); }
    [[nodiscard]] WorkstationViewer &viewer(std::size_t i) const
    {
        return *workstation().viewers()[i];
    }
    void openFolder(const DicomFixture &files) const
    {
        fixture->session().open({files.folderName()});
        QTRY_VERIFY(!workstation().session().paths().isEmpty() && workstation().isSettled());
    }
    /// Opens a session and waits for all it shows. @return the message.
    [[nodiscard]] QString open(const QString &file) const
    {
        QSignalSpy finished(sessions.get(), &WorkstationSessions::finished);
        const QString problem = sessions->open(file);
        if (!problem.isEmpty()) {
            return problem;
        }
        if (!QTest::qWaitFor([&] { return finished.size() == 1; })) {
            qFatal("the session is not opened");
        }
        fixture->settle();
        return finished[0][0].toBool() ? finished[0][1].toString() : u"unexpected"_s;
    }
    [[nodiscard]] QList<QImage> pictures() const
    {
        QList<QImage> all;
        for (const SliceViewer *viewer : workstation().sliceViewers()) {
            all += viewer->widget()->frame();
        }
        return all;
    }
};

Measurement measure(const Opened &opened)
{
    const Measurement distance
        = drawn(Measurement::Kind::Distance, opened.fixture->slice(0), {{1, 2, 9}, {4, 6, 9}});
    opened.workstation().measurements().add(distance);
    return distance;
}

/// Something of everything that a session keeps.
void change(const Opened &opened)
{
    Workstation &workstation = opened.workstation();
    workstation.layouts().apply(*LayoutTable::find(u"1+3"_s));
    SliceViewer &first = opened.fixture->slice(0);
    first.setPhase(2);
    first.setZoom(5);
    first.pan({4, 3, 0});
    first.setSliceIndex(3);
    first.setWindow({300, 123});
    first.setInverted(true);
    SliceViewer &second = opened.fixture->slice(1);
    second.setFlipped(Qt::Horizontal, true);
    second.rotate({0, 0, 1}, 0.3);
    workstation.openIn(opened.fixture->slice(2), "2.25.1.2");
    auto &volume = dynamic_cast<VolumeViewer &>(opened.viewer(3));
    volume.rotate(40, 20);
    volume.setWindow({77, 99});
    ViewerLinks::setAttached(second, false);
    ViewerLinks::setEnabled(ExViewerDB::ZOOM_GROUP, false);
    ViewerLinks::followActive(ExViewerDB::CAMERA_GROUP, opened.fixture->slice(2));
    ViewerLinks::leave(ExViewerDB::CAMERA_GROUP, first);
    // A group of its own, though it would be linked by its kind.
    ExViewerDB::clearGroups(ExViewerDB::WINDOWLEVEL_GROUP, &first);
    ExViewerDB::createGroup(ExViewerDB::WINDOWLEVEL_GROUP, {&first}, true);
    const Measurement distance = measure(opened);
    MeasurementList &measurements = workstation.measurements();
    measurements.remove(measurements.add(distance));
    measurements.add(distance);
    ExViewerManager::instancePointer()->setActiveViewer(&second);
    opened.fixture->settle();
}

QMessageBox *question()
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->objectName() == u"RestoreQuestion"_s) {
            return qobject_cast<QMessageBox *>(window);
        }
    }
    return nullptr;
}

void answerQuestion(const QString &answer)
{
    for (QAbstractButton *button : question()->buttons()) {
        if (button->text() == answer) {
            button->click();
            return;
        }
    }
    qFatal("there is no such answer");
}

} // namespace

/// Sessions of the real window: saved, opened again, and left behind by a crash.
class tst_Session : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { writePhantom(m_files); }

    void cleanup() { QFile::remove(m_name); }

    void everythingComesBack()
    {
        QList<QImage> before;
        {
            const Opened opened(m_files);
            change(opened);
            before = opened.pictures();
            QCOMPARE(WorkstationSessions::unsaved(), QStringList(u"Measurements"_s));
            QCOMPARE(opened.sessions->save(m_name), QString());
            QCOMPARE(WorkstationSessions::unsaved(), QStringList());
        }
        const Opened opened;
        QCOMPARE(opened.open(m_name), QString());
        QCOMPARE(opened.pictures(), before);
        const QString again = m_name % u"-again";
        QCOMPARE(opened.sessions->save(again), QString());
        QCOMPARE(readFile(again), readFile(m_name));
        QFile::remove(again);
        QCOMPARE(WorkstationSessions::unsaved(), QStringList());
        QCOMPARE(opened.workstation().activeViewer(), &opened.fixture->slice(1));
        QVERIFY(!ViewerLinks::isAttached(opened.fixture->slice(1)));
        QVERIFY(ViewerLinks::followsActive(ExViewerDB::CAMERA_GROUP, opened.fixture->slice(2)));
    }

    /// Images come later; what was changed until then holds.
    void linksAreChangedBeforeTheImagesCome()
    {
        const Opened opened(m_files);
        QCOMPARE(opened.sessions->save(m_name), QString());
        SliceViewer &changed = opened.fixture->slice(1);
        connect(opened.sessions.get(), &WorkstationSessions::finished, &opened.workstation().gate(),
            [&changed] { ViewerLinks::setAttached(changed, false); });
        QCOMPARE(opened.open(m_name), QString());
        QVERIFY(changed.volume(0) != nullptr && !ViewerLinks::isAttached(changed));
    }

    void whatIsMissingIsTold()
    {
        {
            const Opened opened(m_files);
            opened.workstation().openIn(opened.viewer(0), "2.25.1.2");
            opened.fixture->settle();
            QCOMPARE(opened.sessions->save(m_name), QString());
        }
        const DicomFixture elsewhere;
        moveSecondSeries(m_files, elsewhere);
        const auto putBack = qScopeGuard([&] { moveSecondSeries(elsewhere, m_files); });
        const Opened opened;
        const QString message = opened.open(m_name);
        QVERIFY2(message.contains(u"the series CT second"_s), qPrintable(message));
        QCOMPARE(opened.viewer(0).series(), nullptr);
        QVERIFY(opened.viewer(1).series() != nullptr);
    }

    void nothingIsChangedByWhatCannotBeOpened()
    {
        ExSessionData session;
        session.setBlock(u"Studies"_s, SessionState::Studies{{u"/nonexistent"_s}}.toBytes());
        session.setBlock(u"Viewers"_s, SessionState::Viewers{{u"1x1"_s}, {}}.toBytes());
        session.setBlock(u"Links"_s, SessionState::Links().toBytes());
        session.setBlock(u"Measurements"_s, SessionState::Measurements().toBytes());
        const Opened opened(m_files);
        QCOMPARE(opened.sessions->save(m_name), QString());
        const QSignalSpy scanned(&opened.workstation().session(), &StudySession::scanned);
        QCOMPARE(opened.sessions->open(m_name), QString());
        QCOMPARE(SessionFile::write(m_name, SessionFile::toBytes(session)), QString());
        QSignalSpy finished(opened.sessions.get(), &WorkstationSessions::finished);
        QCOMPARE(opened.sessions->open(m_name), QString());
        QCOMPARE(finished.size(), 2);
        QVERIFY(finished[1][1].toString().contains(u"/nonexistent"_s));
        QTRY_VERIFY(!opened.workstation().session().isScanning());
        QVERIFY(scanned.isEmpty()); // What the session before was looking for is not shown either.
        session.setBlock(u"Measurements"_s, "\x01");
        QCOMPARE(SessionFile::write(m_name, SessionFile::toBytes(session)), QString());
        QVERIFY(opened.open(m_name).contains(u"does not understand"_s));
        QCOMPARE(opened.workstation().layouts().current(), u"2x2"_s);
        QVERIFY(opened.viewer(0).series() != nullptr);
    }

    /// A session that is being looked for must not hold up what the user does instead, nor the
    /// autosave for ever.
    void userDoesSomethingElseMeanwhile()
    {
        const Opened opened(m_files);
        QCOMPARE(opened.sessions->save(m_name), QString());
        QSignalSpy finished(opened.sessions.get(), &WorkstationSessions::finished);
        QCOMPARE(opened.sessions->open(m_name), QString());
        opened.workstation().session().close();
        QVERIFY(!opened.sessions->isRestoring());
        QCOMPARE(opened.sessions->open(m_name), QString());
        opened.openFolder(m_files);
        QVERIFY(opened.viewer(0).series() != nullptr);
        QCOMPARE(finished, (QList<QVariantList>{{false, QString()}, {false, QString()}}));
    }

    void autosaveIsOfferedAfterACrash()
    {
        const QTemporaryDir folder;
        const QString left = folder.filePath(u"autosave-2.movara-session"_s);
        {
            // Another workstation at work: its autosave is its own.
            const auto other = AutosaveSlot::takeFree(folder.path());
            writeFile(other->file(), "of another workstation");
            const Opened opened;
            opened.sessions->startAutosave(folder.path(), [] {});
            QVERIFY(question() == nullptr);
            opened.openFolder(m_files);
            opened.workstation().measurements().add(drawn(
                Measurement::Kind::Distance, opened.fixture->slice(0), {{1, 2, 9}, {4, 6, 9}}));
            QTRY_VERIFY(QFile::exists(left));
            QVERIFY(QFile::copy(left, m_name));
            other->clear();
        }
        QVERIFY(!QFile::exists(left)); // An orderly end leaves nothing.
        QVERIFY(QFile::copy(m_name, left)); // A crash does.
        offer(folder.path(), u"&Later"_s, true, false);
        offer(folder.path(), u"&Restore"_s, false, true);
        QVERIFY(QDir(folder.path()).entryList({u"*.movara-session"_s}).isEmpty());
        QVERIFY(QFile::copy(m_name, left));
        offer(folder.path(), u"&Discard"_s, false, false);
        ExSessionData elsewhere;
        QCOMPARE(SessionFile::read(m_name, elsewhere), QString());
        elsewhere.setBlock(u"Studies"_s, SessionState::Studies{{u"/nonexistent"_s}}.toBytes());
        QCOMPARE(SessionFile::write(left, SessionFile::toBytes(elsewhere)), QString());
        offer(folder.path(), u"&Restore"_s, true, false);
        writeFile(left, "damaged");
        offer(folder.path(), u"&Restore"_s, false, false);
        const QStringList kept = QDir(folder.path()).entryList({u"*.unusable-*"_s});
        QVERIFY(kept.size() == 1 && readFile(folder.filePath(kept.first())) == "damaged");
    }

    /// What a crash has left is neither lost nor taken for another session that is opened before
    /// the user has answered, or instead of it.
    void otherSessionIsOpenedMeanwhile()
    {
        const QTemporaryDir folder;
        const QString left = folder.filePath(u"autosave-1.movara-session"_s);
        {
            const Opened opened(m_files);
            QCOMPARE(opened.sessions->save(m_name), QString());
        }
        const auto leave = [&] { return QFile::exists(left) || QFile::copy(m_name, left); };
        for (const QString &answer : {u"&Later"_s, u"&Restore"_s, u"&Discard"_s}) {
            QVERIFY(leave());
            const Opened opened;
            QSignalSpy finished(opened.sessions.get(), &WorkstationSessions::finished);
            QCOMPARE(opened.sessions->open(m_name), QString()); // As from the command line.
            opened.sessions->startAutosave(folder.path(), [] {});
            QTRY_VERIFY(finished.size() == 1 && question() != nullptr);
            answerQuestion(answer);
            QTRY_COMPARE(finished.size(), answer == u"&Restore"_s ? 2 : 1);
            QVERIFY(finished.last().first().toBool());
            QCOMPARE(QFile::exists(left), answer != u"&Discard"_s);
        }
        QVERIFY(leave());
        {
            const Opened opened;
            QSignalSpy finished(opened.sessions.get(), &WorkstationSessions::finished);
            opened.sessions->startAutosave(folder.path(), [] {});
            QTRY_VERIFY(question() != nullptr);
            answerQuestion(u"&Restore"_s);
            QCOMPARE(opened.sessions->open(m_name), QString());
            QTRY_COMPARE(finished, (QList<QVariantList>{{false, QString()}, {true, QString()}}));
        }
        QVERIFY(QFile::exists(left)); // To be offered at the next start.
        DicomFixture many; // Looking through them takes longer than the user.
        const McFilename file = many.addSlice(1, 0, {{"G0020-000E", "2.25.1.9"}});
        for (int i = 0; i < 3000; ++i) {
            std::filesystem::create_hard_link(file, many.path(std::to_string(i)));
        }
        ExSessionData session;
        QCOMPARE(SessionFile::read(m_name, session), QString());
        session.setBlock(u"Studies"_s, SessionState::Studies{{many.folderName()}}.toBytes());
        QCOMPARE(SessionFile::write(left, SessionFile::toBytes(session)), QString());
        {
            const Opened opened;
            QSignalSpy finished(opened.sessions.get(), &WorkstationSessions::finished);
            StudySession &studies = opened.workstation().session();
            connect(&studies, &StudySession::busyChanged, &studies, &StudySession::cancel);
            opened.sessions->startAutosave(folder.path(), [] {});
            QTRY_VERIFY(question() != nullptr);
            answerQuestion(u"&Restore"_s);
            QTRY_COMPARE(finished.size(), 1);
            QVERIFY(finished[0][1].toString().startsWith(u"Opening was cancelled."_s));
        }
        QVERIFY(QFile::exists(left)); // To be seen whole at the next start.
    }

    void autosaveWithoutRoomIsTold()
    {
        const SmallDisk disk;
        if (!disk.isMounted()) {
            QSKIP("only root can mount a small disk");
        }
        disk.fill();
        const Opened opened;
        const QSignalSpy failed(opened.sessions.get(), &WorkstationSessions::autosaveFailed);
        opened.sessions->startAutosave(disk.path(), [] {});
        QVERIFY(failed.size() == 1
            && failed.first().first().toString().contains(u"make room on the disk"_s));
        opened.openFolder(m_files); // Works all the same.
    }

    // Last: after the end no dialog waits any more.
    void quitAsksForWhatIsNotSaved()
    {
        qputenv("XDG_DATA_HOME", m_folder.path().toLocal8Bit());
        const auto press = [](QMessageBox::StandardButton button) {
            return [button](
                       QWidget &box) { dynamic_cast<QMessageBox &>(box).button(button)->click(); };
        };
        {
            const Opened opened(m_files);
            QCOMPARE(opened.sessions->save(m_name), QString());
            const QByteArray saved = readFile(m_name);
            measure(opened);
            auto &application = WorkstationApplication::instance();
            const NextDialog cancel(press(QMessageBox::Cancel));
            application.quitApplication();
            QVERIFY(cancel.hasAppeared() && !application.isQuitting());
            // The name that is entered is, with its suffix, that of a file which is there.
            std::optional<NextDialog> naming;
            std::optional<NextDialog> replacing;
            const NextDialog save([&](QWidget &box) {
                naming.emplace([&](QWidget &dialog) {
                    replacing.emplace([&](QWidget &question) {
                        QMetaObject::invokeMethod(&dialog, "reject", Qt::QueuedConnection);
                        press(QMessageBox::No)(question);
                    });
                    dialog.findChild<QLineEdit *>()->setText(m_name.section(u'.', 0, -2));
                    dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Save)->click();
                });
                press(QMessageBox::Save)(box);
            });
            application.quitApplication();
            QVERIFY(replacing && replacing->hasAppeared() && readFile(m_name) == saved);
            QVERIFY(!application.isQuitting());
            const NextDialog discard(press(QMessageBox::Discard));
            application.quitApplication();
            QVERIFY(discard.hasAppeared() && application.isQuitting());
        }
        const Opened opened(m_files);
        measure(opened);
        QCOMPARE(opened.sessions->save(m_name), QString());
        WorkstationApplication::instance().quitApplication();
        QVERIFY(WorkstationApplication::instance().isQuitting());
    }

private:
    /// Starts, answers the question, ends in order. @param isKept whether the file is there then.
    static void offer(const QString &folder, const QString &answer, bool isKept, bool isRestored)
    {
        {
            const Opened opened;
            QSignalSpy finished(opened.sessions.get(), &WorkstationSessions::finished);
            bool isOtherwise = false;
            opened.sessions->startAutosave(folder, [&isOtherwise] { isOtherwise = true; });
            QTRY_VERIFY(question() != nullptr);
            answerQuestion(answer);
            QTRY_VERIFY(isRestored ? finished.size() == 1 : isOtherwise);
            QTRY_VERIFY(opened.workstation().isSettled());
            QCOMPARE(opened.viewer(0).series() != nullptr, isRestored);
            QCOMPARE(isOtherwise, !isRestored);
            QCOMPARE(WorkstationSessions::unsaved().size(), isRestored ? 1 : 0);
            QTRY_VERIFY(question() == nullptr);
        }
        QCOMPARE(QFile::exists(folder % u"/autosave-2.movara-session"), isKept);
    }

    DicomFixture m_files;
    QTemporaryDir m_folder;
    QString m_name = m_folder.filePath(u"x.movara-session"_s);
};

QTEST_MAIN(tst_Session)
#include "tst_Session.moc"
