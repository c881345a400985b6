#include "framework/notification/ExNotifiables.h"
#include "tests/support/Recorder.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTest>
#include <QThread>

#include <array>
#include <atomic>
#include <memory>
#include <numeric>
#include <thread>
#include <vector>

namespace {

using Type = ExNotification::Type;
constexpr Type ZOOM = ExNotification::ZOOM_CHANGED;
constexpr Type SLICE = ExNotification::SLICE_CHANGED;

ExNotifiables &bus()
{
    return ExNotifiables::getInstance();
}

/// Counts the events of deferred notifications that reach the application.
class EventCounter : public QObject
{
public:
    EventCounter() { QCoreApplication::instance()->installEventFilter(this); }
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        count += event->type() == 1001 ? 1 : 0;
        return false;
    }
    int count = 0;
};

/// Bytes whose addresses stand for viewers and payloads.
struct Addresses
{
    [[nodiscard]] void *data(int i) { return &bytes.at(static_cast<std::size_t>(i)); }
    [[nodiscard]] ExBaseViewer *viewer(int i)
    {
        return reinterpret_cast<ExBaseViewer *>(&bytes.at(static_cast<std::size_t>(i)));
    }
    [[nodiscard]] int indexOf(const void *address) const
    {
        return static_cast<int>(static_cast<const char *>(address) - bytes.data());
    }
    std::array<char, 100000> bytes{};
};

Addresses addresses;

constexpr int numThreads = 4;
constexpr int numPerThread = 2000;

} // namespace

class tst_DeferredNotifications : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void mergedAtTheEarlierPlaceWithAnEventEach();
    void manyAreMergedAndKeepTheirOrder();
    void removedByViewer();
    void lostWhileBlocked();
    void publishedInsideTheDeferredDelivery();
    void deleteAllToolsInsideTheDeferredDelivery();
    void everythingFromManyThreadsOnceAndInOrder();
    void manyThreadsWhileTheBusIsReset();

private:
    QStringList m_log;
    QList<int> m_data;
    Recorder::Reaction m_noteData
        = [this](const ExNotification &n) { m_data.append(addresses.indexOf(n.data())); };
};

void tst_DeferredNotifications::init()
{
    bus().deleteAllTools();
    QCoreApplication::sendPostedEvents();
    m_log.clear();
    m_data.clear();
}

void tst_DeferredNotifications::mergedAtTheEarlierPlaceWithAnEventEach()
{
    EventCounter events;
    const Recorder a(QStringLiteral("a"), m_log, {ExNotification::UNSPECIFIC}, m_noteData);
    const ExNotification first(ZOOM, nullptr, nullptr, addresses.data(1));
    bus().notifyDelayed(first);
    bus().notifyDelayed(ExNotification(ZOOM, nullptr, nullptr, addresses.data(2)));
    bus().notifyDelayed(first);
    bus().notifyDelayed(ExNotification(SLICE, nullptr, nullptr, addresses.data(1)));
    bus().notifyDelayed(ExNotification(ZOOM, addresses.viewer(3), nullptr, addresses.data(1)));
    bus().notifyDelayed(first);
    QCOMPARE(m_log, QStringList());
    QCoreApplication::sendPostedEvents();
    QCOMPARE(m_log,
        QStringList({QStringLiteral("a:ZOOM_CHANGED"), QStringLiteral("a:ZOOM_CHANGED"),
            QStringLiteral("a:SLICE_CHANGED"), QStringLiteral("a:ZOOM_CHANGED")}));
    QCOMPARE(m_data, QList<int>({1, 2, 1, 1}));
    QCOMPARE(events.count, 6);
    bus().notifyDelayed(first); // Was delivered: it is new again.
    QCoreApplication::sendPostedEvents();
    QCOMPARE(m_data.size(), 5);
}

void tst_DeferredNotifications::manyAreMergedAndKeepTheirOrder()
{
    const Recorder a(QStringLiteral("a"), m_log, {ZOOM}, m_noteData);
    QList<int> expected;
    for (int round = 0; round < 3; ++round) {
        for (int i = 0; i < 3000; ++i) {
            bus().notifyDelayed(
                ExNotification(ZOOM, addresses.viewer(i % 2), nullptr, addresses.data(i)));
        }
        // In the midst of it those of one viewer go, and come back at the end.
        if (round == 1) {
            bus().removeDelayedNotifications(addresses.viewer(1));
        }
    }
    for (const int remainder : {0, 1}) {
        for (int i = remainder; i < 3000; i += 2) {
            expected.append(i);
        }
    }
    QCoreApplication::sendPostedEvents();
    QCOMPARE(m_data, expected);
}

void tst_DeferredNotifications::removedByViewer()
{
    const Recorder a(QStringLiteral("a"), m_log, {ZOOM}, m_noteData);
    const auto queue = [] {
        for (const int i : {1, 2, 1, 3}) {
            bus().notifyDelayed(ExNotification(
                ZOOM, i == 3 ? nullptr : addresses.viewer(i), nullptr, addresses.data(i)));
        }
    };
    queue();
    bus().removeDelayedNotifications(addresses.viewer(1));
    QCoreApplication::sendPostedEvents();
    QCOMPARE(m_data, QList<int>({2, 3}));
    queue();
    bus().removeDelayedNotifications(nullptr);
    bus().removeDelayedNotifications(addresses.viewer(9));
    bus().notifyDelayed(ExNotification(ZOOM, nullptr, nullptr, addresses.data(4)));
    QCoreApplication::sendPostedEvents();
    QCOMPARE(m_data, QList<int>({2, 3, 1, 2, 4}));
}

