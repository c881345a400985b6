#include "platform/display/ExDisplayConfig.h"
#include "tests/support/Rows.h"

#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// Displays as lines "name x,y widthxheight scale", the primary one starred.
QString describe(const std::vector<ExDisplayInfo> &displays)
{
    QStringList lines;
    for (const ExDisplayInfo &d : displays) {
        lines.append(u"%1%2 %3,%4 %5x%6 %7"_s.arg(d.primary ? u"*"_s : QString(), d.name)
                         .arg(d.x)
                         .arg(d.y)
                         .arg(d.width)
                         .arg(d.height)
                         .arg(d.scale));
    }
    return lines.join(u'\n');
}

QJsonObject screenOf(const QString &line)
{
    // "name x y width height [scale]"
    const QStringList parts = line.split(u' ');
    const auto number = [&](int i) { return parts.at(i).toInt(); };
    return {{u"name"_s, parts.at(0)}, {u"x"_s, number(1)}, {u"y"_s, number(2)},
        {u"width"_s, number(3)}, {u"height"_s, number(4)}, {u"logicalDpi"_s, 96},
        {u"logicalBaseDpi"_s, 96}, {u"dpr"_s, parts.size() > 5 ? parts.at(5).toDouble() : 1.0}};
}

} // namespace

class tst_ExDisplayConfig : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void orderByPosition_data()
    {
        const Rows<QString> row("screens"); // Separated by semicolons, in the expected order.
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

    void orderByPosition()
    {
        QFETCH(const QString, screens);
        const QStringList lines = screens.split(u';');
        for (qsizetype primary = 0; primary < lines.size(); ++primary) {
            QStringList given;
            QStringList expected;
            for (qsizetype i = 0; i < lines.size(); ++i) {
                // The first one by name is the primary one.
                const QString line = (i == primary ? u"0"_s : QString()) + lines[i];
                const QStringList parts = line.split(u' ');
                given.prepend(line);
                expected.append(u"%1%2 %3,%4 %5x%6 1"_s.arg(i == primary ? u"*"_s : QString(),
                    parts[0], parts[1], parts[2], parts[3], parts[4]));
            }
            QCOMPARE(displaysSeenOn(given), expected.join(u'\n'));
        }
    }

    void pixelsOfScaledDisplays()
    {
        QCOMPARE(displaysSeenOn({u"A 0 0 1920 1080 2"_s, u"B 1920 0 1920 1080 1.5"_s}),
            u"*A 0,0 1920x1080 2\nB 1920,0 1920x1080 1.5"_s);
        // The device's own pixels do not count.
        QCOMPARE(displaysSeenOn({u"A 0 0 3840 2160"_s}, u"2"_s), u"*A 0,0 1920x1080 2"_s);
    }

private:
    /// What a process on these screens says about them.
    QString displaysSeenOn(const QStringList &screens, const QString &scaleFactor = {})
    {
        QJsonArray list;
        for (const QString &screen : screens) {
            list.append(screenOf(screen));
        }
        QFile file(m_folder.filePath(u"screens.json"_s));
        if (!file.open(QIODevice::WriteOnly)) {
            return file.errorString();
        }
        file.write(QJsonDocument(QJsonObject{{u"screens"_s, list}}).toJson());
        file.close();
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen:configfile="_s + file.fileName());
        if (!scaleFactor.isEmpty()) {
            environment.insert(u"QT_SCALE_FACTOR"_s, scaleFactor);
        }
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(QCoreApplication::applicationFilePath(), {u"--displays"_s});
        return process.waitForFinished() ? QString::fromUtf8(process.readAllStandardOutput())
                                         : process.errorString();
    }

    QTemporaryDir m_folder;
};

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
