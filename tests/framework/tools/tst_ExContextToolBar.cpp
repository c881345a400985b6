#include "framework/tools/ExContextToolBar.h"
#include "framework/tools/ExToolBar.h"
#include "tests/framework/tools/FakeTool.h"

#include <random>

namespace {

/// A tool with sub-tools.
class FakeToolOfTools : public FakeTool, public ExToolGroup
{
public:
    using FakeTool::FakeTool;
};

} // namespace

class tst_ExContextToolBar : public TestOfTools
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        setUp();
        m_context = std::make_unique<ExContextToolBar>();
        m_window = std::make_unique<QWidget>();
        m_window->resize(400, 300);
        m_context->attachTo(m_window.get(), Qt::BottomRightCorner);
        m_bar = m_window->findChild<ExToolBar *>();
        m_hint = m_window->findChild<QLabel *>(QString(), Qt::FindDirectChildrenOnly);
        m_measure = makeTool<FakeToolOfTools>("Measure");
        m_measure->appendTool(makeTool("Distance"), false);
        m_measure->appendTool(makeTool("Angle"), false);
    }

    void cleanup()
    {
        m_window.reset();
        m_context.reset();
        m_measure.reset();
        tearDown();
    }

    void attaching()
    {
        m_window->show();
        QVERIFY(!m_context->isVisible()); // There is nothing in it.
        m_context->appendSubTools(m_measure);
        QWidget other;
        m_context->attachTo(&other, Qt::TopLeftCorner);
        QVERIFY(m_bar->parent() == &other && m_hint->parent() == &other && !m_bar->isVisible());
        other.show();
        for (const QSize size : {QSize(400, 300), QSize(500, 200)}) {
            other.resize(size);
            QCOMPARE(m_bar->geometry(),
                QRect(QPoint(size.width() - 6, size.height() - 6), m_bar->sizeHint())
                    .translated(-m_bar->width(), -m_bar->height()));
        }
        m_context->setVisible(false);
        other.hide();
        other.show();
        m_context->detachFrom(m_window.get());
        QVERIFY(m_context->isVisible());
        m_context->detachFrom(&other);
        m_context->attachTo(&other, Qt::BottomRightCorner); // Still counts as attached.
        other.hide();
        other.show();
        m_context->setVisible(true);
        QCoreApplication::processEvents();
        QVERIFY(m_bar->parent() == nullptr && !m_bar->isVisible()); // No window of its own.
    }

    void showing()
    {
        m_context->appendSubTools(m_measure);
        m_context->setVisible(true); // Of no effect while the widget is hidden.
        m_window->show();
        m_context->setVisible(false);
        QCoreApplication::processEvents();
        QVERIFY(!m_context->isVisible());
        m_context->setVisible(true);
        QVERIFY(!m_context->isVisible());
        QTRY_VERIFY(m_context->isVisible());
        m_context->setVisible(false);
        m_context->setVisible(true);
        m_context->setVisible(false); // Takes the showing back.
        QCoreApplication::processEvents();
        QVERIFY(!m_context->isVisible());
        QVERIFY(QMetaObject::invokeMethod(m_context.get(), "delayedShow") && m_bar->isVisible());
    }

    void hints()
    {
        m_window->show();
        m_context->setDisplayHint(u"Click two points"_s);
        QVERIFY(!m_hint->isVisible());
        m_context->appendSubTools(m_measure);
        m_context->setVisible(true);
        QTRY_VERIFY(m_hint->isVisible());
        QCOMPARE(m_hint->geometry(),
            QRect(QPoint(m_bar->x(), m_bar->y() - 6 - m_hint->height()), m_hint->sizeHint()));
        m_context->setDisplayHint(QString());
        QVERIFY(!m_hint->isVisible() && m_context->isVisible());
        m_context->setDisplayHint(u"Click a third one"_s);
        QVERIFY(m_hint->isVisible());
    }

    void widgets()
    {
        m_window->show();
        auto slider = std::make_unique<QWidget>();
        const auto first = std::make_unique<QWidget>();
        const QPointer<QWidget> last = new QWidget;
        m_context->addWidget(slider.get());
        m_context->addWidget(slider.get());
        m_context->insertWidget(first.get(), -1);
        m_context->insertWidget(last, 9);
        QList<QWidget *> inBar;
        const QList<QAction *> actions = m_bar->actions();
        for (QAction *action : actions) {
            inBar.append(m_bar->widgetForAction(action));
        }
        QCOMPARE(inBar, QList<QWidget *>({first.get(), slider.get(), last}));
        m_context->removeWidget(slider.get());
        QVERIFY(slider->isHidden() && slider->parent() == nullptr);
        m_context->addWidget(slider.get()); // Can come back.
        QVERIFY(slider->isVisible() && m_context->isVisible());
        slider.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_context->removeWidget(first.get());
        m_context->removeWidget(last);
        QVERIFY(!m_context->isVisible()); // Nothing left.
        m_context->addWidget(last);
        m_context.reset();
        QVERIFY(last.isNull()); // Went with the bar that had it.
    }

    void subTools()
    {
        m_window->show();
        FakeTool *const plain = makeTool("Plain");
        auto *const areas = makeTool<FakeToolOfTools>("Areas");
        areas->appendTool(makeTool("Circle"), false);
        m_measure->appendTool(areas, false);
        m_measure->appendTool(plain, false);
        m_context->appendSubTools(m_measure);
        m_context->appendSubTools(m_measure);
        m_context->appendSubTools(McHandle<ExTool>(plain)); // Has none.
        QCOMPARE(names(m_bar->actions()), u"Distance Angle Areas Plain"_s);
        QCOMPARE(names(m_bar->actions().at(2)->menu()->actions()), u"Circle"_s);
        QVERIFY(m_bar->getTools().size() == 4 && !m_context->isVisible());
        m_measure->removeTool(m_measure->getTools().front()); // Stays on the bar.
        auto *const action = dynamic_cast<ExActionUI *>(plain->getUI());
        std::erase(m_app->actions, action);
        delete action;
        m_context->removeSubTools(m_measure);
        QCOMPARE(names(m_bar->actions()), u"Distance"_s);
        QVERIFY(m_bar->getTools().size() == 1 && m_context->isVisible());
        m_context->removeAll();
        QVERIFY(m_bar->actions().isEmpty() && m_bar->getTools().empty());
        m_context->appendSubTools(m_measure);
        QCOMPARE(names(m_bar->actions()), u"Angle Areas Plain"_s);
    }

    void attachedWidgetDies()
    {
        m_window->show();
        m_context->appendSubTools(m_measure);
        m_context->setDisplayHint(u"Hint"_s);
        auto *const inner = new QWidget(m_window.get());
        inner->show();
        m_context->attachTo(inner, Qt::BottomRightCorner);
        QVERIFY(m_context->isVisible());
        m_window = std::make_unique<QWidget>(); // Takes the inner one with it.
        QVERIFY(m_bar != nullptr && m_hint != nullptr && !m_context->isVisible());
        m_window->show();
        m_context->attachTo(m_window.get(), Qt::BottomRightCorner);
        QVERIFY(m_context->isVisible() && names(m_bar->actions()) == u"Distance Angle"_s);
    }

    void followsTheActiveViewer()
    {
        const McHandle<FakeViewer> a = viewerWithVolume();
        const McHandle<FakeViewer> b = viewerWithVolume();
        for (const McHandle<FakeViewer> &viewer : {a, b}) {
            viewer->makeWidget().show();
            m_manager->add(viewer);
        }
        QStringList log;
        const auto notePlace = [&] {
            const bool isInA = a->renderWidget()->findChild<ExToolBar *>() != nullptr;
            const bool isInB = b->renderWidget()->findChild<ExToolBar *>() != nullptr;
            log.append(isInA ? (isInB ? u"both"_s : u"a"_s) : (isInB ? u"b"_s : u"nowhere"_s));
        };
        const Recorder recorder(u"told"_s, log, {ExNotification::ACTIVE_VIEWER_CHANGED},
            [&](const ExNotification &notification) {
                notePlace();
                if (notification.viewer() == nullptr) {
                    m_manager->setActiveViewer(a);
                }
            });
        ExContextToolBar *const context = m_manager->contextToolBar();
        for (FakeViewer *viewer : {a.get(), b.get(), static_cast<FakeViewer *>(nullptr)}) {
            m_manager->setActiveViewer(viewer);
            notePlace();
        }
        m_manager->removeViewer(b);
        notePlace();
        context->appendSubTools(m_measure);
        context->setVisible(true);
        QTRY_VERIFY(context->isVisible());
        m_manager->removeViewer(a);
        notePlace();
        m_manager->setActiveViewer(b);
        m_manager->setActiveViewer(a); // The bar comes back to a widget that it had left.
        notePlace();
        m_manager->removeAllViewers();
        notePlace();
        QVERIFY(!context->isVisible());
        delete context;
        QVERIFY(m_manager->contextToolBar() != nullptr);
        QCOMPARE(log.filter(QRegularExpression(u"^(?!told)"_s)).join(u' '),
            u"nowhere a nowhere b nowhere nowhere a a nowhere nowhere nowhere a nowhere"_s);
    }

    void destructionInAnyOrder()
    {
        for (unsigned seed = 1; seed <= 60; ++seed) {
            takeLog();
            Scene scene;
            fill(scene);
            for (ExActionUI *action : std::exchange(m_app->actions, {})) {
                scene.menus.append(action->menu());
                scene.deeds.emplace_back([held = QPointer(action)] { delete held; });
            }
            std::mt19937 random(seed);
            std::shuffle(scene.deeds.begin(), scene.deeds.end(), random);
            for (const std::function<void()> &deed : scene.deeds) {
                deed();
                scene.use();
                if (random() % 2 == 0) {
                    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                }
            }
            QCOMPARE(takeLog().count(u" gone"_s), 5);
        }
    }

