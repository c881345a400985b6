#include "platform/display/ExDisplayConfig.h"
#include "tests/support/Files.h"
#include "tests/support/Process.h"

#include <QGuiApplication>
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

} // namespace

class tst_ExDisplayConfig : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void orderByPosition()
    {
        // Screens in the expected order: one; side by side; left of the origin; three that are not
        // aligned; one above two; one above the other; a small one at the foot of a tall one;
        // stairs; half of it beside the other, and less
        const QString rows[] = {u"A 0 0 1920 1080"_s, u"A 0 0 1920 1080;B 1920 0 1920 1080"_s,
            u"B -1920 0 1920 1080;A 0 0 1920 1080"_s,
            u"C -1200 -300 1200 1920;A 0 0 1920 1080;B 1920 -500 1600 1200"_s,
            u"C 900 -1080 1920 1080;A 0 0 1920 1080;B 1920 0 1920 1080"_s,
            u"B 0 -1200 1600 1200;A 0 0 1920 1080"_s, u"T 0 0 1200 1920;S 1200 1200 1280 720"_s,
            u"A 0 0 1000 1000;B 1000 400 1000 1000;C 2000 800 1000 1000"_s,
            u"B -1000 500 1000 1000;A 0 0 1000 1000"_s, u"A 0 0 1000 1000;B -1000 501 1000 1000"_s};
        for (const QString &row : rows) {
            const QStringList screens = row.split(u';');
            for (qsizetype primary = 0; primary < screens.size(); ++primary) {
                QStringList given;
                QStringList expected;
                for (qsizetype i = 0; i < screens.size(); ++i) {
                    // The first one by name is the primary one.
                    const QString screen = (i == primary ? u"0"_s : QString()) + screens[i];
                    const QStringList parts = screen.split(u' ');
                    given.prepend(screen + u" 1");
                    expected.append(u"%1%2 %3,%4 %5x%6 1"_s.arg(i == primary ? u"*"_s : QString(),
                        parts[0], parts[1], parts[2], parts[3], parts[4]));
                }
                QCOMPARE(displaysSeenOn(given), expected.join(u'\n'));
            }
        }
    }

    void pixelsOfScaledDisplays()
    {
        QCOMPARE(displaysSeenOn({u"A 0 0 1920 1080 2"_s, u"B 1920 0 1920 1080 1.5"_s}),
            u"*A 0,0 1920x1080 2\nB 1920,0 1920x1080 1.5"_s);
        // The device's own pixels do not count.
        QCOMPARE(displaysSeenOn({u"A 0 0 3840 2160 1"_s}, u"2"_s), u"*A 0,0 1920x1080 2"_s);
    }

private:
    /// What a process on these screens says about them.
    QString displaysSeenOn(const QStringList &screens, const QString &scaleFactor = u"1"_s)
    {
        QStringList list;
        for (const QString &screen : screens) { // "name x y width height scale"
            const QStringList parts = screen.split(u' ');
            list += QStringLiteral(R"({"name":"%1","x":%2,"y":%3,"width":%4,"height":%5,"dpr":%6,)"
                                   R"("logicalDpi":96,"logicalBaseDpi":96})")
                        .arg(parts[0], parts[1], parts[2], parts[3], parts[4], parts[5]);
        }
        const QString file = m_folder.filePath(u"screens.json"_s);
        writeFile(file, R"({"screens":[)" + list.join(u',').toUtf8() + "]}");
        return answerTo("--displays",
            {{"QT_QPA_PLATFORM", u"offscreen:configfile="_s + file},
                {"QT_SCALE_FACTOR", scaleFactor}});
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
