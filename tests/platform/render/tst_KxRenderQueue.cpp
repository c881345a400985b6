#include "platform/render/KxCommonRenderer.h"
#include "platform/render/KxEngine.h"

#include <QTest>

#include <functional>
#include <memory>
#include <stdexcept>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

KxRenderQueue &queue()
{
    return KxEngine::instance().renderQueue();
}

class Renderer : public KxCommonRenderer
{
public:
    Renderer(const QString &name, QStringList &log, std::function<void()> whenDrawn = {})
        : m_name(name)
        , m_log(log)
        , m_whenDrawn(std::move(whenDrawn))
    { }

    void renderFrame() override
    {
        m_log.append(m_name);
        if (const auto act = m_whenDrawn) { // A copy: it may destroy this object.
            act();
        }
    }

private:
    QString m_name;
    QStringList &m_log;
    std::function<void()> m_whenDrawn;
};

} // namespace

class tst_KxRenderQueue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QObject::connect(
            &queue(), &KxRenderQueue::turnFinished, this, [this] { m_log.append(u"|"_s); });
    }

    void oneFrameForManyRequestsPreferredFirst()
    {
        Renderer a(u"a"_s, m_log);
        Renderer b(u"b"_s, m_log);
        Renderer c(u"c"_s, m_log);
        queue().request(nullptr);
        for (KxRenderer *preferred : std::initializer_list<KxRenderer *>{nullptr, &c, &b}) {
            queue().setPreferredRenderer(preferred);
            for (Renderer *renderer : {&b, &a, &b, &c, &a}) {
                renderer->requestRender();
            }
            m_log.append(drawn());
        }
        QCOMPARE(drawn(), u"b a c | c b a | b a c |"_s);
        queue().removeRequests(&b); // Nobody is preferred who has gone.
        QVERIFY(!queue().preferredRenderer());
        a.setBackgroundColor(0, 0, 0, 1); // What it has.
        QCOMPARE(queue().numRequests(), 0);
        a.setBackgroundColor(0, 1, 0, 1);
        queue().flush(); // Not from the event loop.
        QCOMPARE(drawn(), u"a |"_s);
    }

    void requestsInATurnAreDrawnInTheNext()
    {
        Renderer b(u"b"_s, m_log);
        Renderer c(u"c"_s, m_log);
        Renderer *self = nullptr;
        Renderer a(u"a"_s, m_log, [&] {
            if (Renderer *const again = std::exchange(self, nullptr)) {
                again->requestRender();
                again->requestRender();
                b.requestRender();
                c.requestRender();
                c.terminateRendering(); // Both the frame of this turn and that of the next.
            }
            QCoreApplication::processEvents(); // A nested loop: no turn within the turn.
            queue().flush();
            m_log.append(u"a'"_s);
        });
        self = &a;
        for (Renderer *renderer : {&a, &b, &c}) {
            renderer->requestRender();
        }
        QCOMPARE(drawn(), u"a a' b | a a' b |"_s);
    }

    void destroyedInATurn()
    {
        std::unique_ptr<Renderer> a;
        auto b = std::make_unique<Renderer>(u"b"_s, m_log);
        auto c = std::make_unique<Renderer>(u"c"_s, m_log);
        a = std::make_unique<Renderer>(u"a"_s, m_log, [&] {
            c.reset();
            a.reset();
        });
        queue().setPreferredRenderer(a.get());
        for (Renderer *renderer : {c.get(), a.get(), b.get()}) {
            renderer->requestRender();
        }
        QCOMPARE(drawn(), u"a b |"_s);
        QVERIFY(!queue().preferredRenderer());
    }

    void throwingRenderer()
    {
        Renderer a(u"a"_s, m_log, [] { throw std::runtime_error("a"); });
        Renderer b(u"b"_s, m_log);
        a.requestRender();
        b.requestRender();
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, queue().flush());
        QCOMPARE(drawn(), u"a b |"_s);
    }

    void inputComesFirst()
    {
        Renderer a(u"a"_s, m_log);
        a.requestRender();
        for (int i = 0; i < 3; ++i) {
            QMetaObject::invokeMethod(
                this, [this] { m_log.append(u"input"_s); }, Qt::QueuedConnection);
        }
        QCOMPARE(drawn(), u"input input input a |"_s);
    }

private:
    /// Draws what has been requested, and gives who was drawn, turns ended by "|".
    QString drawn()
    {
        while (queue().numRequests() > 0) {
            QCoreApplication::processEvents();
        }
        return std::exchange(m_log, {}).join(u' ');
    }

    QStringList m_log;
};

QTEST_GUILESS_MAIN(tst_KxRenderQueue)
#include "tst_KxRenderQueue.moc"
