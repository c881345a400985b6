#include "client/toolbars/ToolBars.h"
#include "framework/tools/ExToolBar.h"
#include "tests/endtoend/WindowFixture.h"
#include "tests/support/Files.h"
#include "tests/support/NextDialog.h"

#include <QFile>
#include <QMainWindow>
#include <QMessageBox>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

/// "Bar: key key", one a bar.
QStringList shownBars(ExMonitorWidget &window)
{
    QStringList bars;
    const auto direct = Qt::FindDirectChildrenOnly;
    for (const ExToolBar *bar : window.mainWindow()->findChildren<ExToolBar *>(QString(), direct)) {
        QString line = bar->objectName() % u':';
        for (const QToolButton *button : bar->findChildren<QToolButton *>(QString(), direct)) {
            if (const QAction *const action = button->defaultAction()) {
                line += u' ' % action->objectName();
            }
        }
        bars += line;
    }
    return bars;
}

/// Makes the workstation; what its message about the tool bars says.
QString toldBy(std::unique_ptr<WindowFixture> &fixture)
{
    QString told;
    const NextDialog dialog([&told](QWidget &box) {
        told = qobject_cast<QMessageBox *>(&box)->text();
        box.close();
    });
    fixture = std::make_unique<WindowFixture>();
    return QTest::qWaitFor([&dialog] { return dialog.hasAppeared(); }) ? told : u"nothing"_s;
}

} // namespace

