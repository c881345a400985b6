#include "framework/tools/ExToolBar.h"
#include "tests/endtoend/WindowFixture.h"

#include <QClipboard>
#include <QLabel>
#include <QTest>

#include <cmath>

using namespace Qt::StringLiterals;

using Grid = PhantomSeries::Grid;

namespace {

void activate(const char *key)
{
    tool(key).setActive(true);
}

QStringList activeTools()
{
    QStringList keys;
    for (const char *key : {"Tool.WindowLevel", "Tool.Scroll", "Tool.Zoom", "Tool.Pan",
             "Tool.Rotate", "Measure.Distance", "Measure.Angle", "Measure.Region"}) {
        if (tool(key).isActive()) {
            keys += QString::fromLatin1(key);
        }
    }
    return keys;
}

} // namespace

/// The tools that the user chooses for the left button, and what is measured with them.
class tst_MouseTools : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_fixture = std::make_unique<WindowFixture>();
        m_fixture->show(PhantomSeries::make(Grid::Axial));
    }

    void cleanup()
    {
        activate("Measure.Ellipse");
        activate("Tool.WindowLevel");
        m_fixture.reset();
    }

    void oneToolIsOn()
    {
        QCOMPARE(activeTools(), QStringList{u"Tool.WindowLevel"_s});
        for (const char *key : {"Tool.Scroll", "Tool.Rotate", "Measure.Angle", "Tool.Zoom"}) {
            activate(key);
            QCOMPARE(activeTools(), QStringList{QString::fromLatin1(key)});
        }
        QVERIFY(
            slice(0).widget()->overlay().corners[OverlayContent::BottomRight].contains(u"Zoom"_s));
        // Switched off, the standard one takes over, and that one stays.
        for (const char *key : {"Tool.Zoom", "Tool.WindowLevel"}) {
            tool(key).setActive(false);
            QCOMPARE(activeTools(), QStringList{u"Tool.WindowLevel"_s});
        }
        // New viewers have it as well.
        m_fixture->session().setLayoutByName(u"1+3"_s);
        m_fixture->settle();
        m_fixture->drag(slice(0), Qt::LeftButton, {60, 0});
        QVERIFY(slice(0).window().width > 2000);
    }

    void otherButtonsStay()
    {
        activate("Measure.Distance");
        QCOMPARE(changedBy(Qt::RightButton), u"zoom"_s);
        QCOMPARE(changedBy(Qt::MiddleButton), u"center"_s);
        const int index = slice(0).sliceIndex();
        m_fixture->wheel(slice(0), -2);
        QCOMPARE(slice(0).sliceIndex(), index + 2);
        QCOMPARE(changedBy(Qt::LeftButton, Qt::ControlModifier), u"plane"_s);
        QVERIFY(list().all().empty());
    }

    void toolsDrag()
    {
        const std::pair<const char *, QString> rows[]
            = {{"Tool.WindowLevel", u"window"_s}, {"Tool.Scroll", u"slice"_s},
                {"Tool.Zoom", u"zoom"_s}, {"Tool.Pan", u"center"_s}, {"Tool.Rotate", u"plane"_s}};
        for (const auto &[key, changed] : rows) {
            activate(key);
            QCOMPARE(changedBy(Qt::LeftButton), changed);
        }
    }

    void distance()
    {
        activate("Measure.Distance");
        drag({100, 100}, {220, 190}); // 150 pixels
        QCOMPARE(list().all().size(), 1U);
        QVERIFY(isNear(MeasurementGeometry::distance(list().all()[0]), mm(150)));
        QCOMPARE(list().picked(), list().all()[0].id);
        click({100, 300}); // The same by clicks; the end follows the pointer.
        move({160, 300});
        QCOMPARE(result(1), QString(QString::number(mm(60), 'f', 1) % u" mm"));
        QVERIFY(!list().all()[1].isComplete);
        click({200, 300});
        QVERIFY(list().all()[1].isComplete);
        QVERIFY(isNear(MeasurementGeometry::distance(list().all()[1]), mm(100)));
        drag({300, 50}, {302, 52}); // a slip
        move({400, 300});
        pressKey(Qt::Key_Escape);
        QCOMPARE(list().all().size(), 2U);
        QCOMPARE(slice(0).window().width, 2000.0);
    }

    void handleAndShapeAreDragged()
    {
        activate("Measure.Distance");
        drag({100, 100}, {200, 100});
        activate("Measure.Angle"); // Any of the tools picks any shape.
        drag({200, 102}, {200, 202});
        QCOMPARE(list().all().size(), 1U);
        QVERIFY(isNear(MeasurementGeometry::distance(list().all()[0]), mm(100 * std::sqrt(2.0))));
        const McVec3d end = list().all()[0].points[1];
        drag({150, 150}, {170, 150});
        QVERIFY(isNear((list().all()[0].points[1] - end).length(), mm(20)));
        click({40, 200}); // Beside it: nothing is picked, and a shape begun
        pressKey(Qt::Key_Escape);
        QCOMPARE(list().picked(), 0);
        pressKey(Qt::Key_Delete);
        QCOMPARE(list().all().size(), 1U);
        click({170, 150});
        m_fixture->wheel(slice(0), 1);
        pressKey(Qt::Key_Delete); // It is not seen here.
        QCOMPARE(list().all().size(), 1U);
        m_fixture->wheel(slice(0), -1);
        pressKey(Qt::Key_Delete);
        QVERIFY(list().all().empty());
    }

    void escapeGivesUp()
    {
        activate("Measure.Distance");
        drag({100, 100}, {200, 100});
        const Measurement before = list().all()[0];
        move({150, 100});
        press({150, 100});
        move({150, 160});
        QVERIFY(!(list().all()[0] == before));
        pressKey(Qt::Key_Escape);
        QVERIFY(list().all()[0] == before);
        release({150, 160});
        QVERIFY(list().all()[0] == before);
        click({300, 300});
        QCOMPARE(list().all().size(), 2U);
        m_fixture->wheel(slice(0), 3); // What was begun on another slice
        move({200, 200});
        QCOMPARE(list().all().size(), 1U);
        click({300, 300});
        activate("Tool.Pan"); // or with another tool is given up.
        QCOMPARE(list().all().size(), 1U);
    }

    void cornersAreTakenBack()
    {
        activate("Measure.Region");
        activate("Measure.Polygon");
        QStringList numCorners;
        const auto note = [&] {
            const Measurement *const draft = list().draft();
            numCorners += draft == nullptr ? u"-"_s : QString::number(draft->points.size() - 1);
        };
        click({60, 60});
        click({140, 60});
        pressKey(Qt::Key_Return); // Two corners are no polygon yet.
        note();
        for (const QPoint &corner : {QPoint(140, 160), QPoint(60, 220)}) {
            click(corner);
            note();
            pressKey(Qt::Key_Backspace);
            note();
        }
        for (int i = 0; i < 2; ++i) {
            pressKey(Qt::Key_Backspace);
            note();
        }
        QCOMPARE(numCorners.join(u' '), u"2 3 2 3 2 1 -"_s);
        QVERIFY(list().all().empty());
    }

    void undone()
    {
        ExTool &undo = tool("Edit.Undo");
        const auto pressUndo = [this] {
            QCoreApplication::processEvents(); // The tool becomes enabled.
            QTest::keyClick(m_fixture->window().windowHandle(), Qt::Key_Z, Qt::ControlModifier);
        };
        activate("Measure.Distance");
        drag({100, 100}, {200, 100});
        drag({100, 200}, {200, 200});
        QVERIFY(!undo.isEnabled(&slice(0)));
        const std::vector<Measurement> drawn = list().all();
        drag({150, 100}, {150, 140});
        const std::vector<Measurement> dragged = list().all();
        QVERIFY(dragged != drawn);
        pressKey(Qt::Key_Delete);
        QCOMPARE(list().all().size(), 1U);
        activate("Measure.DeleteAll");
        QVERIFY(list().all().empty());
        pressUndo();
        pressUndo();
        QVERIFY(list().all() == dragged); // In their order
        press({150, 200});
        move({150, 260});
        QVERIFY(!undo.isEnabled(&slice(0))); // while one is dragged
        pressKey(Qt::Key_Escape);
        release({150, 260});
        pressUndo();
        QVERIFY(list().all() == drawn);
        QVERIFY(!undo.isEnabled(&slice(0)));
    }

    void toolIsLeft()
    {
        const ExTool &erase = tool("Measure.Delete");
        activate("Measure.Region");
        drag({60, 60}, {160, 160});
        QVERIFY(erase.isEnabled(&slice(0)));
        QVERIFY(!erase.isEnabled(&slice(1))); // It is not seen there.
        activate("Tool.WindowLevel");
        QCOMPARE(list().picked(), 0);
        QVERIFY(!shape(0).isPicked);
        QVERIFY(!erase.isEnabled(&slice(0)));
        const ExTool &region = tool("Measure.Region");
        QVERIFY(region.isEnabled(&slice(0)));
        slice(0).setSeries({});
        QVERIFY(!region.isEnabled(&slice(0)) && !region.isEnabled(nullptr));
    }

    void clickThatActivatesDoesNotDraw()
    {
        activate("Measure.Distance");
        m_fixture->drag(slice(1), Qt::LeftButton, {60, 0});
        QVERIFY(list().all().empty());
        QCoreApplication::processEvents(); // The press is over when the viewer is painted anew.
        m_fixture->drag(slice(1), Qt::LeftButton, {60, 0});
        QCOMPARE(list().all().size(), 1U);
    }

    void badgeBelongsToNoTool()
    {
        m_fixture->clickBadge(slice(1));
        m_fixture->drag(slice(1), Qt::LeftButton, {0, 60}, Qt::ControlModifier);
        QCOMPARE(slice(1).plane(), PlaneKind::Oblique); // not dragged on by the tool of the button
        QCOMPARE(slice(1).window().width, 2000.0);
        activate("Measure.Distance");
        m_fixture->clickBadge(slice(1));
        QVERIFY(list().all().empty());
    }

    void angle()
    {
        activate("Measure.Angle");
        click({200, 100});
        click({100, 100});
        click({200, 200});
        QCOMPARE(result(0), u"45.0°"_s);
        drag({120, 300}, {20, 300}); // The first leg by a drag
        click({20, 220});
        QCOMPARE(result(1), u"90.0°"_s);
    }

    void regions()
    {
        slice(0).scrollTo(PhantomSeries::ball);
        m_fixture->settle();
        const QPoint ball = slice(0).positionOf(PhantomSeries::ball).toPoint();
        const int half = static_cast<int>(4 * slice(0).zoom());
        activate("Measure.Region");
        drag(ball - QPoint(half, half), ball + QPoint(half, half));
        QVERIFY2(result(0).contains(u"Mean 1000.0 ± 0.00 HU"_s), qPrintable(result(0)));
        pressKey(Qt::Key_Delete);
        activate("Measure.Rectangle");
        drag(ball - QPoint(60, 60), ball + QPoint(60, 60));
        QVERIFY2(result(0).contains(u"Min 0.00  Max 1000.0 HU"_s), qPrintable(result(0)));
        pressKey(Qt::Key_Delete);
        activate("Measure.Polygon");
        for (const QPoint &corner : {QPoint(60, 60), QPoint(140, 60), QPoint(140, 160)}) {
            click(corner);
        }
        QTest::mouseDClick(slice(0).widget(), Qt::LeftButton, {}, {60, 160});
        QVERIFY(slice(1).widget()->isVisible()); // It did not show the viewer on the full screen.
        QVERIFY(isNear(*MeasurementGeometry::area(list().all()[0]), mm(80) * mm(100), 0.1));
        press({200, 60});
        for (const QPoint &at : QList<QPoint>{{260, 60}, {260, 120}, {200, 120}, {200, 66}}) {
            move(at);
        }
        release({200, 62});
        QVERIFY(isNear(*MeasurementGeometry::area(list().all()[1]), mm(60) * mm(60), 0.1));
    }

    void otherViewersShowIt()
    {
        activate("Measure.Distance");
        const QPoint middle = slice(0).widget()->rect().center();
        drag(middle, middle + QPoint(60, 0)); // along the coronal plane in the middle
        slice(2).scrollTo(slice(0).patientAt(middle));
        QCOMPARE(slice(2).widget()->overlay().shapes.size(), 1);
    }

    void contextToolBar()
    {
        activate("Measure.Region");
        auto *const bar = slice(0).widget()->findChild<ExToolBar *>();
        QVERIFY(bar != nullptr);
        QTRY_VERIFY(bar->isVisible());
        const auto find = [bar](const char *text) {
            for (QAction *action : bar->actions()) {
                if (action->text().remove(u'&') == QLatin1String(text)) {
                    return action;
                }
            }
            qFatal("there is no %s", text);
        };
        const auto *const hint = slice(0).widget()->findChild<QLabel *>();
        QVERIFY(hint->isVisible() && hint->text().startsWith(u"Drag from corner"_s));
        find("Polygon")->trigger();
        QVERIFY(hint->text().startsWith(u"Click the corners"_s));
        find("Rectangle")->trigger();
        drag({60, 60}, {160, 160});
        QTRY_VERIFY(find("Copy results")->isEnabled());
        find("Copy results")->trigger();
        const QString text = QGuiApplication::clipboard()->text();
        QVERIFY2(text.startsWith(u"Rectangle 1\tArea "_s), qPrintable(text));
        for (const char *deletes : {"Delete measurement", "Delete all measurements"}) {
            QTRY_VERIFY(find(deletes)->isEnabled());
            find(deletes)->trigger();
            QVERIFY(list().all().empty());
            drag({60, 60}, {160, 160});
            drag({60, 200}, {160, 260});
        }
        activate("Tool.Scroll");
        QTRY_VERIFY(!bar->isVisible());
    }

