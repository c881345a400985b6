#include "framework/editors/ExEditorFloater.h"
#include "framework/session/ExHangingProtocol.h"
#include "framework/tools/ExActionUI.h"
#include "framework/tools/ExHotKeys.h"
#include "tests/framework/editors/Panels.h"
#include "tests/framework/tools/FakeTool.h"

namespace {

int theCalls = 0;

ExEditor *makeNothing()
{
    ++theCalls;
    return nullptr;
}

ExEditor *makePanel()
{
    return new PanelEditor("given");
}

class ProtocolPanel : public QWidget, public ExEditor::ExSupportInterface
{
public:
    bool supports(const ExHangingProtocol *protocol) const override
    {
        return protocol->identifier == u"mine";
    }
};

} // namespace

class tst_ExEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(u"^(?!This plugin)"_s)); }
    void cleanup()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(QApplication::topLevelWidgets(), QWidgetList());
    }

    void registry()
    {
        PrivateSettings settings;
        QStringList names;
        for (const char *name : {"Two", "One", "", static_cast<const char *>(nullptr)}) {
            ExEditor::registerEditor(name, &makePanel);
        }
        ExEditor::registerEditor("None", &makeNothing);
        QVERIFY(ExEditor::getEditor("None") == nullptr && ExEditor::getEditor("None") == nullptr);
        QCOMPARE(theCalls, 2);
        const std::unique_ptr<ExEditor> one(ExEditor::getEditor("One"));
        QCOMPARE(ExEditor::getEditor("One"), one.get());
        QCOMPARE(one->name(), u"One"_s);
        ExEditor::registerEditor("One", &makePanel);
        const std::unique_ptr<ExEditor> another(ExEditor::getEditor("One"));
        QVERIFY(another != one);
        settings.setPolicy(R"({"deniedEditors": ["One"]})");
        one->setSupportedFlag(true);
        QVERIFY(ExEditor::getEditor("One") == nullptr && !one->supports(nullptr));
        ExEditor::getEditorList(names);
        QCOMPARE(names, QStringList({u"None"_s, u"Two"_s}));
        QVERIFY(ExEditor::getEditor("Unknown") == nullptr && ExEditor::getEditor("") == nullptr);

        // The panel of docs/write-an-editor.md.
        ExEditor::doInitCallbacks();
        const std::unique_ptr<ExEditor> notes(ExEditor::getEditor("Notes"));
        QVERIFY(notes->supports(nullptr));
        QCOMPARE(notes->windowTitle(), u"Notes"_s);
        ProtocolPanel panel;
        ExEditor own(&panel);
        own.setSupportedFlag(true);
        const ExHangingProtocol mine{u"mine"_s, {}, {}, {}};
        const ExHangingProtocol other{u"other"_s, {}, {}, {}};
        QVERIFY(own.supports(&mine) && !own.supports(&other));
    }

    void placesOfAnEditor()
    {
        QStringList log; // Outlives the panels, which tell of their end.
        Panels panels;
        const auto logged = [&log](const QString &what) {
            return [&log, what](ExEditor *editor, int subRegion) {
                log.append(what % editor->name() % QString::number(subRegion));
            };
        };
        QObject::connect(panels.region, &ExEditorRegion::editorAdded, this, logged(u"+"_s));
        QObject::connect(panels.region, &ExEditorRegion::editorRemoved, this, logged(u"-"_s));
        QObject::connect(panels.region, &ExEditorRegion::editorActivated, this, logged(u"!"_s));
        ExEditor &a = panels.a;
        const auto step = [&](const QString &state) {
            QCOMPARE(panels.state(), state);
            log.append(u"."_s);
        };
        panels.window.show();
        a.setAbsoluteFloatingGeometry({10, 20, 230, 240});
        a.setRelativeFloatingGeometry({0.25F, 0.5F, 0.75F, 1});
        QVERIFY(a.show(true));
        const QPointer<QWidget> floater = a.floater();
        const QRect area = panels.window.screen()->availableGeometry();
        QCOMPARE(floater->geometry().left(), area.left() + qRound(area.width() * 0.25));
        QCOMPARE(floater->size(), QSize(area.width() / 2, area.height() / 2));
        QVERIFY(a.show(true) && a.floater() == floater);
        step(u"B* | C* |  ~A"_s);
        floater->setGeometry(50, 60, 300, 200);
        floater->close();
        step(u"B A* | C* | "_s);
        a.show(true);
        QCOMPARE(a.floater()->geometry(), QRect(50, 60, 300, 200)); // Where the user left it.
        QVERIFY(a.show(false));
        step(u"B A* | C* | "_s);
        QVERIFY(panels.region->closeEditor(&a) && !panels.region->closeEditor(&a));
        QVERIFY(!a.show(false) && a.editorContainer() == nullptr);
        step(u"B* | C* |  -A"_s);
        a.show(true);
        const QPointer<QWidget> left = a.floater();
        a.dockFloater(false);
        QVERIFY(left != nullptr && left->isVisible());
        QTRY_VERIFY(left == nullptr);
        step(u"B A* | C* | "_s);
        QVERIFY(panels.region->addEditor(&panels.c, 0)); // Empties the second one.
        QVERIFY(panels.region->editorContainer(1)->isHidden());
        QVERIFY(!panels.region->addEditor(&panels.c, 3) && !panels.region->addEditor(nullptr, 0));
        step(u"B A* C |  | "_s);
        a.show(true);
        a.reset();
        step(u"B C* |  |  -A"_s);
        QVERIFY(!a.show(false) && a.editorRegion() == nullptr && a.takeWidget() == panels.a.panel);
        QCOMPARE(log.join(u' '),
            u"-A0 !B0 . +A0 !A0 . -A0 !B0 +A0 !A0 . -A0 !B0 . +A0 !A0 . -C1 +C0 . -A0 !C0 ."_s);
    }

    void minimumSize()
    {
        Panels panels;
        QCOMPARE(panels.a.minimumSize(Qt::Horizontal), 50);
        QCOMPARE(panels.a.minimumSize(Qt::Vertical), 200);
        QCOMPARE(ExEditor(nullptr).minimumSize(Qt::Vertical), 0);
        QSignalSpy spy(panels.region, &ExEditorRegion::minimumSizeChanged);
        const int before = panels.region->minimumHeight();
        panels.region->removeEditor(&panels.a, 0); // Not the highest one.
        QCOMPARE(spy.size(), 0);
        panels.region->removeEditor(&panels.c, 1);
        QCOMPARE(spy.size(), 1);
        QCOMPARE(before - panels.region->minimumHeight(), 30);
    }

    void deaths()
    {
        auto panels = std::make_unique<Panels>();
        panels->a.show(true);
        delete panels->b.panel;
        QCOMPARE(panels->state(), u" | C* |  ~A"_s);
        QVERIFY(!panels->b.show(false));
        delete panels->a.panel; // In its window.
        QCOMPARE(panels->state(), u" | C* | "_s);
        {
            PanelEditor brief("brief");
            panels->region->addEditor(&brief, 1);
            PanelEditor closed("closed");
            panels->region->addEditor(&closed, 1);
            panels->region->closeEditor(&closed);
            PanelEditor floating("floating");
            panels->region->addEditor(&floating, 2);
            floating.show(true);
        }
        QCOMPARE(panels->state(), u" | C* | "_s);
        QVERIFY(panels->region->closedEditors().isEmpty());
        QWidget *const elsewhere = new QWidget(&panels->window);
        panels->c.panel->setParent(elsewhere); // Taken away by its owner.
        QCOMPARE(panels->state(), u" |  | "_s);
        panels.reset();
        panels = std::make_unique<Panels>();
        panels->a.show(true);
        panels->region->closeEditor(&panels->c);
        delete panels->region;
        QCOMPARE(panels->state(), u" ~A -A -B -C"_s);
        panels->a.floater()->close(); // With nowhere to go.
        QVERIFY(
            panels->a.panel != nullptr && panels->b.panel != nullptr && !panels->a.isFloating());
        auto window = std::make_unique<QWidget>(); // Window and floating window go together.
        panels->application.mainWidget = window.get();
        auto *const region = new ExEditorRegion(Qt::Vertical, 1, window.get());
        region->addEditor(&panels->a, 0);
        panels->a.show(true);
        window.reset();
        QVERIFY(panels->a.panel != nullptr && !panels->a.isFloating() && panels->a.isDisabled());
    }

    void fewerSubRegions()
    {
        class Choosy final : public ExEditorRegion
        {
        public:
            using ExEditorRegion::ExEditorRegion;
            [[nodiscard]] bool acceptsEditor(const ExEditor & /*editor*/, int place) const override
            {
                return place == 1;
            }
        };
        Panels panels;
        Choosy choosy(Qt::Vertical, 2, &panels.window);
        QVERIFY(choosy.addEditor(&panels.a, 1));
        choosy.setSubRegionCount(1); // Its own widget is not the region's to destroy.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(panels.a.panel != nullptr);
        QCOMPARE(panels.a.subRegionIndex(), 0);
        panels.region->setSubRegionCount(1);
        QCOMPARE(panels.state(), u"B* C"_s);
    }

    void savedLayout()
    {
        Panels panels;
        panels.window.show();
        panels.region->setSubRegionCount(2);
        panels.region->activateEditor(&panels.b, 0);
        panels.c.setAbsoluteFloatingGeometry({70, 80, 300, 200});
        panels.c.show(true);
        panels.region->closeEditor(&panels.a);
        const QByteArray saved = panels.region->saveLayout();
        panels.region->setSubRegionCount(4);
        panels.region->addEditor(&panels.c, 3);
        panels.region->showEditor(&panels.a);
        panels.region->addEditor(&panels.b, 2);
        const QString before = panels.state();
        QByteArray other = saved;
        for (const QByteArray &damaged : {QByteArray(), saved.left(saved.size() - 3), saved.mid(1),
                 other.replace("\"version\":1", "\"version\":2"),
                 QByteArray(saved).replace("\"B\"]", "\"B\",\"A\"]"),
                 QByteArray(saved).replace("70|80", "70|x"),
                 QByteArray(saved).replace("70|80", "-2147483648|80"),
                 QByteArray(saved).replace("\"subRegion\":1", "\"subRegion\":2")}) {
            QVERIFY(!panels.region->restoreLayout(damaged));
            QCOMPARE(panels.state(), before);
        }
        const QByteArray unknown = QByteArray(saved).replace("[\"B\"", "[\"Gone\",\"B\"");
        QVERIFY(unknown != saved && panels.region->restoreLayout(unknown));
        QCOMPARE(panels.state(), u"B* |  -A ~C"_s);
        QCOMPARE(panels.c.floater()->geometry(), QRect(70, 80, 300, 200));
        QCOMPARE(panels.region->saveLayout(), saved);
        const QByteArray far = QByteArray(saved).replace("70|80", "99970|80");
        QVERIFY(far != saved && panels.region->restoreLayout(far)); // That screen is gone.
        QCOMPARE(panels.c.floater()->geometry(), QRect(70, 80, 300, 200));
    }

    void menus()
    {
        QPixmap icon(16, 16);
        icon.fill(Qt::red);
        QGuiApplication::setWindowIcon(icon);
        Panels panels;
        panels.b.panel->setWindowIcon(icon);
        const ExEditorContainer &tabs = *panels.region->editorContainer(0);
        QVERIFY(tabs.tabIcon(0).isNull() && !tabs.tabIcon(1).isNull());
        QGuiApplication::setWindowIcon({});
        panels.a.panel->setWindowTitle(u"Alpha"_s);
        panels.window.show();
        panels.region->closeEditor(&panels.c);
        QStringList log;
        QObject::connect(panels.region, &ExEditorRegion::aboutToShowOptions, this,
            [](ExEditorRegion *, int, QMenu *menu) { menu->addAction(u"Mine"_s); });
        QObject::connect(panels.region, &ExEditorRegion::optionActivated, this,
            [&log](ExEditorRegion *, int subRegion, QAction *action) {
                log.append(action->text() % QString::number(subRegion));
            });
        const auto choose = [&](const QString &entry) {
            auto *const button = panels.region->editorContainer(0)->cornerWidget();
            QTest::mouseClick(button, Qt::LeftButton);
            auto *const menu = panels.region->findChild<QMenu *>({}, Qt::FindDirectChildrenOnly);
            for (QAction *action : menu->findChildren<QAction *>()) {
                if (action->text() == entry) {
                    action->trigger();
                }
            }
            menu->close();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        };
        choose(u"Mine"_s);
        choose(u"C"_s); // Shown again.
        QCOMPARE(panels.state(), u"A* B | C* | "_s);
        choose(u"Area 3"_s);
        QCOMPARE(panels.state(), u"B* | C* | A*"_s);
        choose(u"&Close"_s);
        QCOMPARE(panels.state(), u" | C* | A* -B"_s);
        QCOMPARE(log, QStringList{u"Mine0"_s});

        const McHandle<FakeTool> tool(new FakeTool("Zoom"));
        panels.application.decorations.entries[u"Zoom"_s] = {};
        const std::unique_ptr<ExActionUI> action(ExActionUI::createAction(*tool));
        ExHotKeys::setHotKey(tool, QKeySequence(Qt::Key_Z));
        panels.a.show(true);
        QCOMPARE(panels.a.floater()->windowTitle(), u"Alpha"_s);
        QCOMPARE(panels.a.floater()->actions(), QList<QAction *>{action.get()});
        QTimer::singleShot(0, this, [] {
            QWidget *const menu = QApplication::activePopupWidget();
            menu->actions().constFirst()->trigger();
            menu->close();
        });
        QMetaObject::invokeMethod(
            &panels.a, "slotCustomContextMenuRequested", Q_ARG(QPoint, QPoint(1, 1)));
        QCOMPARE(panels.application.log, QStringList{u"help Toolcard.A"_s});
    }
};

QTEST_MAIN(tst_ExEditor)
#include "tst_ExEditor.moc"
