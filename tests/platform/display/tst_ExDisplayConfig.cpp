#include "platform/display/ExDisplayConfig.h"

#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <QTest>

namespace {

/// Displays as lines "name x,y widthxheight scale", the primary one starred.
QString describe(const std::vector<ExDisplayInfo> &displays)
{
    QStringList lines;
    for (const ExDisplayInfo &d : displays) {
        lines.append(QStringLiteral("%1%2 %3,%4 %5x%6 %7")
                         .arg(d.primary ? QStringLiteral("*") : QString(), d.name)
                         .arg(d.x)
                         .arg(d.y)
                         .arg(d.width)
                         .arg(d.height)
                         .arg(d.scale));
    }
    return lines.join(QLatin1Char('\n'));
}

QJsonObject screenOf(const QString &line)
{
    // "name x y width height [scale]"
    const QStringList parts = line.split(QLatin1Char(' '));
    const auto number = [&](int i) { return parts.at(i).toInt(); };
    return {{QStringLiteral("name"), parts.at(0)}, {QStringLiteral("x"), number(1)},
        {QStringLiteral("y"), number(2)}, {QStringLiteral("width"), number(3)},
        {QStringLiteral("height"), number(4)}, {QStringLiteral("logicalDpi"), 96},
        {QStringLiteral("logicalBaseDpi"), 96},
        {QStringLiteral("dpr"), parts.size() > 5 ? parts.at(5).toDouble() : 1.0}};
}

} // namespace

class tst_ExDisplayConfig : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void orderByPosition_data();
    void orderByPosition();
    void pixelsOfScaledDisplays();
    void withoutApplication();

private:
    /// What a process on these screens says about them.
    QString displaysSeenOn(const QStringList &screens, const QString &scaleFactor = QString());

    QTemporaryDir m_folder;
};

QString tst_ExDisplayConfig::displaysSeenOn(const QStringList &screens, const QString &scaleFactor)
{
    QJsonArray list;
    for (const QString &screen : screens) {
        list.append(screenOf(screen));
    }
    QFile file(m_folder.filePath(QStringLiteral("screens.json")));
    if (!file.open(QIODevice::WriteOnly)) {
        return file.errorString();
    }
    file.write(QJsonDocument(QJsonObject{{QStringLiteral("screens"), list}}).toJson());
    file.close();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"),
        QStringLiteral("offscreen:configfile=") + file.fileName());
    if (!scaleFactor.isEmpty()) {
        environment.insert(QStringLiteral("QT_SCALE_FACTOR"), scaleFactor);
    }
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--displays")});
    return process.waitForFinished() ? QString::fromUtf8(process.readAllStandardOutput())
                                     : process.errorString();
}

void tst_ExDisplayConfig::orderByPosition_data()
{
    QTest::addColumn<QString>("screens"); // separated by semicolons, in the expected order
    const auto row = [](const char *name, const char *screens) {
        QTest::newRow(name) << QString::fromLatin1(screens);
    };
    row("one", "A 0 0 1920 1080");
    row("side by side", "A 0 0 1920 1080;B 1920 0 1920 1080");
    row("left of the origin", "B -1920 0 1920 1080;A 0 0 1920 1080");
    row("three in a row, not aligned",
        "C -1200 -300 1200 1920;A 0 0 1920 1080;B 1920 -500 1600 1200");
    row("one above two", "C 900 -1080 1920 1080;A 0 0 1920 1080;B 1920 0 1920 1080");
    row("one above the other", "B 0 -1200 1600 1200;A 0 0 1920 1080");
    row("small one at the foot of a tall one", "T 0 0 1200 1920;S 1200 1200 1280 720");
    row("stairs", "A 0 0 1000 1000;B 1000 400 1000 1000;C 2000 800 1000 1000");
}

void tst_ExDisplayConfig::orderByPosition()
{
    QFETCH(const QString, screens);
    const QStringList lines = screens.split(QLatin1Char(';'));
    for (qsizetype primary = 0; primary < lines.size(); ++primary) {
        QStringList given;
        QStringList expected;
        for (qsizetype i = 0; i < lines.size(); ++i) {
            // The first one by name is the primary one.
            const QString line = (i == primary ? QStringLiteral("0") : QString()) + lines[i];
            const QStringList parts = line.split(QLatin1Char(' '));
            given.prepend(line);
            expected.append(QStringLiteral("%1%2 %3,%4 %5x%6 1")
                                .arg(i == primary ? QStringLiteral("*") : QString(), parts[0],
                                    parts[1], parts[2], parts[3], parts[4]));
        }
        QCOMPARE(displaysSeenOn(given), expected.join(QLatin1Char('\n')));
    }
}

void tst_ExDisplayConfig::pixelsOfScaledDisplays()
{
    QCOMPARE(displaysSeenOn(
                 {QStringLiteral("A 0 0 1920 1080 2"), QStringLiteral("B 1920 0 1920 1080 1.5")}),
        QStringLiteral("*A 0,0 1920x1080 2\nB 1920,0 1920x1080 1.5"));
    // The device's own pixels do not count.
    QCOMPARE(displaysSeenOn({QStringLiteral("A 0 0 3840 2160")}, QStringLiteral("2")),
        QStringLiteral("*A 0,0 1920x1080 2"));
}

void tst_ExDisplayConfig::withoutApplication()
{
    std::vector<ExDisplayInfo> displays(3);
    ExDisplayConfig::getDisplayInfo(displays);
    QVERIFY(displays.empty());
}

int main(int argc, char *argv[])
{
    if (argc == 2 && QByteArray(argv[1]) == "--displays") {
        const QGuiApplication application(argc, argv);
        std::vector<ExDisplayInfo> displays;
        ExDisplayConfig::getDisplayInfo(displays);
        std::fputs(qUtf8Printable(describe(displays)), stdout);
        return 0;
    }
    const QCoreApplication application(argc, argv);
    tst_ExDisplayConfig test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_ExDisplayConfig.moc"
