#include "framework/tools/ExPopupUI.h"
#include "framework/tools/ExToolBar.h"
#include "framework/tools/SpacerWidget.h"
#include "platform/toolkit/QxStyleFactory.h"
#include "tests/framework/tools/FakeTool.h"
#include "tests/support/FakeApplication.h"
#include "tests/support/FakeViewerManager.h"
#include "tests/support/PrivateSettings.h"

#include <QHoverEvent>
#include <QMenu>
#include <QTemporaryFile>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <cstdio>
#include <memory>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// Tools by their keys, "-" for what is no tool's action.
QString keys(const QWidget &widget)
{
    QStringList all;
    const QList<QAction *> actions = widget.actions();
    for (const QAction *action : actions) {
        const auto *const toolAction = qobject_cast<const ExActionUI *>(action);
        all.append(toolAction == nullptr ? u"-"_s : toolAction->objectName());
    }
    return all.join(u' ');
}

/// Texts of the next menu to open, which it closes.
class NextMenu
{
public:
    NextMenu()
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
        m_timer.start(0);
    }
    QString texts = u"none"_s;

private:
    void look()
    {
        if (QWidget *const popup = QApplication::activePopupWidget()) {
            m_timer.stop();
            QStringList all;
            const QList<QAction *> actions = popup->actions();
            for (const QAction *action : actions) {
                all.append(action->isSeparator() ? u"-"_s : action->text());
            }
            texts = all.join(u'|');
            popup->close();
        }
    }

    QTimer m_timer;
};

/// What a function prints to the standard output.
template <typename Function>
QByteArray printed(Function function)
{
    QTemporaryFile file;
    if (!file.open()) {
        return "no file";
    }
    std::fflush(stdout);
    const int before = dup(STDOUT_FILENO);
    dup2(file.handle(), STDOUT_FILENO);
    function();
    std::fflush(stdout);
    dup2(before, STDOUT_FILENO);
    close(before);
    file.seek(0);
    return file.readAll();
}

/// The first pixel of a button's icon, as the action shows it when it is enabled.
QColor face(const QAction &action)
{
    return action.icon().pixmap(QSize(32, 32)).toImage().pixelColor(0, 0);
}

QIcon plain(const QColor &color)
{
    QPixmap pixmap(32, 32);
    pixmap.fill(color);
    return pixmap;
}

} // namespace

