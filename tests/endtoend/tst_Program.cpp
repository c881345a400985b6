#include "framework/application/BuildVersion.h"
#include "tests/platform/dicomio/DicomFixture.h"
#include "tests/support/Files.h"
#include "tests/support/Process.h"

#include <QDir>
#include <QImage>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString program = QStringLiteral(WORKSTATION_PROGRAM);
const QString noValue;

/// @return the new display's name; empty when there is no such server here.
QString startDisplayServer(QProcess &server)
{
    server.start(u"Xvfb"_s,
        {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, u"1280x1024x24"_s, u"-noreset"_s});
    const bool runs = server.waitForStarted() && server.waitForReadyRead(30000);
    return runs ? u':' + QString::fromLatin1(server.readLine()).trimmed() : QString();
}

void start(QProcess &process, const QStringList &arguments, const Variables &variables)
{
    process.setProcessEnvironment(environmentWith(variables));
    process.start(program, arguments);
}

} // namespace

/// The program as it is called from a shell: arguments, exit codes, what it prints, pictures.
class tst_Program : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qputenv("XDG_RUNTIME_DIR", QDir::tempPath().toUtf8()); }

    void answers()
    {
        const std::tuple<QString, int, QString> rows[] = {
            {u"--help"_s, 0, u"--screenshot <file>"_s},
            {u"--version"_s, 0, QString::fromUtf8(movaraBuildVersionTag())},
            {u"--layout 9x9"_s, 2, u"Known layouts: 1x1, 2x2, 1+3."_s},
            {u"--size huge"_s, 2, u"like 1600x1000"_s}, {u"--size 100x100"_s, 2, u"at least 200"_s},
            {u"--benchmark speed"_s, 2, u"Known benchmarks: scroll, start."_s},
            {u"--colour red"_s, 2, u"colour"_s}, {u"--session a b"_s, 2, u"give it or folders"_s}};
        for (const auto &[typed, exitCode, text] : rows) { // None of these needs a display.
            const Run result(
                program, typed.split(u' '), {{"DISPLAY", noValue}, {"QT_QPA_PLATFORM", noValue}});
            QCOMPARE(result.exitCode, exitCode);
            const QString &said = exitCode == 0 ? result.output : result.errors;
            QVERIFY2(said.contains(text), qPrintable(said));
        }
    }

    void withoutDisplay()
    {
        // The display, the platform that is chosen, why it does not start
        const std::tuple<QString, QString, QString> rows[]
            = {{noValue, noValue, u"DISPLAY is not set"_s},
                {u":98765"_s, noValue, u"display :98765 cannot be opened"_s},
                {noValue, u"xcb"_s, u"DISPLAY is not set"_s}};
        for (const auto &[display, platform, reason] : rows) {
            const Run result(program, {},
                {{"DISPLAY", display}, {"WAYLAND_DISPLAY", noValue},
                    {"QT_QPA_PLATFORM", platform}});
            QCOMPARE(result.exitCode, 1);
            QVERIFY2(result.errors.contains(reason), qPrintable(result.errors));
            QVERIFY(result.errors.contains(u"scripts/run --screenshot FILE"_s));
        }
    }

    void screenshot()
    {
        DicomFixture files;
        files.addStack(3, {{"G0028-1050", "0"}, {"G0028-1051", "10"}});
        const QString picture = files.folderName() % u"/picture.png";
        const QTemporaryDir home;
        // A tool of a plug-in is known where the plug-in has been loaded.
        writeFile(home.filePath(u"toolbars.xml"_s),
            R"(<ToolBars><ToolBar Id="A" Label="A"><Tool Id="Sample.Values"/></ToolBar></ToolBars>)");
        const Run result(program,
            {u"--size"_s, u"800x600"_s, u"--layout"_s, u"1x1"_s, u"--screenshot"_s, picture,
                files.folderName()},
            {{"MOVARA_PLUGINS", QStringLiteral(SAMPLE_FOLDER)},
                {"MOVARA_SETTINGS_FILE", home.filePath(u"settings.ini"_s)},
                {"MOVARA_LOG_DIR", home.path()}});
        QVERIFY2(result.exitCode == 0, qPrintable(result.errors));
        QVERIFY2(!result.errors.contains(u"Sample.Values"_s), qPrintable(result.errors));
        const QImage image(picture);
        QCOMPARE(image.size(), QSize(800, 600));
        // The images are brighter than their window everywhere: a white middle in a dark window.
        QCOMPARE(image.pixel(540, 330), qRgb(255, 255, 255));
        QVERIFY(qGray(image.pixel(2, 2)) < 60);
    }

    /// What was open is offered at the next start; and that opens as a session.
    void afterACrash()
    {
        // Killed, or left by its display server: the toolkit then calls exit() from its loop.
        for (const bool withDisplayServer : {false, true}) {
            DicomFixture files;
            files.addStack(2, {{"G0028-1050", "0"}, {"G0028-1051", "10"}});
            const QTemporaryDir home;
            const Variables environment{{"XDG_DATA_HOME", home.path()},
                {"MOVARA_SETTINGS_FILE", home.filePath(u"settings.ini"_s)},
                {"MOVARA_LOG_DIR", home.path()}};
            const QString left
                = home.filePath(u"movara-workstation/autosave/autosave-1.movara-session"_s);
            const auto log = [&home] {
                QByteArray all;
                for (const QString &name : QDir(home.path()).entryList({u"*.log"_s})) {
                    all += readFile(home.filePath(name));
                }
                return all;
            };
            QProcess server;
            Variables firstEnvironment = environment;
            if (withDisplayServer) {
                const QString display = startDisplayServer(server);
                if (display.isEmpty()) {
                    QSKIP("needs Xvfb");
                }
                firstEnvironment += Variables{{"DISPLAY", display}, {"QT_QPA_PLATFORM", u"xcb"_s}};
            }
            QProcess first;
            start(first, {files.folderName()}, firstEnvironment);
            QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(left), 30000);
            QVERIFY(!log().contains("not closed properly"));
            withDisplayServer ? server.kill() : first.kill();
            QVERIFY(first.waitForFinished());
            QCOMPARE(
                first.exitStatus(), withDisplayServer ? QProcess::NormalExit : QProcess::CrashExit);
            QVERIFY(QFile::exists(left));
            server.waitForFinished();

            QProcess second;
            start(second, {}, environment);
            QTRY_VERIFY_WITH_TIMEOUT(log().contains("not closed properly"), 30000);
            second.kill();
            QVERIFY(second.waitForFinished());
            QVERIFY(QFile::exists(left)); // Not answered: still there.

            const QString picture = home.filePath(u"picture.png"_s);
            const Run result(program,
                {u"--size"_s, u"800x600"_s, u"--screenshot"_s, picture, u"--session"_s, left},
                environment);
            QVERIFY2(result.exitCode == 0, qPrintable(result.errors));
            QCOMPARE(QImage(picture).size(), QSize(800, 600));
            const Run absent(
                program, {u"--screenshot"_s, picture, u"--session"_s, u"absent"_s}, environment);
            QCOMPARE(absent.exitCode, 1);
            QVERIFY2(absent.errors.contains(u"cannot be read"_s), qPrintable(absent.errors));
        }
    }

    /// Where a module is missing, as after half an installation, it is said what, and what to do.
    void withoutModules()
    {
        DicomFixture files;
        files.addStack(2);
        // Modules are looked for beside the library, wherever that was found.
        const QTemporaryDir elsewhere;
        QVERIFY(QFile::link(QStringLiteral(PLATFORM_LIBRARY),
            elsewhere.filePath(QFileInfo(QStringLiteral(PLATFORM_LIBRARY)).fileName())));
        const Run result(program,
            {u"--screenshot"_s, elsewhere.filePath(u"picture.png"_s), files.folderName()},
            {{"LD_LIBRARY_PATH", elsewhere.path()}, {"MOVARA_LOG_DIR", elsewhere.path()}});
        QCOMPARE(result.exitCode, 1);
        for (const QString &said : {elsewhere.filePath(u"movara/"_s), u"libMovaraDicomCodec.so"_s,
                 u"Install Movara anew"_s}) {
            QVERIFY2(result.errors.contains(said), qPrintable(result.errors));
        }
    }

    void screenshotFails()
    {
        DicomFixture files;
        files.addStack(2);
        const QString absent = u"/nonexistent"_s;
        const std::tuple<QString, QString, QString> rows[]
            = {{absent, files.folderName(), u"Nothing can be read from /nonexistent"_s},
                {files.folderName(), absent, u"cannot be written"_s}};
        for (const auto &[folder, target, message] : rows) {
            const QString picture = target % u"/picture.png";
            const Run result(program, {u"--screenshot"_s, picture, folder});
            QCOMPARE(result.exitCode, 1);
            QVERIFY2(result.errors.contains(message), qPrintable(result.errors));
            QVERIFY(!QFile::exists(picture));
        }
    }
};

QTEST_GUILESS_MAIN(tst_Program)
#include "tst_Program.moc"
