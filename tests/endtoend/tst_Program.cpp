#include "framework/application/BuildVersion.h"
#include "tests/platform/dicomio/DicomFixture.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTest>

/// The program as it is called from a shell: arguments, exit codes, what it prints, pictures.
class tst_Program : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void answers_data();
    void answers();
    void withoutDisplay_data();
    void withoutDisplay();
    void screenshot();
    void screenshotFails_data();
    void screenshotFails();
};

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
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), QDir::tempPath());
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(WORKSTATION_PROGRAM), arguments);
    if (!process.waitForFinished()) {
        qFatal("the workstation does not end");
    }
    return {process.exitCode(), process.exitStatus() == QProcess::CrashExit,
        QString::fromUtf8(process.readAllStandardOutput()),
        QString::fromUtf8(process.readAllStandardError())};
}

QStringList words(const char *line)
{
    return QString::fromLatin1(line).split(u' ', Qt::SkipEmptyParts);
}

} // namespace

void tst_Program::answers_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *arguments, int exitCode, const QString &text) {
        QTest::newRow(arguments) << words(arguments) << exitCode << text;
    };
    row("--help", 0, QStringLiteral("--screenshot <file>"));
    row("--version", 0, QString::fromUtf8(movaraBuildVersionTag()));
    row("--layout 9x9", 2, QStringLiteral("Known layouts: 1x1, 2x2, 1+3."));
    row("--size huge", 2, QStringLiteral("like 1600x1000"));
    row("--size 100x100", 2, QStringLiteral("at least 200"));
    row("--benchmark speed", 2, QStringLiteral("Known benchmarks: scroll."));
    row("--colour red", 2, QStringLiteral("colour"));
}

void tst_Program::answers()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, text);
    QProcessEnvironment noDisplay = QProcessEnvironment::systemEnvironment();
    noDisplay.remove(QStringLiteral("DISPLAY"));
    noDisplay.remove(QStringLiteral("QT_QPA_PLATFORM"));
    const Run result = run(arguments, noDisplay); // None of these needs a display.
    QTEST(result.exitCode, "exitCode");
    const QString &said = result.exitCode == 0 ? result.output : result.errors;
    QVERIFY2(said.contains(text), qPrintable(said));
}

void tst_Program::withoutDisplay_data()
{
    QTest::addColumn<QString>("display");
    QTest::addColumn<QString>("platform");
    QTest::addColumn<QString>("reason");
    QTest::newRow("not set") << QString() << QString() << QStringLiteral("DISPLAY is not set");
    QTest::newRow("does not answer") << QStringLiteral(":98765") << QString()
                                     << QStringLiteral("display :98765 cannot be opened");
    QTest::newRow("platform chosen")
        << QString() << QStringLiteral("xcb") << QStringLiteral("DISPLAY is not set");
}

void tst_Program::withoutDisplay()
{
    QFETCH(QString, display);
    QFETCH(QString, platform);
    QFETCH(QString, reason);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        environment.remove(QString::fromLatin1(name));
    }
    if (!display.isEmpty()) {
        environment.insert(QStringLiteral("DISPLAY"), display);
    }
    if (!platform.isEmpty()) {
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), platform);
    }
    const Run result = run({}, environment);
    QVERIFY(!result.hasCrashed);
    QCOMPARE(result.exitCode, 1);
    QVERIFY2(result.errors.contains(reason), qPrintable(result.errors));
    QVERIFY(result.errors.contains(QStringLiteral("scripts/run --screenshot FILE")));
}

void tst_Program::screenshot()
{
    DicomFixture files;
    for (int i = 1; i <= 3; ++i) {
        files.addSlice(i, 5 * i, {{"G0028-1050", "0"}, {"G0028-1051", "10"}});
    }
    const QString picture = QString::fromStdString(files.path("picture.png").string());
    const Run result = run({QStringLiteral("--size"), QStringLiteral("800x600"),
        QStringLiteral("--layout"), QStringLiteral("1x1"), QStringLiteral("--screenshot"), picture,
        QString::fromStdString(files.folder().string())});
    QVERIFY2(result.exitCode == 0, qPrintable(result.errors));
    const QImage image(picture);
    QCOMPARE(image.size(), QSize(800, 600));
    // The images are brighter than their window everywhere: a white middle in a dark window.
    QCOMPARE(image.pixel(540, 250), qRgb(255, 255, 255));
    QVERIFY(qGray(image.pixel(2, 2)) < 60);
}

void tst_Program::screenshotFails_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("picture");
    QTest::addColumn<QString>("message");
    QTest::newRow("nothing to show")
        << QStringLiteral("/nonexistent") << QStringLiteral("picture.png")
        << QStringLiteral("There are no files here");
    QTest::newRow("cannot be written") << QString() << QStringLiteral("/nonexistent/picture.png")
                                       << QStringLiteral("cannot be written");
}

void tst_Program::screenshotFails()
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
    const Run result = run({QStringLiteral("--screenshot"), picture, folder});
    QCOMPARE(result.exitCode, 1);
    QVERIFY2(result.errors.contains(message), qPrintable(result.errors));
    QVERIFY(!QFile::exists(picture));
}

QTEST_GUILESS_MAIN(tst_Program)
#include "tst_Program.moc"
