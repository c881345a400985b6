// The code of the pages in docs/concepts, at work.
#include "examples/concepts/Bus.cpp"
#include "examples/concepts/Editors.cpp"
#include "examples/concepts/Input.cpp"
#include "examples/concepts/Monitors.cpp"
#include "examples/concepts/Plugins.cpp"
#include "examples/concepts/Tools.cpp"
#include "examples/concepts/Viewers.cpp"
#include "framework/editors/ExEditorContainer.h"
#include "tests/support/FakeViewer.h"
#include "tests/support/FakeViewerManager.h"
#include "tests/support/NextDialog.h"
#include "tests/support/PrivateSettings.h"
#include "tests/support/Recorder.h"

#include <QTest>
#include <QWheelEvent>

#include <thread>

using namespace Qt::StringLiterals;

namespace {

/// Two viewers side by side, with one volume; the left one is active.
struct Pair
{
    Pair()
    {
        const McHandle<KxVolume> volume(new KxVolume({1, 1, 1}, KxVolume::ScalarType::UInt8));
        const McHandle<KxImageSeries> series(new KxImageSeries("1"));
        series->appendVolume(volume, "");
        for (FakeViewer *viewer : {left.get(), right.get()}) {
            viewer->imageSets[0] = series;
            viewer->shown = volume;
            viewer->makeWidget().resize(100, 100);
            viewer->handler = &handler;
            handler.connect(viewer->renderWidget());
        }
        manager.addViewer(left, {0, 0, 0.5F, 1}, true);
        manager.addViewer(right, {0.5F, 0, 1, 1}, true);
        manager.setActiveViewer(left);
    }

    ExEventHandler handler;
    QStringList log;
    FakeViewerManager manager;
    McHandle<FakeViewer> left{new FakeViewer(u"left"_s, &log)};
    McHandle<FakeViewer> right{new FakeViewer(u"right"_s, &log)};
};

void turnWheel(QWidget &widget, int delta, Qt::KeyboardModifiers modifiers)
{
    QWheelEvent event(
        {10, 10}, {10, 10}, {}, {0, delta}, Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&widget, &event);
}

} // namespace

