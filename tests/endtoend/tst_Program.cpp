#include "framework/application/BuildVersion.h"
#include "tests/platform/dicomio/DicomFixture.h"
#include "tests/support/Files.h"
#include "tests/support/Rows.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

struct Run
{
    int exitCode = -1;
    bool hasCrashed = false;
    QString output;
    QString errors;
};

Run run(const QStringList &arguments,
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment())
{
    QProcess process;
    environment.insert(u"XDG_RUNTIME_DIR"_s, QDir::tempPath());
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(WORKSTATION_PROGRAM), arguments);
    if (!process.waitForFinished()) {
        qFatal("the workstation does not end");
    }
    return {process.exitCode(), process.exitStatus() == QProcess::CrashExit,
        QString::fromUtf8(process.readAllStandardOutput()),
        QString::fromUtf8(process.readAllStandardError())};
}

/// @return the new display's name; empty when there is no such server here.
QString startDisplayServer(QProcess &server)
{
    server.start(u"Xvfb"_s,
        {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, u"1280x1024x24"_s, u"-noreset"_s});
    const bool runs = server.waitForStarted() && server.waitForReadyRead(30000);
    return runs ? u':' + QString::fromLatin1(server.readLine()).trimmed() : QString();
}

QStringList words(const char *line)
{
    return QString::fromLatin1(line).split(u' ', Qt::SkipEmptyParts);
}

} // namespace

