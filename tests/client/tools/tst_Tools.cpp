#include "client/application/Translations.h"
#include "client/application/WorkstationDecoration.h"
#include "client/panels/StudyTree.h"
#include "framework/tools/ExHotKeys.h"
#include "framework/tools/ExToolBar.h"
#include "framework/tools/ToolModule.h"
#include "platform/properties/KxPropertyPool.h"
#include "platform/toolkit/QxStyleFactory.h"
#include "tests/endtoend/WindowFixture.h"
#include "tests/support/NextDialog.h"

#include <QTest>
#include <QtWidgets>

using namespace Qt::StringLiterals;

namespace {

using Grid = PhantomSeries::Grid;

void collectKeys(const QList<QAction *> &actions, QStringList &keys)
{
    for (const QAction *action : actions) {
        keys += action->objectName();
        if (action->menu() != nullptr) {
            collectKeys(action->menu()->actions(), keys);
        }
    }
}

/// Of everything that the window shows.
QStringList shownKeys(ExMonitorWidget &window)
{
    QStringList keys;
    collectKeys(window.menuBar()->actions(), keys);
    for (const ExToolBar *bar : window.findChildren<ExToolBar *>()) {
        collectKeys(bar->actions(), keys);
    }
    for (const ExTool *each : ExHotKeys::hotKeyTools()) {
        keys += QString::fromLatin1(each->decorationKey());
    }
    return keys;
}

void press(WindowFixture &fixture, Qt::Key key, Qt::KeyboardModifiers modifiers = {})
{
    QTest::keyClick(fixture.window().windowHandle(), key, modifiers);
}

/// Of an icon's pixels against the window's ground; 0 for a picture of the wrong size.
double bestContrast(const QIcon &icon, QIcon::Mode mode, double scale)
{
    const QColor ground = QApplication::palette().color(QPalette::Window);
    const QPixmap pixmap = icon.pixmap(QSize(24, 24), scale, mode);
    QImage picture(pixmap.size(), QImage::Format_RGB32);
    picture.fill(ground);
    QPainter(&picture).drawPixmap(QRect(QPoint(), picture.size()), pixmap);
    double best = picture.width() == 24 * scale ? 1 : 0;
    for (int i = 0; best > 0 && i < picture.width() * picture.height(); ++i) {
        const QColor color = picture.pixelColor(i % picture.width(), i / picture.width());
        best = std::max(best, QxStyleFactory::contrast(color, ground));
    }
    return best;
}

template <typename... Kinds>
bool isOneOf(const QWidget *widget)
{
    return ((qobject_cast<const Kinds *>(widget) != nullptr) || ...);
}

QString helpText(WindowFixture &fixture)
{
    WorkstationApplication::instance().showHelp({});
    return fixture.window().findChild<QTextBrowser *>()->toPlainText();
}

} // namespace

