#include "tests/support/Prelude.h"

namespace {

QString text(const McBox2f &box)
{
    return u"%1 %2 %3 %4"_s.arg(box.xMin()).arg(box.yMin()).arg(box.xMax()).arg(box.yMax());
}

} // namespace

class tst_ExScreen : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void columnsOverlapped()
    {
        const std::tuple<int, McBox2f, const char *> rows[] = {
            {3, {0.3F, 0, 0.7F, 1}, "0 to 2"},
            {3, {0.335F, 0, 0.99F, 1}, "1 to 2"}, // Hardly reaches into the first,
            {2, {0, 0, 0.505F, 1}, "0 to 0"}, // hardly into the last.
            {4, {0, 0, 0.2625F, 1}, "0 to 1"},
            {0, {0.1F, 0, 0.2F, 1}, "0 to 0"}, // No screen counts as one.
            {2, {1.5F, 0, 2, 1}, "-1 to -1"},
            {2, {}, "-1 to -1"},
            {2, {0.995F, 0, 1, 1}, "-1 to -1"},
        };
        for (const auto &[screens, box, range] : rows) {
            FakeScreen screen(screens);
            QWidget widget;
            screen.addWidget(&widget, box);
            int first = 7;
            int last = 7;
            screen.overlappingScreens(&widget, first, last);
            QCOMPARE(u"%1 to %2"_s.arg(first).arg(last), QLatin1String(range));
        }
    }

    void geometryAndNotifications()
    {
        QStringList log;
        const Recorder recorder(u"r"_s, log, {ExNotification::UNSPECIFIC});
        FakeScreen screen(2);
        QWidget a;
        QWidget b;
        screen.addWidget(&a, {0, 0, 0.5F, 0.5F});
        screen.addWidget(&b, {0.5F, 0, 1, 1});
        QCOMPARE(a.geometry(), QRect(0, 0, 1000, 250));
        QCOMPARE(b.geometry(), QRect(1000, 0, 1000, 500));
        QCOMPARE(log, QStringList({u"r:SCREEN_RECONFIGURED"_s, u"r:SCREEN_RECONFIGURED"_s}));

        screen.setReconfigureEnabled(false);
        screen.addWidget(&a, {0, 0, 1, 1});
        QCOMPARE(a.geometry(), QRect(0, 0, 1000, 250));
        screen.setChildGeometry(&a, {0, 0, 0.25F, 1}); // One child alone: no relayout.
        QCOMPARE(a.geometry(), QRect(0, 0, 500, 500));
        screen.setReconfigureEnabled(true);
        screen.removeWidget(&b);
        QCOMPARE(log.size(), 2);
        a.setGeometry(1, 2, 3, 4);
        screen.reconfigure();
        QCOMPARE(a.geometry(), QRect(0, 0, 500, 500));
        screen.removeAllWidgets();
        QCOMPARE(screen.numWidgets() * 10 + static_cast<int>(log.size()), 3);
    }

    void fullScreen()
    {
        FakeScreen screen(4);
        const McHandle<FakeViewer> viewer(new FakeViewer);
        QWidget *const widget = &viewer->makeWidget();
        screen.addWidget(viewer, {0.3F, 0.5F, 0.6F, 1});
        const QRect normal = widget->geometry();
        QVERIFY(!screen.setFullscreen(viewer, false) && screen.setFullscreen(viewer, true));
        QVERIFY(!screen.setFullscreen(viewer, true) && screen.isFullscreen(viewer));
        QCOMPARE(widget->geometry(), normal); // The caller relayouts.
        screen.reconfigure();
        QCOMPARE(widget->geometry(), QRect(1000, 0, 2000, 500));
        QVERIFY(screen.fullscreenWidget(1) == widget && screen.fullscreenWidget(2) == widget);
        QVERIFY(!screen.fullscreenWidget(0) && !screen.fullscreenWidget(3));

        screen.setChildGeometry(viewer, {0, 0, 1, 1}); // Its full-screen box.
        QRect rect;
        McBox2f box;
        QVERIFY(screen.getChildWindowRect(viewer, rect) && screen.getChildGeometry(viewer, box));
        QCOMPARE(rect, QRect(0, 0, 4000, 500));
        QCOMPARE(text(box), u"0.3 0.5 0.6 1"_s);
        QVERIFY(screen.setFullscreen(viewer, false));
        screen.reconfigure();
        QCOMPARE(widget->geometry(), normal);
        QVERIFY(screen.setFullscreen(viewer, true));
        screen.addWidget(viewer, {}); // Adding again resets; and it is on no screen.
        QVERIFY(!screen.isFullscreen(viewer) && !screen.setFullscreen(viewer, true));
    }

    void unknownWidgets()
    {
        FakeScreen screen(2);
        QWidget widget;
        for (QWidget *const unknown : {&widget, static_cast<QWidget *>(nullptr)}) {
            McBox2f box(1, 2, 3, 4);
            screen.setChildGeometry(unknown, {});
            screen.removeWidget(unknown);
            QVERIFY(!screen.getChildGeometry(unknown, box) && text(box) == u"1 2 3 4");
            QVERIFY(!screen.setFullscreen(unknown, true) && !screen.isFullscreen(unknown));
        }
        ExBaseViewer *const nobody = nullptr;
        screen.addWidget(nobody, {});
        QCOMPARE(screen.screenIndex(nobody) + screen.numWidgets(), -1);
    }

    void screensOfWidgets()
    {
        FakeScreen screen(4);
        const FakeScreen copy = screen; // Shares the children.
        std::array<McHandle<FakeViewer>, 4> viewers;
        QList<QWidget *> widgets;
        for (int i = 0; i < 4; ++i) {
            auto &viewer = viewers.at(static_cast<std::size_t>(i));
            viewer = new FakeViewer;
            widgets.append(&viewer->makeWidget());
            widgets.last()->setWindowFlag(Qt::FramelessWindowHint);
            const float x = static_cast<float>(i) * 0.2F;
            screen.addWidget(viewer, i == 3 ? McBox2f() : McBox2f(x, 0, x + 0.24F, 1));
            widgets.last()->setGeometry(i * 800, 0, 100, 100);
            widgets.last()->show();
        }
        QList<QWidget *> firstTwo = widgets.mid(0, 2);
        std::sort(firstTwo.begin(), firstTwo.end()); // Children are kept by address.
        std::sort(widgets.begin(), widgets.begin() + 3);
        QCOMPARE(copy.coveredWidgets(0, 1), firstTwo);
        QCOMPARE(screen.coveredWidgets(0, 3), widgets.mid(0, 3)); // That on no screen never.
        QCOMPARE(screen.coveredWidgets(3, 3).size(), 0);
        QCOMPARE(text(screen.normalizedScreenGeometry(1, 2)), u"0.25 0 0.75 1"_s);

        QCOMPARE(screen.screenIndex(viewers[2]), 1);
        QCOMPARE(screen.numViewersOnSameScreen(viewers[1]), 2);
        viewers[1]->renderWidget()->hide();
        QCOMPARE(screen.numViewersOnSameScreen(viewers[1]), 1); // It does not count itself now.
        viewers[2]->renderWidget()->move(0, 600);
        QCOMPARE(screen.screenIndex(viewers[2]), -1);
        screen.screens = 1;
        QCOMPARE(screen.screenIndex(viewers[2]), 0); // Even outside of it.
        QCOMPARE(screen.numViewersOnSameScreen(viewers[1]), 3);
    }

    void scaling()
    {
        FakeScreen screen(4);
        const McHandle<FakeViewer> moving(new FakeViewer);
        const McHandle<FakeViewer> keeping(new FakeViewer);
        keeping->keepsItsPlace = true;
        QWidget plain;
        QWidget elsewhere;
        QStringList boxes;
        const std::pair<QWidget *, McBox2f> children[] = {
            {&moving->makeWidget(), {0.25F, 0, 0.5F, 0.5F}}, {&plain, {0.5F, 0.25F, 0.75F, 0.75F}},
            {&keeping->makeWidget(), {0.25F, 0, 0.75F, 1}}, {&elsewhere, {0.75F, 0, 1, 1}}};
        for (const auto &[widget, box] : children) {
            screen.addWidget(widget, box);
        }
        screen.setFullscreen(&plain, true);
        const QRect before = plain.geometry();
        screen.scaleWidgets(1, 2, 0.5F, 1);
        QCOMPARE(plain.geometry(), before);
        for (const auto &[widget, oldBox] : children) {
            McBox2f box;
            screen.getChildGeometry(widget, box);
            boxes.append(text(box));
        }
        QCOMPARE(boxes.join(u", "),
            u"0.25 0 0.375 0.666667, 0.375 0.333333 0.5 1, 0.25 0 0.75 1, 0.75 0 1 1"_s);
        screen.reconfigure(); // The full-screen box was mapped in the same way.
        QCOMPARE(plain.geometry(), QRect(1000, 0, 1000, 500));
    }

    void renderWidgetTellsWhetherTheImageIsFinal()
    {
        const McHandle<FakeViewer> viewer(new FakeViewer);
        for (const bool isFinal : {false, true}) {
            viewer->final = isFinal;
            QMetaObject::invokeMethod(&viewer->makeWidget(), "propertyUpdate");
            QCOMPARE(viewer->renderWidget()->property("squish_isFinalImage"), QVariant(isFinal));
        }
    }
};

QTEST_MAIN(tst_ExScreen)
#include "tst_ExScreen.moc"