/// The program as it is called from a shell: arguments, exit codes, what it prints, pictures.
class tst_Program : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void answers_data()
    {
        const Rows<int, QString> row("exitCode", "text"); // The name is what is typed.
        row("--help", 0, "--screenshot <file>");
        row("--version", 0, QString::fromUtf8(movaraBuildVersionTag()));
        row("--layout 9x9", 2, "Known layouts: 1x1, 2x2, 1+3.");
        row("--size huge", 2, "like 1600x1000");
        row("--size 100x100", 2, "at least 200");
        row("--benchmark speed", 2, "Known benchmarks: scroll, start.");
        row("--colour red", 2, "colour");
        row("--session a b", 2, "give it or folders");
    }

    void answers()
    {
        QFETCH(QString, text);
        QProcessEnvironment noDisplay = QProcessEnvironment::systemEnvironment();
        noDisplay.remove(u"DISPLAY"_s);
        noDisplay.remove(u"QT_QPA_PLATFORM"_s);
        const Run result
            = run(words(QTest::currentDataTag()), noDisplay); // None of these needs a display.
        QTEST(result.exitCode, "exitCode");
        const QString &said = result.exitCode == 0 ? result.output : result.errors;
        QVERIFY2(said.contains(text), qPrintable(said));
    }

    void withoutDisplay_data()
    {
        const Rows<QString, QString, QString> row("display", "platform", "reason");
        row("not set", "", "", "DISPLAY is not set");
        row("does not answer", ":98765", "", "display :98765 cannot be opened");
        row("platform chosen", "", "xcb", "DISPLAY is not set");
    }

    void withoutDisplay()
    {
        QFETCH(QString, display);
        QFETCH(QString, platform);
        QFETCH(QString, reason);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
            environment.remove(QString::fromLatin1(name));
        }
        if (!display.isEmpty()) {
            environment.insert(u"DISPLAY"_s, display);
        }
        if (!platform.isEmpty()) {
            environment.insert(u"QT_QPA_PLATFORM"_s, platform);
        }
        const Run result = run({}, environment);
        QVERIFY(!result.hasCrashed);
        QCOMPARE(result.exitCode, 1);
        QVERIFY2(result.errors.contains(reason), qPrintable(result.errors));
        QVERIFY(result.errors.contains(u"scripts/run --screenshot FILE"_s));
    }

    void screenshot()
    {
        DicomFixture files;
        for (int i = 1; i <= 3; ++i) {
            files.addSlice(i, 5 * i, {{"G0028-1050", "0"}, {"G0028-1051", "10"}});
        }
        const QString picture = QString::fromStdString(files.path("picture.png").string());
        const Run result = run({u"--size"_s, u"800x600"_s, u"--layout"_s, u"1x1"_s,
            u"--screenshot"_s, picture, QString::fromStdString(files.folder().string())});
        QVERIFY2(result.exitCode == 0, qPrintable(result.errors));
        const QImage image(picture);
        QCOMPARE(image.size(), QSize(800, 600));
        // The images are brighter than their window everywhere: a white middle in a dark window.
        QCOMPARE(image.pixel(540, 330), qRgb(255, 255, 255));
        QVERIFY(qGray(image.pixel(2, 2)) < 60);
    }

    void afterACrash_data()
    {
        const Rows<bool> row("withDisplayServer");
        row("killed", false);
        row("display server gone", true); // The toolkit then calls exit() from within the loop.
    }

    /// What was open is offered at the next start; and that opens as a session.
    void afterACrash()
    {
        QFETCH(bool, withDisplayServer);
        DicomFixture files;
        files.addSlice(1, 0, {{"G0028-1050", "0"}, {"G0028-1051", "10"}});
        files.addSlice(2, 5, {{"G0028-1050", "0"}, {"G0028-1051", "10"}});
        const QTemporaryDir home;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_RUNTIME_DIR"_s, QDir::tempPath());
        environment.insert(u"XDG_DATA_HOME"_s, home.path());
        environment.insert(u"MOVARA_SETTINGS_FILE"_s, home.filePath(u"settings.ini"_s));
        environment.insert(u"MOVARA_LOG_DIR"_s, home.path());
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
        QProcessEnvironment firstEnvironment = environment;
        if (withDisplayServer) {
            const QString display = startDisplayServer(server);
            if (display.isEmpty()) {
                QSKIP("needs Xvfb");
            }
            firstEnvironment.insert(u"DISPLAY"_s, display);
            firstEnvironment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
        }
        QProcess first;
        first.setProcessEnvironment(firstEnvironment);
        first.start(
            QStringLiteral(WORKSTATION_PROGRAM), {QString::fromStdString(files.folder().string())});
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(left), 30000);
        QVERIFY(!log().contains("not closed properly"));
        withDisplayServer ? server.kill() : first.kill();
        QVERIFY(first.waitForFinished());
        QCOMPARE(
            first.exitStatus(), withDisplayServer ? QProcess::NormalExit : QProcess::CrashExit);
        QVERIFY(QFile::exists(left));
        server.waitForFinished();

        QProcess second;
        second.setProcessEnvironment(environment);
        second.start(QStringLiteral(WORKSTATION_PROGRAM), {});
        QTRY_VERIFY_WITH_TIMEOUT(log().contains("not closed properly"), 30000);
        second.kill();
        QVERIFY(second.waitForFinished());
        QVERIFY(QFile::exists(left)); // Not answered: still there.

        const QString picture = home.filePath(u"picture.png"_s);
        const Run result
            = run({u"--size"_s, u"800x600"_s, u"--screenshot"_s, picture, u"--session"_s, left},
                environment);
        QVERIFY2(result.exitCode == 0, qPrintable(result.errors));
        QCOMPARE(QImage(picture).size(), QSize(800, 600));
        const Run absent
            = run({u"--screenshot"_s, picture, u"--session"_s, u"absent"_s}, environment);
        QCOMPARE(absent.exitCode, 1);
        QVERIFY2(absent.errors.contains(u"cannot be read"_s), qPrintable(absent.errors));
    }

    /// Where a module is missing, as after half an installation, it is said what, and what to do.
    void withoutModules()
    {
        DicomFixture files;
        files.addSlice(1, 0);
        files.addSlice(2, 5);
        // Modules are looked for beside the library, wherever that was found.
        const QTemporaryDir elsewhere;
        QVERIFY(QFile::link(QStringLiteral(PLATFORM_LIBRARY),
            elsewhere.filePath(QFileInfo(QStringLiteral(PLATFORM_LIBRARY)).fileName())));
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"LD_LIBRARY_PATH"_s, elsewhere.path());
        environment.insert(u"MOVARA_LOG_DIR"_s, elsewhere.path());
        const Run result = run({u"--screenshot"_s, elsewhere.filePath(u"picture.png"_s),
                                   QString::fromStdString(files.folder().string())},
            environment);
        QCOMPARE(result.exitCode, 1);
        for (const QString &said : {elsewhere.filePath(u"movara/"_s), u"libMovaraDicomCodec.so"_s,
                 u"Install Movara anew"_s}) {
            QVERIFY2(result.errors.contains(said), qPrintable(result.errors));
        }
    }

    void screenshotFails_data()
    {
        const Rows<QString, QString, QString> row("folder", "picture", "message");
        row("nothing to show", "/nonexistent", "picture.png",
            "Nothing can be read from /nonexistent");
        row("cannot be written", "", "/nonexistent/picture.png", "cannot be written");
    }

    void screenshotFails()
    {
        QFETCH(QString, folder);
        QFETCH(QString, picture);
        QFETCH(QString, message);
        DicomFixture files;
        files.addSlice(1, 0);
        files.addSlice(2, 5);
        if (folder.isEmpty()) {
            folder = QString::fromStdString(files.folder().string());
        }
        if (!picture.startsWith(u'/')) {
            picture = QString::fromStdString(files.path(picture.toStdString()).string());
        }
        const Run result = run({u"--screenshot"_s, picture, folder});
        QCOMPARE(result.exitCode, 1);
        QVERIFY2(result.errors.contains(message), qPrintable(result.errors));
        QVERIFY(!QFile::exists(picture));
    }
};

QTEST_GUILESS_MAIN(tst_Program)
#include "tst_Program.moc"