/// The workstation's tools as the user meets them: texts, icons, menus, bars, keys, and what they
/// do to the pictures.
class tst_Tools : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // First: no tool is there yet.
    void deniedToolsAppearNowhere()
    {
        WindowFixture::settings().setPolicy(
            R"({"deniedTools": ["View.Invert", "Phase.*", "Link.*"]})");
        {
            WindowFixture fixture(PhantomSeries::make(Grid::Axial));
            QTest::mouseClick(fixture.slice(0).widget(), Qt::RightButton);
            QStringList keys = shownKeys(fixture.window());
            collectKeys(fixture.slice(0).widget()->findChild<QMenu *>()->actions(), keys);
            QVERIFY(keys.contains(u"View.Reset"_s));
            QCOMPARE(keys.filter(QRegularExpression(uR"(Invert|Phase|^Link\.)"_s)), QStringList());
            QTest::keyClick(fixture.slice(0).widget(), Qt::Key_I);
            QVERIFY(!fixture.slice(0).isInverted());
            const QString help = helpText(fixture);
            QVERIFY(help.contains(u"Reset view"_s) && help.contains(u"\nView.Reset\n"_s));
            QVERIFY(!help.contains(u"Exchange dark and bright"_s));
            // A menu without any tool is not there.
            for (const QAction *action : fixture.window().menuBar()->actions()) {
                QVERIFY(action->text() != u"&Link"_s);
            }
        }
        WindowFixture::settings().setPolicy("{}");
        WindowFixture fixture;
        QVERIFY(shownKeys(fixture.window()).contains(u"View.Invert"_s));
    }

    void decorated()
    {
        const auto restore = qScopeGuard([] { Translations::install(u"en"_s); });
        for (const QString &language : {u"en"_s, u"de"_s}) {
            Translations::install(language);
            const WorkstationDecoration decoration;
            QStringList faults;
            QMap<QString, QString> shortCuts;
            for (const auto &[key, english] : ToolModule::decorations()) {
                const char *const name = key.c_str();
                const bool isWhole = !decoration.text(name, true).isEmpty()
                    && !decoration.text(name, false).isEmpty()
                    && !decoration.category(name).isEmpty() && !decoration.toolTip(name).isEmpty()
                    && !decoration.icon(name).isNull();
                const bool isTranslated = language == u"en"_s
                    || !decoration.toolTip(name).startsWith(QString::fromUtf8(english.toolTip));
                const QString keys = decoration.shortCut(name);
                const bool isFree = keys.isEmpty()
                    || (!shortCuts.contains(keys)
                        && QKeySequence(keys)[0].key() != Qt::Key_unknown);
                shortCuts.insert(keys, decoration.text(name, false));
                if (!isWhole || !isTranslated || !isFree) {
                    faults += QString::fromStdString(key);
                }
            }
            QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u',')));
            QVERIFY(decoration.keys().size() > 30);
        }
    }

    void iconsAreReadable()
    {
        WorkstationApplication application;
        for (const QString &style : QxStyleFactory::instance().styleNames()) {
            application.setCurrentStyle(style);
            for (const auto &[key, english] : ToolModule::decorations()) {
                const QIcon icon = WorkstationDecoration().icon(key.c_str());
                for (const double scale : {1.0, 2.0}) {
                    const double normal = bestContrast(icon, QIcon::Normal, scale);
                    const double disabled = bestContrast(icon, QIcon::Disabled, scale);
                    const QString name = style % u' ' % QString::fromStdString(key);
                    QVERIFY2(normal >= 4.5, qPrintable(name));
                    QVERIFY2(disabled > 1.2 && disabled < normal, qPrintable(name));
                }
            }
        }
        application.setCurrentStyle(u"Movara Medium"_s);
    }

    void everythingHasAnAccessibleName()
    {
        WindowFixture fixture;
        tool("Edit.Settings").setActive(true);
        QStringList nameless;
        for (QWidget *widget : fixture.window().findChildren<QWidget *>()) {
            const bool isNamed
                = isOneOf<QAbstractButton, QTreeWidget, QComboBox, QAbstractSpinBox, QLineEdit>(
                    widget);
            // Parts that the toolkit makes are known by the whole.
            const bool isPart = widget->objectName().startsWith(u"qt_"_s)
                || isOneOf<QLineEdit, QAbstractSpinBox>(widget->parentWidget());
            if (!isNamed || isPart) {
                continue;
            }
            const QAccessibleInterface *const face = QAccessible::queryAccessibleInterface(widget);
            if (face == nullptr || face->text(QAccessible::Name).isEmpty()) {
                nameless += QString::fromLatin1(widget->metaObject()->className()) % u" in "
                    % QString::fromLatin1(widget->parentWidget()->metaObject()->className());
            }
        }
        QVERIFY2(nameless.isEmpty(), qPrintable(nameless.join(u',')));
    }

    void keyActsOnce()
    {
        WindowFixture fixture(PhantomSeries::make(Grid::Axial));
        QWidget floating(&fixture.window(), Qt::Tool);
        floating.setFocusPolicy(Qt::StrongFocus);
        floating.show();
        QWidgetList targets{
            fixture.slice(0).widget(), fixture.window().findChild<StudyTree *>(), &floating};
        for (const char *dialog : {"Help.Manual", "Help.ShortCuts", "Edit.Settings"}) {
            tool(dialog).setActive(true);
        }
        for (const auto *box : fixture.window().findChildren<QDialogButtonBox *>()) {
            targets += box->buttons().first();
        }
        QCOMPARE(targets.size(), 6);
        int changes = 0;
        const McHandle<NotificationWatch> watch(new NotificationWatch(
            {ExNotification::VIEWER_FLIPPED}, [&](const ExNotification &) { ++changes; }));
        for (QWidget *target : targets) {
            target->window()->activateWindow();
            target->setFocus();
            QTRY_COMPARE(QApplication::focusWidget(), target);
            for (int i = 0; i < 2; ++i) {
                QTest::keyClick(target->window()->windowHandle(), Qt::Key_H);
                QCOMPARE(std::exchange(changes, 0), 1);
            }
        }
    }

    void keysLeaveTextsAndDialogsAlone()
    {
        WindowFixture fixture(PhantomSeries::make(Grid::Axial));
        QLineEdit line(fixture.window().mainWindow()->centralWidget());
        line.show();
        line.setFocus();
        QTRY_COMPARE(QApplication::focusWidget(), &line);
        press(fixture, Qt::Key_H);
        QCOMPARE(line.text(), u"h"_s);
        QVERIFY(!fixture.slice(0).isFlipped(Qt::Horizontal));
        const NextDialog dialog([&](QWidget &box) {
            QTest::keyClick(box.windowHandle(), Qt::Key_H);
            QTest::keyClick(box.windowHandle(), Qt::Key_Escape);
        });
        WorkstationApplication::instance().propertyBrowser({}, {}, {}, true);
        QVERIFY(dialog.hasAppeared());
        QVERIFY(!fixture.slice(0).isFlipped(Qt::Horizontal));
    }

    void altOpensMenus()
    {
        WindowFixture fixture(PhantomSeries::make(Grid::Axial));
        for (const QAction *action : fixture.window().menuBar()->actions()) {
            const QString letter = action->text().section(u'&', 1).left(1).toUpper();
            press(fixture, static_cast<Qt::Key>(letter.at(0).unicode()), Qt::AltModifier);
            QVERIFY2(action->menu()->isVisible(), qPrintable(letter));
            action->menu()->close();
        }
    }

    void keyboardChoosesTheActiveViewer()
    {
        WindowFixture fixture(PhantomSeries::make(Grid::Axial));
        auto *const list = fixture.window().findChild<StudyTree *>();
        const auto isAt = [&](int i) {
            const WorkstationViewer *const viewer
                = fixture.workstation().viewers()[static_cast<std::size_t>(i)];
            return fixture.workstation().activeViewer() == viewer
                && QApplication::focusWidget() == viewer->widget();
        };
        // Then in a layout with other viewers: those that stay and those that come, in its order.
        for (const QString &layout : {u"2x2"_s, u"1+3"_s}) {
            QVERIFY(fixture.session().setLayoutByName(layout));
            list->setFocus();
            for (int i = 0; i < 4; ++i) {
                press(fixture, Qt::Key_Tab);
                QVERIFY2(isAt(i), qPrintable(QString::number(i)));
            }
        }
        press(fixture, Qt::Key_Backtab, Qt::ShiftModifier);
        QVERIFY(isAt(2));
        press(fixture, Qt::Key_F6);
        auto *const button = qobject_cast<QToolButton *>(QApplication::focusWidget());
        QVERIFY(button != nullptr && button->isEnabled());
        press(fixture, Qt::Key_F6);
        QCOMPARE(QApplication::focusWidget(), list);
        press(fixture, Qt::Key_F6);
        QVERIFY(isAt(2));
        press(fixture, Qt::Key_F6, Qt::ShiftModifier);
        QCOMPARE(QApplication::focusWidget(), list);
    }

    void invertedInLinkedViewers()
    {
        WindowFixture fixture(PhantomSeries::make(Grid::Axial));
        const auto greys = [&fixture] {
            QList<int> all;
            for (const int i : {0, 1}) {
                const SliceViewer &viewer = fixture.slice(i);
                const QPointF middle = viewer.positionOf(viewer.shownSlice().center());
                all += qGray(viewer.widget()->frame().pixel(middle.toPoint()));
            }
            return all + QList<int>{qGray(fixture.slice(0).widget()->frame().pixel(2, 2))};
        };
        const QList<int> before = greys();
        tool("View.Invert").setActive(true);
        fixture.settle();
        QCOMPARE(greys(), (QList<int>{255 - before[0], 255 - before[1], 0})); // 0: not the volume
        const auto &corners = fixture.slice(0).overlayContent().corners;
        QVERIFY(corners[OverlayContent::BottomRight].constFirst().endsWith(u"inverted"_s));
        tool("View.Reset").setActive(true);
        fixture.settle();
        QCOMPARE(greys(), before);
    }

    void flipped()
    {
        const std::tuple<bool, bool, const char *> rows[]
            = {// Across, down; the letters at the left, right, top, bottom
                {true, false, "LRAP"}, {false, true, "RLPA"}, {true, true, "LRPA"}};
        WindowFixture fixture(PhantomSeries::make(Grid::Axial));
        SliceViewer &viewer = fixture.slice(0);
        for (const auto &[across, down, letters] : rows) {
            viewer.scrollTo(PhantomSeries::ball);
            fixture.settle();
            const QImage before = viewer.widget()->frame();
            if (across) {
                tool("View.FlipHorizontal").setActive(true);
            }
            if (down) {
                tool("View.FlipVertical").setActive(true);
            }
            fixture.settle();
            QCOMPARE(viewer.widget()->frame(), before.mirrored(across, down));
            const OverlayContent content = viewer.overlayContent();
            QCOMPARE(QStringList(content.letters.begin(), content.letters.end()).join(QString()),
                QLatin1String(letters));
            QCOMPARE(content.warnings.contains(u"mirrored"_s), across != down);
            // Scrolling goes on in its direction, and what lies under a point is told rightly.
            const int index = viewer.sliceIndex();
            WindowFixture::wheel(viewer, -1);
            QCOMPARE(viewer.sliceIndex(), index + 1);
            const QPointF place = viewer.positionOf(PhantomSeries::ball);
            const McVec3d off = viewer.patientAt(place) - PhantomSeries::ball;
            QVERIFY(isNear(off.dot(viewer.shownSlice().right()), 0));
            QCOMPARE(place.x() < viewer.widget()->width() / 2.0, across);
            tool("View.Reset").setActive(true);
            QVERIFY(!viewer.isFlipped(Qt::Horizontal) && !viewer.isFlipped(Qt::Vertical));
        }
    }

    void cinePlaysAllPhases()
    {
        WindowFixture fixture(PhantomSeries::make(Grid::Axial, "phases", 3));
        KxPropertyPool::instance().find<int>("Cine.FramesPerSecond")->change(30);
        SliceViewer &viewer = fixture.slice(0);
        viewer.setZoom(3);
        QStringList log;
        const McHandle<NotificationWatch> watch(
            new NotificationWatch({ExNotification::CINE_START, ExNotification::CINE_STOP,
                                      ExNotification::TIMESERIES_CHANGED},
                [&](const ExNotification &notification) {
                    if (notification.viewer() == &viewer) {
                        log += notification.type() == ExNotification::TIMESERIES_CHANGED
                            ? QString::number(viewer.phase())
                            : QString::fromLatin1(ExNotification::Type2String(notification.type()));
                    }
                }));
        ExTool &cine = tool("Phase.Cine");
        cine.setActive(true);
        QTRY_VERIFY(log.size() >= 5);
        QVERIFY(cine.isActive());
        QCOMPARE(log.mid(0, 5), (QStringList{u"CINE_START"_s, u"1"_s, u"2"_s, u"0"_s, u"1"_s}));
        QCOMPARE(viewer.zoom(), 3.0); // The first phase is seen from where the last one was.
        viewer.setSeries(PhantomSeries::make(Grid::Axial, "other"));
        QVERIFY(!cine.isActive());
        QCOMPARE(log.constLast(), u"CINE_STOP"_s);
        QVERIFY(!cine.isEnabled(&viewer)); // It has one phase.
    }

    void pictureOfViewer()
    {
        WindowFixture fixture(PhantomSeries::make(Grid::Axial));
        const QString name = WindowFixture::settings().path("viewer.png");
        QDir folder;
        const auto saveAs = [&](const QString &file) {
            const NextDialog dialog([&](QWidget &box) {
                auto *const chooser = qobject_cast<QFileDialog *>(&box);
                if (chooser == nullptr) {
                    QTest::keyClick(&box, Qt::Key_Escape); // the message that it cannot be written
                    return;
                }
                folder = chooser->directory();
                chooser->findChild<QLineEdit *>()->setText(file);
                QMetaObject::invokeMethod(chooser, "accept");
            });
            tool("File.SaveViewer").setActive(true);
            return dialog.hasAppeared();
        };
        QVERIFY(saveAs(name));
        const QImage saved(name);
        QCOMPARE(saved.size(), fixture.slice(0).widget()->pixelSize());
        QCOMPARE(saved.convertToFormat(QImage::Format_RGB32),
            fixture.slice(0).widget()->grab().toImage().convertToFormat(QImage::Format_RGB32));
        QVERIFY(saveAs(WindowFixture::settings().path("second.png")));
        QCOMPARE(folder, QFileInfo(name).dir()); // Where the first one went.
    }
};

QTEST_MAIN(tst_Tools)
#include "tst_Tools.moc"
