#include "tests/support/Prelude.h"

#include <atomic>
#include <thread>

namespace {

using enum ExNotification::Type;
constexpr int numThreads = 4;
constexpr int numPerThread = 2000;

/// Addresses that stand for viewers and payloads.
std::array<char, std::size_t{numThreads} * numPerThread> addresses;

ExBaseViewer *viewer(int i)
{
    return reinterpret_cast<ExBaseViewer *>(&addresses.at(static_cast<std::size_t>(i)));
}

ExNotification note(int data, ExBaseViewer *concerned = nullptr)
{
    return {CLEANUP, concerned, nullptr, &addresses.at(static_cast<std::size_t>(data))};
}

int dataOf(const ExNotification &notification)
{
    return static_cast<int>(static_cast<char *>(notification.data()) - addresses.data());
}

} // namespace

class tst_DeferredNotifications : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        bus().deleteAllTools();
        QCoreApplication::sendPostedEvents();
        m_seen.clear();
        m_events = 0;
        m_recorder = std::make_unique<Recorder>(QString(), m_log, std::vector{CLEANUP},
            [this](const ExNotification &notification) { m_seen.append(dataOf(notification)); });
    }
    void initTestCase() { QCoreApplication::instance()->installEventFilter(this); }

    void mergedAtTheEarlierPlaceWithAnEventEach()
    {
        post({note(1), note(2), note(1), note(3, viewer(1)), note(3), note(3, viewer(1))});
        bus().notifyDelayed(RIS_ERROR);
        QCOMPARE(m_seen, QList<int>());
        QCOMPARE(delivered(), QList<int>({1, 2, 3, 3}));
        QCOMPARE(m_events, 7);
        bus().notifyDelayed(note(1)); // New again.
        QCOMPARE(delivered(), QList<int>({1, 2, 3, 3, 1}));
    }

    void manyKeepTheirOrderWhenAViewersAreRemoved()
    {
        QList<int> expected;
        for (const int parity : {0, 1}) {
            for (int i = parity; i < 3000; i += 2) {
                expected.append(i);
            }
        }
        for (int round = 0; round < 3; ++round) {
            for (int i = 0; i < 3000; ++i) {
                bus().notifyDelayed(note(i, viewer(i % 2)));
            }
            if (round == 1) {
                bus().removeDelayedNotifications(viewer(1)); // They come back at the end.
                bus().removeDelayedNotifications(viewer(2));
                bus().removeDelayedNotifications(nullptr);
            }
        }
        QCOMPARE(delivered(), expected);
    }

    void removedWithoutViewerAndLostWhileBlocked()
    {
        post({note(1), note(2, viewer(2))});
        bus().removeDelayedNotifications(nullptr);
        QCOMPARE(delivered(), QList<int>({2}));
        bus().blockNotifications(true);
        bus().notifyDelayed(note(3));
        QCoreApplication::sendPostedEvents();
        bus().notifyDelayed(note(4));
        bus().blockNotifications(false);
        QCOMPARE(delivered(), QList<int>({2, 4}));
        QCOMPARE(m_events, 4);
    }

    void publishingAndResettingInsideTheDeferredDelivery()
    {
        const Recorder publisher(QString(), m_log, {CLEANUP}, [this](const ExNotification &n) {
            if (dataOf(n) == 1) {
                bus().notifyDelayed(note(2)); // Comes after all that waited, though one equals it.
                bus().notify(note(5));
            } else if (dataOf(n) == 3) {
                bus().deleteAllTools();
                bus().addNotification(m_recorder.get(), CLEANUP);
            }
        });
        post({note(1), note(2)});
        QCOMPARE(delivered(), QList<int>({1, 5, 2, 2}));
        post({note(3), note(4)});
        QCOMPARE(delivered(), QList<int>({1, 5, 2, 2, 3}));
    }

    void viewersThatGoMeanwhile()
    {
        McHandle<FakeViewer> going(new FakeViewer);
        const Recorder destroyer(QString(), m_log, {CLEANUP}, [&going](const ExNotification &n) {
            if (dataOf(n) == 1) {
                post({note(2, going), note(5)});
                going.reset();
            }
        });
        post({note(1), note(3, going), note(4), note(5), note(6, going)});
        QCOMPARE(delivered(), QList<int>({1, 4, 5, 5}));
    }

    void fromManyThreads()
    {
        for (const bool resets : {false, true}) {
            init();
            std::atomic<int> running = numThreads;
            std::vector<std::jthread> threads;
            for (int thread = 0; thread < numThreads; ++thread) {
                threads.emplace_back([thread, resets, &running] {
                    for (int i = 0; i < numPerThread; ++i) {
                        bus().notifyDelayed(note(thread * numPerThread + i, viewer(thread)));
                        bus().removeDelayedNotifications(viewer(resets ? thread : numThreads));
                    }
                    --running;
                });
            }
            while (running > 0) {
                QCoreApplication::processEvents();
                if (resets) { // These and removals lose some, never the order.
                    bus().deleteAllTools();
                    bus().addNotification(m_recorder.get(), CLEANUP);
                }
            }
            threads.clear();
            bus().notifyDelayed(note(0));
            QCoreApplication::sendPostedEvents();
            QCOMPARE(m_seen.takeLast(), 0);
            QVERIFY(resets || m_seen.size() == numThreads * numPerThread);
            std::array<int, numThreads> last{-1, -1, -1, -1};
            for (const int data : m_seen) {
                int &previous = last.at(static_cast<std::size_t>(data / numPerThread));
                QVERIFY(data > previous);
                previous = data;
            }
        }
    }

private:
    static void post(std::initializer_list<ExNotification> notifications)
    {
        for (const ExNotification &notification : notifications) {
            bus().notifyDelayed(notification);
        }
    }
    /// What has been received, once all that waits is delivered.
    const QList<int> &delivered()
    {
        QCoreApplication::sendPostedEvents();
        return m_seen;
    }
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        m_events += event->type() == 1001 ? 1 : 0;
        return false;
    }

    QStringList m_log;
    QList<int> m_seen;
    int m_events = 0;
    std::unique_ptr<Recorder> m_recorder;
};

QTEST_GUILESS_MAIN(tst_DeferredNotifications)
#include "tst_DeferredNotifications.moc"