/// The file of the tool bars, and the bars that are made of it.
class tst_ToolBars : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { WindowFixture::settings(); }

    void cleanup() { QFile::remove(ToolBars::userFile()); }

    void wholeFile()
    {
        const auto result = ToolBarLayout::read(
            "<ToolBars>\n"
            "    <ToolBar Id=\"A\" Label=\"First &amp; last\">\n"
            "        <Tool Id=\"View.Reset\" />\n"
            "        <Spacer Size=\"8\"/><Separator/>\n"
            "        <Popup Id=\"P\" Label=\"More\"><Tool Id=\"X\"/><Tool Id=\"Y\"/></Popup>\n"
            "    </ToolBar>\n"
            "    <ToolBar Id=\"B\" Label=\"Empty\"/>\n"
            "</ToolBars>\n");
        using Item = ToolBarLayout::Item;
        const ToolBarLayout expected{
            {{u"A"_s, u"First & last"_s,
                 {{Item::Tool, u"View.Reset"_s, {}, 0, {}}, {Item::Spacer, {}, {}, 8, {}},
                     {Item::Separator, {}, {}, 0, {}},
                     {Item::Popup, u"P"_s, u"More"_s, 0, {u"X"_s, u"Y"_s}}}},
                {u"B"_s, u"Empty"_s, {}}},
            {{u"View.Reset"_s, 3}, {u"X"_s, 5}, {u"Y"_s, 5}}};
        QVERIFY(std::holds_alternative<ToolBarLayout>(result));
        QVERIFY(std::get<ToolBarLayout>(result) == expected);
    }

    void badFiles()
    {
        const auto inBars = [](const QByteArray &bars) -> QByteArray {
            return "<ToolBars>\n" + bars + "\n</ToolBars>";
        };
        const auto inBar = [&](const QByteArray &items) {
            return inBars("<ToolBar Id='A' Label='A'>\n" + items + "</ToolBar>");
        };
        const std::tuple<QByteArray, int, const char *> rows[]
            = {{inBar("<Tol Id='X'/>\n"), 3, "<Tol> is not"},
                {inBar("\n<Tool/>\n"), 4, "<Tool> needs the attribute \"Id\""},
                {inBars("<ToolBar Id='' Label='A'/>"), 2, "<ToolBar> needs the attribute \"Id\""},
                {inBars("<ToolBar Id='A'/>"), 2, "needs the attribute \"Label\""},
                {inBars("<ToolBar Id='A' Label='A' Icon='x'/>"), 2, "has no attribute \"Icon\""},
                {inBar("<Spacer Size='wide'/>"), 3, "\"wide\" is no size"},
                {inBar("<Spacer Size='-1'/>"), 3, "\"-1\" is no size"},
                {inBar("<Tool Id='X'>\n<Tool Id='Y'/></Tool>"), 4, "<Tool> is not"},
                {inBar("<Popup Id='P' Label='P'>\n<Popup Id='Q' Label='Q'/></Popup>"), 4,
                    "<Popup> is not"},
                {inBars("<ToolBar Id='A' Label='A'/>\n<ToolBar Id='A' Label='B'/>"), 3,
                    "two tool bars"},
                {inBars("<ToolBar Id='A' Label='A'>\n"), 4, ""}, {"", 1, ""},
                {"[ToolBars]\nA=1\n", 1, ""}, {"<html/>", 1, "<html> is not"},
                {"<ToolBars/>\n<ToolBars/>", 2, ""}};
        for (const auto &[content, line, text] : rows) {
            const auto result = ToolBarLayout::read(content);
            QVERIFY2(std::holds_alternative<ToolBarLayout::Error>(result), content.constData());
            const auto &error = std::get<ToolBarLayout::Error>(result);
            QVERIFY2(error.line == line && error.text.contains(QLatin1String(text))
                    && !error.text.isEmpty(),
                qPrintable(QString::number(error.line) % u": " % error.text));
        }
    }

    void barsOfTheUser()
    {
        writeFile(ToolBars::userFile(),
            "<ToolBars><ToolBar Id='Mine' Label='Mine'>"
            "<Tool Id='View.Invert'/><Tool Id='Edit.Settings'/><Popup Id='P' Label='Planes'>"
            "<Tool Id='Plane.Axial'/><Tool Id='Plane.Coronal'/></Popup></ToolBar>"
            "<ToolBar Id='Nothing' Label='Nothing'><Spacer Size='4'/></ToolBar></ToolBars>");
        WindowFixture fixture;
        QStringList log = shownBars(fixture.window());
        fixture.show(PhantomSeries::make(PhantomSeries::Grid::Axial));
        // The button stands for the plane chosen last.
        tool("Plane.Coronal").setActive(true);
        log += shownBars(fixture.window());
        QCOMPARE(fixture.slice(0).plane(), PlaneKind::Coronal);
        // Nor does it matter how it was chosen.
        fixture.slice(0).setPlane(PlaneKind::Axial);
        log += shownBars(fixture.window());
        const QString shown = u"Mine: View.Invert Edit.Settings Plane."_s;
        QCOMPARE(log, QStringList({shown + u"Axial", shown + u"Coronal", shown + u"Axial"}));
    }

    void unknownAndDeniedTools()
    {
        writeFile(ToolBars::userFile(),
            "<ToolBars><ToolBar Id='Mine' Label='Mine'>\n"
            "<Separator/><Tool Id='View.Reset'/><Separator/><Tool Id='Phase.Next'/>\n"
            "<Tool Id='No.Such.Tool'/><Separator/><Tool Id='View.Flip'/><Tool Id='View.Invert'/>\n"
            "<Separator/><Tool Id='Phase.Previous'/></ToolBar></ToolBars>");
        WindowFixture::settings().setPolicy(R"({"deniedTools": ["Phase.*"]})");
        std::unique_ptr<WindowFixture> fixture;
        const QString told = toldBy(fixture);
        WindowFixture::settings().setPolicy("{}");
        const QString file = ToolBars::userFile();
        QVERIFY2(told.endsWith(file % u", line 3: There is no tool \"No.Such.Tool\".\n" % file
                     % u", line 3: There is no tool \"View.Flip\"."),
            qPrintable(told));
        QStringList actions;
        for (const QAction *action : fixture->window().findChild<ExToolBar *>()->actions()) {
            actions += action->isSeparator() ? QStringLiteral("|") : action->objectName();
        }
        QCOMPARE(actions.join(u' '), QStringLiteral("View.Reset | View.Invert"));
    }

    void damagedFileOfTheUser()
    {
        const QByteArray damaged = "<ToolBars>\n<ToolBar Id='Mine'/>\n</ToolBars>";
        writeFile(ToolBars::userFile(), damaged);
        std::unique_ptr<WindowFixture> fixture;
        const QString told = toldBy(fixture);
        QVERIFY2(
            told.contains(ToolBars::userFile() % u", line 2: <ToolBar> needs"), qPrintable(told));
        QVERIFY(shownBars(fixture->window()).constFirst().startsWith(u"View: File.OpenFolder"_s));
        QCOMPARE(readFile(ToolBars::userFile()), damaged);
    }

    void madeForTheUser()
    {
        QCOMPARE(ToolBars::createUserFile(), QString());
        QVERIFY(std::holds_alternative<ToolBarLayout>(
            ToolBarLayout::read(readFile(ToolBars::userFile()))));
        writeFile(ToolBars::userFile(), "<ToolBars/>"); // may be changed, and is left alone then
        QCOMPARE(ToolBars::createUserFile(), QString());
        QCOMPARE(readFile(ToolBars::userFile()), QByteArray("<ToolBars/>"));
        QFile::remove(ToolBars::userFile());
    }
};

QTEST_MAIN(tst_ToolBars)
#include "tst_ToolBars.moc"