private:
    /// Tools, groups, bars and windows that know each other, and how each is destroyed.
    struct Scene
    {
        void use() const
        {
            for (const McHandle<FakeTool> &tool : tools) {
                if (tool) {
                    tool->setActive(!tool->isActive());
                }
            }
            for (QMenu *menu : menus) {
                if (menu != nullptr) {
                    Q_EMIT menu->aboutToShow();
                }
            }
            if (window) {
                window->resize(window->size() + QSize(1, 1));
            }
            if (context) {
                context->setDisplayHint(u"Hint"_s);
                context->setVisible(true);
            }
            QCoreApplication::processEvents();
        }

        std::vector<McHandle<FakeTool>> tools;
        std::unique_ptr<ExToolGroup> group;
        std::unique_ptr<QWidget> window;
        std::unique_ptr<ExContextToolBar> context;
        QList<QPointer<QMenu>> menus;
        std::vector<std::function<void()>> deeds;
    };
    void fill(Scene &scene)
    {
        auto *const outer = makeTool<FakeToolOfTools>("Outer");
        auto *const inner = makeTool<FakeToolOfTools>("Inner");
        scene.tools = {outer, inner, makeTool("Zoom"), makeTool("Pan"), makeTool("Window")};
        scene.group = std::make_unique<ExToolGroup>();
        scene.group->setBringUp(true);
        scene.group->setExclusive(true);
        for (std::size_t i = 2; i < scene.tools.size(); ++i) {
            inner->appendTool(scene.tools[i], false);
            scene.group->appendTool(scene.tools[i], i == 2);
        }
        outer->appendTool(inner, false);
        scene.window = std::make_unique<QWidget>();
        auto *const viewer = new QWidget(scene.window.get());
        scene.window->show();
        scene.context = std::make_unique<ExContextToolBar>();
        scene.context->attachTo(viewer, Qt::BottomRightCorner);
        scene.context->appendSubTools(McHandle<ExTool>(outer));
        auto *const first = new ExToolBar(scene.window.get());
        first->addToolPopup(*scene.group, nullptr);
        first->addTool(*scene.tools[2], false);
        auto *const second = new ExToolBar(u"Second"_s);
        second->addPopup(first);
        second->addToolPopup(*scene.group, nullptr);
        for (McHandle<FakeTool> &tool : scene.tools) {
            scene.deeds.emplace_back([&tool] { tool.reset(); });
        }
        for (QWidget *widget :
            std::initializer_list<QWidget *>{first, second, new ExToolBar(*first), viewer,
                viewer->findChild<ExToolBar *>(), viewer->findChild<QLabel *>()}) {
            scene.deeds.emplace_back([held = QPointer(widget)] { delete held; });
        }
        scene.deeds.emplace_back([&scene] { scene.group.reset(); });
        scene.deeds.emplace_back([&scene] { scene.window.reset(); });
        scene.deeds.emplace_back([&scene] { scene.context.reset(); });
    }

    std::unique_ptr<ExContextToolBar> m_context;
    QPointer<ExToolBar> m_bar;
    QPointer<QLabel> m_hint;
    McHandle<FakeToolOfTools> m_measure;
    std::unique_ptr<QWidget> m_window;
};

QTEST_MAIN(tst_ExContextToolBar)
#include "tst_ExContextToolBar.moc"