class tst_ExToolBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_app = std::make_unique<FakeApplication>();
        m_manager = std::make_unique<FakeViewerManager>();
        takeLog();
    }

    void cleanup()
    {
        qDeleteAll(std::exchange(m_app->actions, {}));
        m_manager.reset();
        m_app.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(QApplication::topLevelWidgets(), QWidgetList());
    }

    void states()
    {
        QWidget window;
        ExToolBar bar(&window);
        QVERIFY(
            bar.isHidden() && !bar.isToolBarVisible() && !bar.customDefined() && bar.getBringUp());
        QCOMPARE(bar.initialState(), static_cast<Ex::ToolBarState>(2));
        QCOMPARE(bar.iconSize(), QSize(32, 32));
        bar.show();
        QVERIFY(bar.isToolBarVisible() && !bar.isVisible()); // The window is not shown.
        QHoverEvent move(QEvent::HoverMove, {50, 5}, {50, 5}, {49, 5});
        bar.unsetCursor();
        QCoreApplication::sendEvent(&bar, &move);
        QVERIFY(bar.testAttribute(Qt::WA_SetCursor) && bar.cursor().shape() == Qt::ArrowCursor);
    }

    void copies()
    {
        ExToolBar bar(u"Measure"_s);
        bar.setToolButtonStyle(Qt::ToolButtonTextOnly);
        bar.setCustomDefined(true);
        ExActionUI *const zoom = bar.addTool(*makeTool(u"Zoom"_s), false);
        bar.addSpacer(7);
        const ExToolBar copy(bar);
        QCOMPARE(QStringList({copy.windowTitle(), copy.objectName(), copy.toolTip(), keys(copy)}),
            QStringList({u"Measure"_s, u"Measure"_s, u"Measure"_s, u"Zoom -"_s}));
        QVERIFY(copy.toolButtonStyle() == Qt::ToolButtonTextOnly && copy.customDefined());
        QCOMPARE(button(copy, zoom)->contextMenuPolicy(), Qt::CustomContextMenu);
        const auto *const spacer
            = qobject_cast<SpacerWidget *>(copy.widgetForAction(copy.actions().constLast()));
        QVERIFY(spacer != nullptr && spacer->minimumWidth() == 7);
        QCOMPARE(copy.getTools().size(), std::size_t(0)); // No second address of the bar's group.
        QVERIFY(!ExToolBar(static_cast<const QToolBar &>(QToolBar(u"x"_s))).customDefined());
    }

    void colors()
    {
        QxStyleFactory &factory = QxStyleFactory::instance();
        const ExToolBar bar(u"Bar"_s);
        factory.setUserDefinedColor("KORVATE_ExToolBarBackground", Qt::red);
        factory.setUserDefinedColor("HALDO_ViewerControlArrow", Qt::green);
        factory.setUserDefinedColor("HALDO_BackViolet", Qt::blue);
        using P = QPalette;
        const QList<P::ColorRole> roles{P::Window, P::Base, P::Button, P::Light, P::Shadow, P::Mid};
        QList<QColor> shown;
        for (const P::ColorRole role : roles) {
            shown.append(bar.palette().color(role));
        }
        QCOMPARE(
            shown, QList<QColor>({Qt::red, Qt::blue, Qt::blue, Qt::green, Qt::green, Qt::green}));
        for (const char *const key :
            {"KORVATE_ExToolBarBackground", "HALDO_ViewerControlArrow", "HALDO_BackViolet"}) {
            factory.setUserDefinedColor(key, {});
        }
        QCOMPARE(bar.palette(), QToolBar().palette());
    }

    void addingAndRemoving()
    {
        ExToolBar bar(u"Bar"_s);
        FakeTool *const zoom = makeTool(u"Zoom"_s);
        ExActionUI *const action = bar.addTool(*zoom, true);
        bar.addTool(*makeTool(u"Pan"_s), false);
        QVERIFY(bar.getToolBarFixed(*zoom) && button(bar, action)->accessibleName() == u"Zoom"_s);
        action->setText(u"A && &B"_s);
        QCOMPARE(button(bar, action)->accessibleName(), u"A & B"_s);
        const McHandle<FakeTool> foreign = makeTool(u"Foreign"_s);
        FakeUI ui;
        ui.setTool(foreign);
        QCOMPARE(bar.addTool(*foreign, false), nullptr);
        QCOMPARE(bar.getTools().size(), std::size_t(2));
        bar.removeActionUI(action);
        bar.removeActionUI(nullptr);
        QCOMPARE(keys(bar), u"Pan"_s);
        QVERIFY(bar.getTools().size() == 1 && zoom->getUI() == action); // Only off the bar.
    }

    void spacers()
    {
        ExToolBar bar(u"Bar"_s);
        bar.addSpacer(12);
        const QWidget *const spacer = bar.widgetForAction(bar.actions().constFirst());
        QCOMPARE(spacer->minimumSize(), QSize(12, 0));
        bar.setOrientation(Qt::Vertical);
        QCOMPARE(spacer->minimumSize(), QSize(0, 12));
        bar.setOrientation(Qt::Horizontal);
        QCOMPARE(spacer->minimumSize(), QSize(12, 0));
    }

    void popupShowsTheLastActivated()
    {
        ExToolBar measure(u"Measure"_s);
        ExToolBar bar(u"Bar"_s);
        FakeTool *const distance = makeTool(u"Distance"_s);
        FakeTool *const angle = makeTool(u"Angle"_s);
        for (FakeTool *tool : {distance, angle}) {
            measure.addTool(*tool, false);
        }
        measure.setExclusive(true);
        const McHandle<FakeViewer> viewer = viewerWithVolume();
        m_manager->add(viewer);
        m_manager->setActiveViewer(viewer);
        bar.addPopup(&measure);
        bar.addPopup(nullptr);
        QCOMPARE(keys(bar), u"Distance"_s);
        auto *const popup = dynamic_cast<ExPopupUI *>(measure.getGroupUI());
        QVERIFY(popup != nullptr && popup == bar.actions().constFirst());
        QCOMPARE(QString(popup->menu()->objectName() % u": " % keys(*popup->menu())),
            u"Measure: Distance Angle"_s);
        QCOMPARE(button(bar, popup)->popupMode(), QToolButton::MenuButtonPopup);
        takeLog();
        bar.show();
        QTest::mouseClick(button(bar, popup), Qt::LeftButton, {}, {4, 4});
        QVERIFY(distance->isActive() && popup->isChecked());
        angle->setActive(true);
        QVERIFY(keys(bar) == u"Angle"_s && popup->isChecked() && !distance->isActive());
        QTest::mouseClick(button(bar, popup), Qt::LeftButton, {}, {4, 4});
        QVERIFY(!angle->isActive() && !popup->isChecked());
        QCOMPARE(takeLog(), u"Distance on,Angle off,Angle on,Distance off,Angle off"_s);

        measure.setUseInstantPopup(true);
        const QPointer<QMenu> menu = popup->menu();
        QCOMPARE(bar.addToolPopup(measure, angle), popup); // The group has its button already.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(menu.isNull() && button(bar, popup)->popupMode() == QToolButton::InstantPopup);
        NextMenu next;
        angle->enabled = false;
        viewer->imageSets[0].reset();
        QTest::mouseClick(button(bar, popup), Qt::LeftButton, {}, {4, 4});
        QCOMPARE(next.texts, u"&Distance|&Angle"_s);
        QVERIFY(!ExActionUI::createAction(*angle)->isEnabled()); // Up to date when the menu opens.
    }

    void popupOfOneTool()
    {
        ExToolBar bar(u"Bar"_s);
        ExToolGroup group;
        QCOMPARE(bar.addToolPopup(group, nullptr), nullptr);
        QCOMPARE(keys(bar), QString());
        FakeTool *const pan = makeTool(u"Pan"_s);
        QVERIFY(bar.addToolPopup(group, pan)->menu() == nullptr && group.getGroupUI() == nullptr);
        FakeTool *const zoom = makeTool(u"Zoom"_s);
        group.appendTool(zoom, false);
        group.appendTool(pan, false);
        ExActionUI *const action = bar.addToolPopup(group, zoom);
        QVERIFY(action == zoom->getUI() && action == group.getGroupUI());
        QCOMPARE(QString(keys(bar) % u": " % keys(*action->menu())), u"Pan Zoom: Zoom Pan"_s);
        QVERIFY(!action->menu()->actions().contains(action)); // A menu in itself would never end.
        std::erase(m_app->actions, action);
        delete action;
        QCOMPARE(group.getGroupUI(), nullptr);
        pan->setActive(true);
    }

    void clickWhereTheToolCannotBeUsed()
    {
        ExToolBar bar(u"Bar"_s);
        ExToolGroup group;
        group.setBringUp(true);
        FakeTool *const zoom = makeTool(u"Zoom"_s);
        FakeTool *const print = makeTool(u"Print"_s);
        group.appendTool(zoom, false);
        group.appendTool(print, false);
        ExActionUI *const popup = bar.addToolPopup(group, nullptr);
        const QColor usable = face(*popup);
        bar.show();
        for (FakeTool *tool : {zoom, print}) { // A toggle, then a command.
            tool->activatable = tool == zoom;
            popup->setTool(tool);
            tool->enabled = false;
            tool->updateUI(nullptr);
            QVERIFY(popup->isEnabled() && face(*popup) != usable);
            for (const bool underThePointer : {true, false}) {
                const QRect place(button(bar, popup)->mapToGlobal(QPoint()), QSize(8, 8));
                QCursor::setPos(underThePointer ? place.center() : QPoint(700, 500));
                NextMenu next;
                QTest::mouseClick(button(bar, popup), Qt::LeftButton, {}, {4, 4});
                QCOMPARE(next.texts, u"&Zoom|&Print"_s);
                QVERIFY(!popup->isChecked() && !button(bar, popup)->isChecked());
            }
            QCOMPARE(takeLog(), QString());
            tool->enabled = true;
            tool->updateUI(nullptr);
            QCOMPARE(face(*popup), usable);
        }
    }

    void contextMenu_data()
    {
        QTest::addColumn<QString>("shown"); // p: the tool has settings, i: identification, h: help
        QTest::addColumn<bool>("hidesProperties");
        QTest::addColumn<QString>("expected");
        QTest::newRow("nothing") << u""_s << false << u"none"_s;
        QTest::newRow("properties") << u"p"_s << false << u"Properties..."_s;
        QTest::newRow("hidden properties") << u"ph"_s << true << u"Help..."_s;
        QTest::newRow("all") << u"pih"_s << false << u"Properties...|-|Zoom\tCtrl+Z|-|Help..."_s;
        QTest::newRow("identification") << u"i"_s << false << u"Zoom\tCtrl+Z"_s;
    }

    void contextMenu()
    {
        QFETCH(QString, shown);
        QFETCH(bool, hidesProperties);
        QFETCH(QString, expected);
        ExToolBar bar(u"Bar"_s);
        FakeTool *const zoom = makeTool(u"Zoom"_s);
        m_app->decorations.entries[u"Zoom"_s].shortCut = u"Ctrl+Z"_s;
        if (shown.contains(u'p')) {
            zoom->addPropertyKey(QRegularExpression(u"^Zoom"_s));
        }
        m_app->hidesProperties = hidesProperties;
        m_app->showsIdentification = shown.contains(u'i');
        m_app->hasNoHelp = !shown.contains(u'h');
        ExToolGroup group;
        group.appendTool(zoom, false);
        ExActionUI *const popup = bar.addToolPopup(group, nullptr);
        QMenu *const menu = popup->menu();
        menu->resize(menu->sizeHint());
        for (QWidget *widget :
            {static_cast<QWidget *>(button(bar, popup)), static_cast<QWidget *>(menu)}) {
            NextMenu next;
            Q_EMIT widget->customContextMenuRequested(
                menu->actionGeometry(zoom->getUI()->action()).center());
            QCOMPARE(next.texts, expected);
        }
        NextMenu next;
        Q_EMIT menu->customContextMenuRequested({-1, -1}); // No tool there.
        QCOMPARE(next.texts, u"none"_s);
    }

    void description()
    {
        ExToolBar bar(u"A <b> & \"c\""_s);
        bar.setObjectName(u"Bar"_s);
        for (const QString &key : {u"Zoom"_s, u"Pan"_s}) {
            bar.addTool(*makeTool(key), false);
        }
        bar.addSpacer(4);
        QCOMPARE(printed([&bar] { bar.dump(); }),
            QByteArray("    <ToolBar Id=\"Bar\" Label=\"A &lt;b&gt; &amp; &quot;c&quot;\">\n"
                       "        <Tool Id=\"Zoom\" />\n"
                       "        <Tool Id=\"Pan\" />\n"
                       "    </ToolBar>\n"));
    }

private:
    FakeTool *makeTool(const QString &key)
    {
        m_app->decorations.entries[key] = {{}, u'&' % key, u'&' % key, {}, plain(Qt::red)};
        auto *const tool = new FakeTool(key.toLatin1().constData());
        tool->enabled = true;
        return tool;
    }
    static QToolButton *button(const ExToolBar &bar, QAction *action)
    {
        return qobject_cast<QToolButton *>(bar.widgetForAction(action));
    }

    PrivateSettings m_settings;
    std::unique_ptr<FakeApplication> m_app;
    std::unique_ptr<FakeViewerManager> m_manager;
};

QTEST_MAIN(tst_ExToolBar)
#include "tst_ExToolBar.moc"
