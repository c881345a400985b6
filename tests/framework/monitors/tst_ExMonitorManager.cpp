#include "framework/monitors/ExMonitorManager.h"

#include "platform/properties/KxPropertyPool.h"
#include "tests/support/PrivateSettings.h"
#include "tests/support/Rows.h"

#include <QDialog>
#include <QGuiApplication>
#include <QScreen>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QString textOf(const QRect &rect)
{
    return u"%1,%2,%3,%4"_s.arg(rect.left()).arg(rect.top()).arg(rect.right()).arg(rect.bottom());
}

/// The monitors by their corners, between blanks.
QString monitorsOf(const QByteArray &variable)
{
    qputenv("MOVARA_MONITORS", variable);
    ExMonitorManager &manager = ExMonitorManager::instance();
    manager.readMonitorConfiguration();
    QStringList texts;
    for (const QRect &rect : manager.monitors()) {
        texts.append(textOf(rect));
    }
    return texts.join(QLatin1Char(' '));
}

} // namespace

/// The set of monitors, and what is measured by it.
class tst_ExMonitorManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qputenv("MOVARA_MONITORS", "3840x1024"); }

    void namedMonitors_data()
    {
        const Rows<QByteArray, QString> column("variable", "expected");
        const auto row = [&](const char *text, const char *expected) {
            column(text, QByteArray(text), expected);
        };
        row("1280x1024,1280x1024", "0,0,1279,1023 1280,0,2559,1023");
        row("1600x1200-1600+0", "-1600,0,-1,1199");
        row("1600x1200-1600-100 800x600", "-1600,-100,-1,1099 0,0,799,599");
        row("800x600--5+-7", "5,-7,804,592");
        row("800x600+7 foo 10x10,,x 20x", "0,0,799,599 800,0,809,9");
        row("", "");
        row("99999999999999999999x2-1+0", "-1,0,536870910,1");
        row("0x0", "0,0,-1,-1");
    }

    void namedMonitors()
    {
        QFETCH(QByteArray, variable);
        QFETCH(QString, expected);

        QCOMPARE(monitorsOf(variable), expected);

        const ExMonitorManager &manager = ExMonitorManager::instance();
        QRect total;
        for (const QRect &rect : manager.monitors()) {
            total |= rect;
        }
        QCOMPARE(manager.totalRect(), total);
        QCOMPARE(manager.primaryMonitor(), 0);
        QVERIFY(manager.physicalMonitors().isEmpty());
        QCOMPARE(manager.monitorRect(static_cast<unsigned int>(manager.numMonitors())), QRect());
        QCOMPARE(manager.monitorRect(0xFFFFFFFFU), QRect());
    }

    void displays()
    {
        qunsetenv("MOVARA_MONITORS");
        ExMonitorManager &manager = ExMonitorManager::instance();
        const QRect screen = QGuiApplication::primaryScreen()->geometry();
        auto &split = KxPropertyPool::instance().property<QList<int>>(
            "UI.SplitMonitorConfig", {}, KxPropertyPool::instance().registrySerializer());

        split = QList<int>{0, 1};
        manager.readMonitorConfiguration();
        QCOMPARE(manager.monitors(), QList<QRect>{screen});
        QCOMPARE(split.value(), (QList<int>{0, 1}));

        split = QList<int>{1};
        manager.readMonitorConfiguration();
        const int half = screen.width() / 2;
        QCOMPARE(manager.monitors(),
            (QList<QRect>{QRect(screen.x(), screen.y(), half, screen.height()),
                QRect(screen.x() + half, screen.y(), half, screen.height())}));
        QCOMPARE(manager.physicalMonitors(), (QList<QList<int>>{{0, 1}}));
        split = QList<int>{};
    }

    void rows_data()
    {
        using Rects = QList<QRect>;
        const Rows<Rects, QList<int>> row("rects", "expected");
        const QRect small(0, 0, 100, 80);
        const QRect large(200, 0, 120, 90);
        const QRect right = small.translated(100, 0);
        row("none", Rects(), QList<int>());
        row("two of three, listed from the right", Rects{large, right, small}, QList<int>{2, 1});
        row("topmost of equally long ones", Rects{small.translated(0, 90), small.translated(5, 10)},
            QList<int>{1});
        row("leftmost of those", Rects{small.translated(300, 0), small}, QList<int>{1});
        row("another top is another row", Rects{small, right.translated(0, 1)}, QList<int>{0});
        row("the first of equal ones stands in the row", Rects{small, right, right},
            QList<int>{0, 1});
        row("invalid ones begin none", Rects{QRect(), small}, QList<int>{1});
    }

    void rows()
    {
        QFETCH(QList<QRect>, rects);
        QFETCH(QList<int>, expected);
        QCOMPARE(ExMonitorManager::instance().contiguousHorizontalMonitors(rects), expected);
    }

    void horizontalSpanIsAnsweredOnce()
    {
        monitorsOf("1000x800,3840x1024");
        for (const char *const later : {"1000x800,3840x1024", "1000x800"}) {
            monitorsOf(later);
            int width = -1;
            int height = -1;
            QVERIFY(ExMonitorManager::instance().hasHorizontalSpan(width, height));
            QCOMPARE(QSize(width, height), QSize(3840, 1024));
        }
    }

    void categories_data()
    {
        const Rows<QByteArray, int> row("monitor", "category");
        row("below", QByteArray("1920x1200"), 0);
        row("between", QByteArray("2560x1440"), 1);
        row("above", QByteArray("2560x1600"), 2);
        row("beyond 32 bits", QByteArray("536870912x536870912"), 2);
        row("none", QByteArray(""), 0);
    }

    void categories()
    {
        QFETCH(QByteArray, monitor);
        QFETCH(int, category);
        monitorsOf(monitor);
        ExMonitorManager &manager = ExMonitorManager::instance();
        ExMonitorWidget::Content content;
        manager.setConfiguration(&content, {{0}, {}, {}, false, false});
        manager.applyConfigurations();

        QCOMPARE(int(manager.monitorCategory(manager.monitorWidget(&content))), category);

        manager.removeContent(&content);
        QCOMPARE(int(manager.monitorCategory(nullptr)), 0);
    }

    void sizes()
    {
        monitorsOf("2560x1600");
        ExMonitorManager &manager = ExMonitorManager::instance();
        auto *const inside = new QWidget;
        ExMonitorWidget::SingleMonitorContent content(u"viewers"_s, inside);
        manager.setConfiguration(&content, {{0}, {}, {}, false, false});
        manager.applyConfigurations();
        QVERIFY(ExMonitorWidget::parentWidget(inside));

        QCOMPARE(manager.imageSeriesThumbnailSize(inside), 160);
        QCOMPARE(manager.imageSeriesThumbnailSize(nullptr), 80);
        const double dpi = inside->logicalDpiX();
        QCOMPARE(manager.imageSeriesFontSize(inside), int(96 / dpi * 12));
        QCOMPARE(inside->window()->font().pointSizeF(), 96 / dpi * 12);

        manager.removeContent(&content);
        delete inside;
    }

    void geometryRestored_data()
    {
        const QRect fallback(30, 40, 300, 200);
        const Rows<QRect, QRect, QRect> row("stored", "fallback", "expected");
        const QRect inside(10, 10, 400, 300);
        const QRect rightEdge(1000, 10, 400, 300);
        row("inside", inside, fallback, inside);
        row("clipped to 280 columns", rightEdge, fallback, rightEdge);
        row("clipped to 80 columns", QRect(1200, 10, 400, 300), fallback, fallback);
        row("top edge outside", QRect(10, -1, 400, 300), fallback, fallback);
        row("nothing known", QRect(), QRect(), QRect(340, 362, 600, 300));
        row("too large for the monitor", QRect(), QRect(0, 0, -5, 0), QRect(340, 362, 600, 300));
    }

    void geometryRestored()
    {
        QFETCH(QRect, stored);
        QFETCH(QRect, fallback);
        QFETCH(QRect, expected);
        monitorsOf("1280x1024");
        QWidget widget;
        widget.setObjectName(QLatin1String(QTest::currentDataTag()));
        const QString text = KxPropertyTrait<QRect>::toString(stored);
        if (stored.isValid()) {
            QVERIFY(KxPropertyPool::instance().registrySerializer().write(
                QLatin1String("UI.DialogPositionSize.") + widget.objectName(), text));
        }
        ExMonitorManager::instance().widgetGeometryRestore(widget, fallback, 600, 300);
        QCOMPARE(textOf(widget.geometry()), textOf(expected));
    }

    void geometryStoredOnce()
    {
        QWidget widget;
        widget.setObjectName(u"Stored"_s);
        widget.setGeometry(5, 6, 70, 80);
        ExMonitorManager &manager = ExMonitorManager::instance();
        manager.widgetGeometryStore(widget);
        auto *const property
            = KxPropertyPool::instance().find<QRect>("UI.DialogPositionSize.Stored");
        QVERIFY(property);
        QCOMPARE(property->value(), QRect(5, 6, 70, 80));

        int told = 0;
        connect(property, &KxVariant::propertyChanged, this, [&told] { ++told; });
        manager.widgetGeometryStore(widget);
        QCOMPARE(told, 0);
        widget.move(7, 6);
        manager.widgetGeometryStore(widget);
        QCOMPARE(told, 1);
        property->reload();
        QCOMPARE(property->value(), QRect(7, 6, 70, 80));
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
        ExMonitorManager::installAutomaticFontAndDialogAdjustment();
        child.show();
        QCOMPARE(child.pos(), QPoint(200, 200));

        monitorsOf("1280x1024");
        QCOMPARE(
            textOf(ExMonitorManager::instance().defaultGeometry(0, 80)), u"128,102,1151,921"_s);
    }

private:
    PrivateSettings m_settings;
};

QTEST_MAIN(tst_ExMonitorManager)
#include "tst_ExMonitorManager.moc"
