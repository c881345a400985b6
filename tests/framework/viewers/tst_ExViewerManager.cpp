#include "platform/render/KxEngine.h"
#include "tests/support/Prelude.h"

class tst_ExViewerManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QVERIFY(!ExViewerManager::instancePointer());
        m_manager = std::make_unique<FakeViewerManager>();
        QCOMPARE(&ExViewerManager::getInstance(), m_manager.get());
        for (std::size_t i = 0; i < 3; ++i) {
            m_viewers.at(i) = new FakeViewer(u"abc"_s.mid(static_cast<qsizetype>(i), 1), &m_log);
            m_viewers.at(i)->makeWidget();
            m_viewers.at(i)->reusable = true;
            m_manager->add(m_viewers.at(i));
        }
        a = m_viewers[0];
        b = m_viewers[1];
        c = m_viewers[2];
    }
    void cleanup()
    {
        m_viewers = {};
        m_manager.reset(); // Held all that is left, the active one too.
        const QStringList log = std::exchange(m_log, {});
        QCOMPARE(log.filter(u"gone"_s), log);
    }

    void orderAndNames()
    {
        const auto names = [this]() -> QString {
            return a->renderWidget()->objectName() + u' ' + b->renderWidget()->objectName() + u' '
                + c->renderWidget()->objectName();
        };
        QCOMPARE(names(), u"RenderWidget_1 RenderWidget_2 RenderWidget_3"_s);
        m_manager->removeViewer(b);
        a->renderWidget()->setObjectName(u"RenderWidget_12_7"_s);
        QCOMPARE(names(), u"RenderWidget_12_7  RenderWidget_3"_s);
        m_manager->add(b);
        m_manager->add(nullptr);
        QCOMPARE(names(), u"RenderWidget_12_7 RenderWidget_13 RenderWidget_3"_s);
        m_manager->sortViewers(
            [](const auto &x, const auto &y) { return x->objectId() > y->objectId(); });
        QVERIFY(m_manager->numViewers() == 3 && m_manager->viewer(0) == c);
        QVERIFY(m_manager->viewerIndex(a) == 2 && m_manager->viewerIndex(nullptr) == -1);
        m_manager->sortViewers(
            [](const auto &x, const auto &y) { return x->objectId() - y->objectId(); });
        QVERIFY(m_manager->viewer(0) == a && m_manager->viewerIndex(c) == 2);
        m_log.clear();
    }

    void placing()
    {
        const McBox2f box(0, 0, 0.5F, 1);
        m_manager->addViewer(a, box, false);
        QCOMPARE(m_manager->screen.numWidgets(), 0);
        m_manager->addViewer(a, box, true);
        McBox2f placed;
        QVERIFY(m_manager->screen.getChildGeometry(a, placed) && placed == box);
        m_manager->removeViewer(a); // Was there three times.
        QCOMPARE(m_manager->screen.numWidgets() + m_manager->numViewers(), 2);
        m_log.clear();
    }

    void activeViewer()
    {
        QList<void *> told;
        const Recorder recorder(u"r"_s, m_log, {ExNotification::ACTIVE_VIEWER_CHANGED},
            [&](const ExNotification &notification) {
                told << notification.viewer() << notification.data();
                if (m_manager->activeViewer() == c) {
                    m_manager->setActiveViewer(a);
                }
            });
        KxEngine::instance().renderQueue().setPreferredRenderer(a);
        m_manager->setActiveViewer(nullptr);
        QVERIFY(!KxEngine::instance().renderQueue().preferredRenderer());
        m_log.append(u"-"_s);
        for (FakeViewer *viewer : {a, a, b, static_cast<FakeViewer *>(nullptr), c}) {
            m_manager->setActiveViewer(viewer);
        }
        QCOMPARE(std::exchange(m_log, {}).join(u", ").replace(u"r:ACTIVE_VIEWER_CHANGED"_s, u"r"_s),
            u"-, r, a activated, a activated, r, b activated, r, r, r, a activated, c activated"_s);
        const auto address = [](ExBaseViewer *viewer) -> void * { return viewer; };
        QCOMPARE(told,
            QList<void *>({address(a), nullptr, address(b), address(a), nullptr, address(b),
                address(c), nullptr, address(a), address(c)}));

        a->reusable = false;
        m_manager->removeViewer(a);
        m_viewers[0] = nullptr;
        QVERIFY(ExViewerManager::isActiveViewer(*a)); // Held as the active one.
        m_manager->setActiveViewer(b);
        QCOMPARE(std::exchange(m_log, {}).mid(1).join(u", "), u"a gone, b activated"_s);
    }

    void removing()
    {
        const Recorder recorder(u"r"_s, m_log, {ExNotification::CLEANUP});
        b->reusable = false;
        for (FakeViewer *viewer : {a, b}) {
            viewer->displaySet = "set";
            viewer->setBackgroundColor(1, 1, 1, 1);
            bus().notifyDelayed(ExNotification(ExNotification::CLEANUP, viewer));
            m_manager->removeViewer(viewer);
        }
        m_manager->removeViewer(nullptr);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::User + 1);
        QCOMPARE(std::exchange(m_log, {}).join(u", "), u"a putAside, r:CLEANUP"_s); // Of a only.
        QCOMPARE(a->displaySet + ',' + b->displaySet, std::string(",set"));
        QCOMPARE(a->backgroundColor(), (std::array{0.F, 0.F, 0.F, 1.F}));
        b->renderWidget()->setObjectName(u"RenderWidget_9"_s);
        m_manager->removeViewer(b); // Nobody of ours: only the name goes.
        QCOMPARE(b->renderWidget()->objectName(), QString());
    }

    void removingAllAndReuse()
    {
        const McHandle<FakeViewer> last(new FakeViewer(u"last"_s, &m_log));
        m_manager->add(last);
        a->preferred = true;
        c->type = static_cast<Ex::ViewerType>(2);
        m_manager->removeAllViewers();
        QCOMPARE(std::exchange(m_log, {}).join(u", "),
            u"last putAside final, c putAside, b putAside, a putAside"_s);
        QCOMPARE(m_manager->unusedViewer(FakeViewer::usualType), a);
        b->offScreen = true;
        QVERIFY(!m_manager->unusedViewer(FakeViewer::usualType));
        b->offScreen = false;
        QCOMPARE(m_manager->unusedViewer(FakeViewer::usualType), b);
        m_viewers = {};
        m_manager->deleteUnusedViewers();
        QCOMPARE(std::exchange(m_log, {}).join(u", "),
            u"a clearCachedImages, a takenBack, b clearCachedImages, b takenBack, a gone, b gone, c gone"_s);
    }

    void hooksOfAllViewers()
    {
        m_manager->removeViewer(c);
        b->requestRender();
        m_log.clear();
        m_manager->cleanupViewers();
        QVERIFY(!KxEngine::instance().renderQueue().isRequested(b));
        m_manager->clearCachedImages();
        // A hook may change the lists.
        a->onHook = [this] {
            a->onHook = nullptr;
            m_manager->removeAllViewers();
            m_manager->deleteUnusedViewers();
        };
        m_manager->reattachViewers();
        QCOMPARE(std::exchange(m_log, {}).join(u", "),
            u"a terminateRendering, b terminateRendering, a cleanUpNodes, b cleanUpNodes, "
            "b clearCachedImages, a clearCachedImages, c clearCachedImages, a reattach, "
            "b putAside, a putAside, b reattach, c reattach"_s);
    }

private:
    std::unique_ptr<FakeViewerManager> m_manager;
    QStringList m_log;
    std::array<McHandle<FakeViewer>, 3> m_viewers;
    FakeViewer *a = nullptr;
    FakeViewer *b = nullptr;
    FakeViewer *c = nullptr;
};

QTEST_MAIN(tst_ExViewerManager)
#include "tst_ExViewerManager.moc"
