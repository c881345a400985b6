#include "tests/framework/monitors/Panes.h"

namespace {

QString textOf(const QRect &rect)
{
    return u"%1,%2,%3,%4"_s.arg(rect.left()).arg(rect.top()).arg(rect.right()).arg(rect.bottom());
}

} // namespace

/// The set of monitors, and what is measured by it.
class tst_ExMonitorManager : public TestWithSettings
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qputenv("MOVARA_MONITORS", "3840x1024"); }

    void namedMonitors()
    {
        const std::pair<const char *, const char *> rows[]
            = {{"1280x1024,1280x1024", "0,0,1279,1023 1280,0,2559,1023"},
                {"1600x1200-1600+0", "-1600,0,-1,1199"},
                {"1600x1200-1600-100 800x600", "-1600,-100,-1,1099 0,0,799,599"},
                {"800x600--5+-7", "5,-7,804,592"},
                {"800x600+7 foo 10x10,,x 20x", "0,0,799,599 800,0,809,9"}, {"", ""},
                {"99999999999999999999x2-1+0", "-1,0,536870910,1"}, {"0x0", "0,0,-1,-1"}};
        for (const auto &[variable, expected] : rows) {
            setMonitors(variable);
            QStringList texts;
            QRect total;
            for (const QRect &rect : manager().monitors()) {
                texts.append(textOf(rect));
                total |= rect;
            }
            QCOMPARE(texts.join(u' '), QLatin1String(expected));
            QCOMPARE(manager().totalRect(), total);
            QVERIFY(manager().primaryMonitor() == 0 && manager().physicalMonitors().isEmpty());
            for (const unsigned beyond : {unsigned(manager().numMonitors()), 0xFFFFFFFFU}) {
                QCOMPARE(manager().monitorRect(beyond), QRect());
            }
        }
    }

    void rows()
    {
        const QRect small(0, 0, 100, 80);
        const QRect large(200, 0, 120, 90);
        const QRect right = small.translated(100, 0);
        const std::pair<QList<QRect>, QList<int>> rows[]
            = {{{}, {}}, {{large, right, small}, {2, 1}}, // listed from the right
                {{small.translated(0, 90), small.translated(5, 10)}, {1}}, // the topmost,
                {{small.translated(300, 0), small}, {1}}, // the leftmost of equally long ones
                {{small, right.translated(0, 1)}, {0}}, // Another top is another row.
                {{small, right, right}, {0, 1}}, // The first of equal ones stands in the row.
                {{QRect(), small}, {1}}};
        for (const auto &[rects, expected] : rows) {
            QCOMPARE(manager().contiguousHorizontalMonitors(rects), expected);
        }
    }

    void horizontalSpanIsAnsweredOnce()
    {
        setMonitors("1000x800,3840x1024");
        for (const char *const later : {"1000x800,3840x1024", "1000x800"}) {
            setMonitors(later);
            int width = -1;
            int height = -1;
            QVERIFY(manager().hasHorizontalSpan(width, height));
            QCOMPARE(QSize(width, height), QSize(3840, 1024));
        }
    }

    void geometryRestored()
    {
        const QRect fallback(30, 40, 300, 200);
        const QRect inside(10, 10, 400, 300);
        const QRect rightEdge(1000, 10, 400, 300); // leaves 280 columns of it
        // Stored, fallback, restored
        const std::tuple<QRect, QRect, QRect> rows[] = {{inside, fallback, inside},
            {rightEdge, fallback, rightEdge}, {{1200, 10, 400, 300}, fallback, fallback},
            {{10, -1, 400, 300}, fallback, fallback}, {{}, {}, {340, 362, 600, 300}},
            {{}, {0, 0, -5, 0}, {340, 362, 600, 300}}};
        setMonitors("1280x1024");
        int number = 0;
        for (const auto &[stored, given, expected] : rows) {
            QWidget widget;
            widget.setObjectName(QString::number(++number));
            if (stored.isValid()) {
                QVERIFY(KxPropertyPool::instance().registrySerializer().write(
                    QLatin1String("UI.DialogPositionSize.") + widget.objectName(),
                    KxPropertyTrait<QRect>::toString(stored)));
            }
            manager().widgetGeometryRestore(widget, given, 600, 300);
            QCOMPARE(textOf(widget.geometry()), textOf(expected));
        }
    }

    void geometryStoredOnce()
    {
        QWidget widget;
        widget.setObjectName(u"Stored"_s);
        widget.setGeometry(5, 6, 70, 80);
        manager().widgetGeometryStore(widget);
        auto *const property
            = KxPropertyPool::instance().find<QRect>("UI.DialogPositionSize.Stored");
        QVERIFY(property && property->value() == QRect(5, 6, 70, 80));
        int told = 0;
        connect(property, &KxVariant::propertyChanged, this, [&told] { ++told; });
        manager().widgetGeometryStore(widget);
        QCOMPARE(told, 0);
        widget.move(7, 6);
        manager().widgetGeometryStore(widget);
        property->reload();
        QVERIFY(told == 1 && property->value() == QRect(7, 6, 70, 80));
    }

    void dialogs()
    {
        const QRect screen = QGuiApplication::primaryScreen()->geometry();
        QDialog dialog;
        dialog.resize(200, 100);
        ExMonitorManager::positionDialog(&dialog, {300, 250});
        QCOMPARE(dialog.pos(), QPoint(200, 200));
        ExMonitorManager::positionDialog(&dialog, {screen.right() - 10, 250});
        QCOMPARE(dialog.pos(), QPoint(screen.right() / 2 - 100, 200));

        QWidget parent;
        parent.setGeometry(100, 100, 400, 300);
        QDialog child(&parent);
        child.resize(200, 100);
        QDialog hidden(&parent);
        hidden.resize(200, 100);
        ExMonitorManager::adjustDialogPosition(&hidden);
        QCOMPARE(hidden.pos(), QPoint(200, 200));
        ExMonitorManager::installAutomaticFontAndDialogAdjustment();
        child.show();
        QCOMPARE(child.pos(), QPoint(200, 200));

        setMonitors("1280x1024");
        QCOMPARE(textOf(manager().defaultGeometry(0, 80)), u"128,102,1151,921"_s);
    }
};

QTEST_MAIN(tst_ExMonitorManager)
#include "tst_ExMonitorManager.moc"