class tst_Concepts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bus()
    {
        const McHandle<SliceCounter> counter(new SliceCounter);
        const McHandle<FakeViewer> viewer(new FakeViewer);
        sliceChanged(viewer);
        sliceChanged(viewer);
        QCOMPARE(counter->count(), 2);
        ExNotifiable::notify({ExNotification::VIEWER_VOLUME_CHANGED, viewer});
        QCOMPARE(counter->count(), 0);

        QStringList log;
        const McHandle<Recorder> recorder(
            new Recorder(u"told"_s, log, {ExNotification::VOLUMES_LOADED_INTO_SYSTEM}));
        std::thread(volumesArrived).join();
        volumesArrived();
        QCOMPARE(log, QStringList());
        QTRY_COMPARE(log, QStringList(u"told:VOLUMES_LOADED_INTO_SYSTEM"_s));
    }

    void viewers()
    {
        Pair pair;
        QStringList told;
        const McHandle<Recorder> recorder(new Recorder(u"told"_s, told,
            {ExNotification::VIEWER_DETACHED_FROM_GROUP, ExNotification::FULLSCREEN_CHANGED,
                ExNotification::ABOUT_TO_DELETE_VIEWERS, ExNotification::ACTIVE_VIEWER_CHANGED}));
        pair.log.clear();
        redrawVolumeOf(*pair.left);
        QTRY_COMPARE(pair.log, QStringList({u"left frame"_s, u"right frame"_s}));
        const std::string &zoom = ExViewerDB::ZOOM_GROUP;
        linkZoom(*pair.left, *pair.right);
        QVERIFY(ExViewerDB::isSameGroup(zoom, pair.left, pair.right));
        detachZoom(*pair.right);
        const auto isAttached = [&zoom](const ExBaseViewer *viewer) {
            return ExViewerDB::viewerAttributeAsBool(zoom, viewer, ExViewerDB::ATT_ATTACHED);
        };
        QVERIFY(isAttached(pair.left) && !isAttached(pair.right));
        toggleFullscreen(*pair.left);
        QCOMPARE(pair.left->renderWidget()->geometry(), QRect(0, 0, 1000, 500));
        closeViewer(*pair.left);
        QCOMPARE(pair.manager.activeViewer(), pair.right.get());
        QVERIFY(ExViewerDB::group(zoom, pair.left) == nullptr);
        QCOMPARE(told,
            QStringList({u"told:VIEWER_DETACHED_FROM_GROUP"_s, u"told:FULLSCREEN_CHANGED"_s,
                u"told:ABOUT_TO_DELETE_VIEWERS"_s, u"told:ACTIVE_VIEWER_CHANGED"_s}));
        ExViewerDB::clear(pair.right);
    }

    void tools()
    {
        Pair pair;
        QStringList scrolled;
        const McHandle<ScrollTool> scroll(new ScrollTool([&](ExBaseViewer &viewer, int pixels) {
            scrolled.append(
                (&viewer == pair.right ? u"right "_s : u"left "_s) + QString::number(pixels));
        }));
        const McHandle<ScrollTool> other(new ScrollTool({})); // Of the same name: it is not found.
        ExToolGroup group;
        ExToolBar bar(u"Mouse"_s);
        addMouseTools(bar, group, {"Sample.Scroll", "Sample.Absent"});
        group.appendTool(other, false);
        QCOMPARE(bar.actions().size(), 1);
        other->setActive(true);
        scroll->setActive(true);
        QVERIFY(scroll->isActive() && !other->isActive());
        QCOMPARE(group.getActiveTool().get(), scroll.get());
        QWidget &widget = *pair.right->renderWidget();
        QTest::mousePress(&widget, Qt::LeftButton, {}, {50, 50});
        QTest::mouseMove(&widget, {50, 62});
        QCOMPARE(widget.cursor().shape(), Qt::SizeVerCursor);
        QTest::mouseRelease(&widget, Qt::LeftButton, {}, {50, 62});
        QCOMPARE(scrolled, QStringList(u"right 12"_s));
        scroll->setActive(false);
    }

    void input()
    {
        Pair pair;
        ZoomActions zoom;
        zoom.install(pair.handler);
        QWidget &widget = *pair.left->renderWidget();
        turnWheel(widget, 120, {});
        QCOMPARE(zoom.factor(), 1.0);
        turnWheel(widget, 120, Qt::ControlModifier);
        QCOMPARE(zoom.factor(), 1.25);
        QTest::mouseClick(&widget, Qt::MiddleButton);
        QCOMPARE(zoom.factor(), 1.0);

        const McHandle<ScrollTool> first(new ScrollTool({}));
        const McHandle<ScrollTool> second(new ScrollTool({}));
        const QKeySequence keys(u"Ctrl+J"_s);
        QVERIFY(chooseKey(*first, keys) && !chooseKey(*second, keys) && chooseKey(*first, keys));
        QCOMPARE(ExHotKeys::findHotKey(keys), static_cast<ExTool *>(first));
    }

    void monitors()
    {
        ExMonitorManager &manager = ExMonitorManager::instance();
        QWidget *const widget = new QWidget;
        ExMonitorWidget::SingleMonitorContent content(u"Sample"_s, widget);
        showOn(content, 0);
        QVERIFY(widget->isVisible());
        QCOMPARE(widget->window(), static_cast<QWidget *>(manager.monitorWidget(&content)));
        QPoint place;
        for (const QPoint &wanted : {QPoint(40, 50), QPoint(140, 150)}) {
            QDialog dialog;
            NextDialog user([&](QWidget &shown) {
                place = shown.pos();
                shown.move(wanted);
                shown.close();
            });
            ask(dialog);
        }
        QCOMPARE(place, QPoint(40, 50));
        manager.removeContent(&content);
        qDeleteAll(manager.monitorWidgets());
    }

    void editors()
    {
        ExEditor::doInitCallbacks();
        QVERIFY(!showPanel("Absent"));
        ExSplitter splitter(Qt::Horizontal);
        ExEditorRegion *const region = addPanels(splitter, new QWidget, {});
        splitter.resize(600, 400);
        splitter.show();
        ExEditor *const notes = ExEditor::getEditor("Notes");
        QVERIFY(region->closeEditor(notes) && showPanel("Notes") && notes->isFloating());
        QVERIFY(showPanel("Notes") && notes->isFloating()); // It stays where the user sees it.
        notes->dockFloater(false);
        QVERIFY(region->editorContainer(0)->contains(notes) && showPanel("Notes"));
        QVERIFY(!notes->isFloating());
        splitter.toggle(ExSplitter::DockFirst);
        QVERIFY(splitter.isCollapsed(ExSplitter::DockFirst));
        delete notes;
    }

    void plugins()
    {
        QCOMPARE(loadPlugins(QStringLiteral(SAMPLE_FOLDER)), QStringList());
        QVERIFY(ExTool::isMenuTool("Sample.Values"));
    }

private:
    PrivateSettings m_settings;
};

QTEST_MAIN(tst_Concepts)
#include "tst_Concepts.moc"