void tst_DeferredNotifications::lostWhileBlocked()
{
    EventCounter events;
    const Recorder a(QStringLiteral("a"), m_log, {ZOOM, SLICE});
    bus().blockNotifications(true);
    bus().notifyDelayed(ZOOM);
    QCoreApplication::sendPostedEvents();
    bus().notifyDelayed(SLICE);
    bus().blockNotifications(false);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(m_log, QStringList(QStringLiteral("a:SLICE_CHANGED")));
    QCOMPARE(events.count, 2);
}

void tst_DeferredNotifications::publishedInsideTheDeferredDelivery()
{
    // What is deferred from a delivery comes after everything that waited, also when it equals it.
    const Recorder a(QStringLiteral("a"), m_log, {ZOOM}, [this](const ExNotification &n) {
        m_noteData(n);
        if (n.data() == addresses.data(1) && m_data.size() < 3) {
            bus().notifyDelayed(n);
            bus().notifyDelayed(ExNotification(ZOOM, nullptr, nullptr, addresses.data(2)));
            bus().notify(ExNotification(ZOOM, nullptr, nullptr, addresses.data(5)));
        }
    });
    bus().notifyDelayed(ExNotification(ZOOM, nullptr, nullptr, addresses.data(1)));
    bus().notifyDelayed(ExNotification(ZOOM, nullptr, nullptr, addresses.data(3)));
    QCoreApplication::sendPostedEvents();
    QCOMPARE(m_data, QList<int>({1, 5, 3, 1, 2}));
}

void tst_DeferredNotifications::deleteAllToolsInsideTheDeferredDelivery()
{
    std::unique_ptr<Recorder> fresh;
    const Recorder a(QStringLiteral("a"), m_log, {ZOOM, SLICE}, [&](const ExNotification &) {
        bus().notifyDelayed(ExNotification::CLEANUP);
        bus().deleteAllTools();
        fresh = std::make_unique<Recorder>(
            QStringLiteral("new"), m_log, std::vector{ExNotification::UNSPECIFIC});
    });
    bus().notifyDelayed(ZOOM);
    bus().notifyDelayed(SLICE);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(m_log, QStringList(QStringLiteral("a:ZOOM_CHANGED")));
    bus().notifyDelayed(SLICE);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(m_log,
        QStringList({QStringLiteral("a:ZOOM_CHANGED"), QStringLiteral("new:SLICE_CHANGED")}));
}

void tst_DeferredNotifications::everythingFromManyThreadsOnceAndInOrder()
{
    std::vector<QList<int>> perThread(numThreads);
    const Recorder a(QStringLiteral("a"), m_log, {ZOOM}, [&](const ExNotification &n) {
        QVERIFY(QThread::currentThread() == QCoreApplication::instance()->thread());
        const int index = addresses.indexOf(n.data());
        perThread[static_cast<std::size_t>(index / numPerThread)].append(index % numPerThread);
        bus().notifyDelayed(SLICE); // No lock is held here.
    });
    std::atomic<int> running = numThreads;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < numThreads; ++thread) {
        threads.emplace_back([thread, &running] {
            for (int i = 0; i < numPerThread; ++i) {
                bus().notifyDelayed(ExNotification(ZOOM, addresses.viewer(thread), nullptr,
                    addresses.data(thread * numPerThread + i)));
                bus().removeDelayedNotifications(addresses.viewer(numThreads));
            }
            --running;
        });
    }
    while (running > 0) {
        QCoreApplication::processEvents();
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    QCoreApplication::sendPostedEvents();
    QList<int> all(numPerThread);
    std::iota(all.begin(), all.end(), 0);
    QCOMPARE(perThread, std::vector<QList<int>>(numThreads, all));
}

void tst_DeferredNotifications::manyThreadsWhileTheBusIsReset()
{
    QList<int> lastOf(numThreads, -1);
    bool inOrder = true;
    std::unique_ptr<Recorder> subscriber;
    const auto reset = [&] {
        bus().deleteAllTools();
        subscriber = std::make_unique<Recorder>(
            QStringLiteral("a"), m_log, std::vector{ZOOM}, [&](const ExNotification &n) {
                const int index = addresses.indexOf(n.data());
                int &last = lastOf[index / numPerThread];
                inOrder = inOrder && index % numPerThread > last;
                last = index % numPerThread;
            });
    };
    std::atomic<int> running = numThreads;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < numThreads; ++thread) {
        threads.emplace_back([thread, &running] {
            for (int i = 0; i < numPerThread; ++i) {
                bus().notifyDelayed(ExNotification(ZOOM, addresses.viewer(thread), nullptr,
                    addresses.data(thread * numPerThread + i)));
                if (i % 16 == 0) {
                    bus().removeDelayedNotifications(addresses.viewer(thread));
                }
            }
            --running;
        });
    }
    while (running > 0) {
        reset();
        QCoreApplication::processEvents();
        bus().removeDelayedNotifications(addresses.viewer(0));
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    QVERIFY(inOrder);
    reset();
    bus().notifyDelayed(ExNotification(ZOOM, nullptr, nullptr, addresses.data(0)));
    lastOf[0] = -1;
    QCoreApplication::sendPostedEvents();
    QVERIFY(inOrder);
    QCOMPARE(lastOf[0], 0);
}

QTEST_GUILESS_MAIN(tst_DeferredNotifications)
#include "tst_DeferredNotifications.moc"
