// Panels dragged by a real mouse, on a real window system.
#include "framework/editors/ExEditorFloater.h"
#include "tests/framework/editors/Panels.h"

class tst_EditorDrag : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dragsWithTheMouse()
    {
        Panels panels;
        panels.window.show();
        constexpr int milliseconds = 20000;
        QTRY_VERIFY_WITH_TIMEOUT(isActive(panels.window), milliseconds);
        const auto middle = [&panels](int subRegion) {
            const QWidget *const tabs = panels.region->editorContainer(subRegion);
            return tabs->mapToGlobal(tabs->rect().center());
        };
        // Sub-regions that appear for the drag move the others: the hand follows where they are.
        const auto isMarkedAt = [&panels](int subRegion, const auto &position) {
            static int step = 0;
            step = 1 - step;
            move(position() + QPoint(step, 0));
            return isMarked(panels, subRegion);
        };
        const auto isMarkedInside = [&](int subRegion) {
            return isMarkedAt(subRegion, [&] { return middle(subRegion); });
        };
        // To the third sub-region, which only shows while something is dragged.
        press(tab(panels, 0, 0));
        move(tab(panels, 0, 0) + QPoint(0, 60));
        QTRY_VERIFY(panels.region->editorContainer(2)->isVisible());
        QTRY_VERIFY(isMarkedInside(2));
        release();
        QTRY_COMPARE(panels.state(), u"B* | C* | A*"_s);
        // To a place before another tab.
        press(tab(panels, 2, 0));
        move(middle(2));
        QTRY_VERIFY(isMarkedAt(1, [&] { return tab(panels, 1, 0) - QPoint(8, 0); }));
        release();
        QTRY_COMPARE(panels.state(), u"B* | A* C | "_s);
        // Out of the window, but Escape.
        const QPoint outside = panels.window.geometry().bottomLeft() + QPoint(60, 60);
        press(tab(panels, 0, 0));
        QTRY_VERIFY(isMarkedInside(0));
        mouse({u"key"_s, u"Escape"_s});
        QTRY_VERIFY(panels.region->editorContainer(2)->isHidden());
        move(outside);
        release();
        QCOMPARE(panels.state(), u"B* | A* C | "_s);
        // Out of it, and back by the handle.
        press(tab(panels, 0, 0));
        move(middle(0));
        move(outside);
        QTRY_VERIFY(!isMarked(panels, 0));
        release();
        QTRY_COMPARE(panels.state(), u" | A* C |  ~B"_s);
        QVERIFY(QTest::qWaitForWindowExposed(panels.b.floater()));
        QTRY_VERIFY(panels.b.floater()->frameGeometry().contains(outside));
        const auto *const handle = panels.b.floater()->findChild<QWidget *>(u"EditorHandle"_s);
        QTRY_VERIFY(isUnderMouse(*handle));
        mouse({u"mousedown"_s, u"1"_s});
        move(outside + QPoint(20, 20));
        QTRY_VERIFY(isMarkedInside(1));
        release();
        QTRY_COMPARE(panels.state(), u" | A C B* | "_s);
    }

private:
    /// A window manager that is still starting takes a window, but does not activate it.
    static bool isActive(QWidget &window)
    {
        window.activateWindow();
        return window.isActiveWindow();
    }
    /// The window manager may still be putting its frame around the handle's window.
    static bool isUnderMouse(const QWidget &handle)
    {
        move(handle.mapToGlobal(QPoint(20, handle.height() / 2)));
        return handle.underMouse();
    }
    static bool isMarked(const Panels &panels, int subRegion)
    {
        const auto *const mark = panels.region->editorContainer(subRegion)->findChild<QWidget *>(
            u"EditorDropIndicator"_s);
        return mark != nullptr && mark->isVisible();
    }
    static QPoint tab(const Panels &panels, int subRegion, int index)
    {
        const auto *const bar = panels.region->editorContainer(subRegion)->findChild<QTabBar *>();
        return bar->mapToGlobal(bar->tabRect(index).center());
    }
    static void press(const QPoint &position)
    {
        move(position);
        mouse({u"mousedown"_s, u"1"_s});
    }
    static void release() { mouse({u"mouseup"_s, u"1"_s}); }
    static void move(const QPoint &position)
    {
        mouse({u"mousemove"_s, u"--"_s, QString::number(position.x()),
            QString::number(position.y())});
    }
    /// Returns once the program is through, with events handled meanwhile.
    static void mouse(const QStringList &arguments)
    {
        QProcess tool;
        tool.start(u"xdotool"_s, arguments);
        QTRY_COMPARE(tool.state(), QProcess::NotRunning);
        QCOMPARE(tool.exitCode(), 0);
    }
};

QTEST_MAIN(tst_EditorDrag)
#include "tst_EditorDrag.moc"