private:
    SliceViewer &slice(int i) { return m_fixture->slice(i); }

    /// What of the first viewer differs after it was dragged on.
    QString changedBy(Qt::MouseButton button, Qt::KeyboardModifiers modifiers = {})
    {
        const SliceViewer &viewer = slice(0);
        const KxSlice before = viewer.shownSlice();
        const int index = viewer.sliceIndex();
        const double zoom = viewer.zoom();
        const double center = viewer.window().center;
        m_fixture->drag(slice(0), button, {0, 60}, modifiers);
        const bool isTurned = viewer.shownSlice().normal() != before.normal();
        const McVec3d shift = viewer.shownSlice().center() - before.center();
        const McVec3d across = shift - before.normal() * shift.dot(before.normal());
        const std::pair<bool, QString> changes[] = {{viewer.window().center != center, u"window"_s},
            {isTurned, u"plane"_s}, {!isTurned && viewer.sliceIndex() != index, u"slice"_s},
            {viewer.zoom() != zoom, u"zoom"_s}, {across.length() > 1e-9, u"center"_s}};
        QStringList names;
        for (const auto &[isChanged, name] : changes) {
            names += isChanged ? QStringList(name) : QStringList();
        }
        return names.join(u' ');
    }

    MeasurementList &list() { return m_fixture->workstation().measurements(); }

    void press(const QPoint &at)
    {
        m_isHeld = true;
        QTest::mousePress(slice(0).widget(), Qt::LeftButton, {}, at);
    }

    void move(const QPoint &to)
    {
        QWidget &widget = *slice(0).widget();
        QMouseEvent event(QEvent::MouseMove, QPointF(to), widget.mapToGlobal(QPointF(to)),
            Qt::NoButton, m_isHeld ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(&widget, &event);
    }

    void release(const QPoint &at)
    {
        m_isHeld = false;
        QTest::mouseRelease(slice(0).widget(), Qt::LeftButton, {}, at);
    }

    void click(const QPoint &at)
    {
        move(at);
        press(at);
        release(at);
    }

    void drag(const QPoint &from, const QPoint &to)
    {
        move(from);
        press(from);
        move((from + to) / 2);
        move(to);
        release(to);
    }

    OverlayContent::Shape shape(int i) { return slice(0).widget()->overlay().shapes.value(i); }
    /// What a measurement says, its lines joined.
    QString result(int i) { return shape(i).label.join(u'|'); }
    void pressKey(Qt::Key key) { QTest::keyClick(slice(0).widget(), key); }
    [[nodiscard]] double mm(double pixels) { return pixels / slice(0).zoom(); }

    std::unique_ptr<WindowFixture> m_fixture;
    bool m_isHeld = false;
};

QTEST_MAIN(tst_MouseTools)
#include "tst_MouseTools.moc"
