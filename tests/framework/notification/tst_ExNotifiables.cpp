#include "framework/notification/ExNotifiables.h"
#include "tests/support/Recorder.h"

#include <QTest>

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <utility>

namespace {

using Type = ExNotification::Type;
constexpr Type ZOOM = ExNotification::ZOOM_CHANGED;
constexpr Type SLICE = ExNotification::SLICE_CHANGED;
constexpr Type ANY = ExNotification::UNSPECIFIC;

ExNotifiables &bus()
{
    return ExNotifiables::getInstance();
}

/// Also logs being asked for its types, and may then do something of its own.
class Asked : public Recorder
{
public:
    Asked(const QString &name, QStringList &log, std::vector<Type> types,
        std::function<void()> whenAsked = {})
        : Recorder(name, log, std::move(types))
        , m_name(name)
        , m_log(log)
        , m_whenAsked(std::move(whenAsked))
    { }

    void addNotifications() override
    {
        m_log.append(m_name + u'?');
        Recorder::addNotifications();
        if (const auto act = m_whenAsked) {
            act();
        }
    }

private:
    QString m_name;
    QStringList &m_log;
    std::function<void()> m_whenAsked;
};

/// Subscribes too early: in its constructor.
class Eager : public ExNotifiable
{
public:
    explicit Eager(QStringList &log)
        : m_log(log)
    {
        bus().addNotification(this, ZOOM);
    }
    void notified(const ExNotification & /*notification*/) override
    {
        m_log.append(QStringLiteral("eager"));
    }

private:
    QStringList &m_log;
};

} // namespace

class tst_ExNotifiables : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void ownTypeFirstThenWildcardsInOrderOfSubscription();
    void repeatedSubscriptionsAreServedRepeatedly();
    void pendingAreAskedOnceInTheOutermostDelivery();
    void pendingCreatedWhileAskedAreServedInTheSamePass();
    void pendingDestroyedWhileAsked_data();
    void pendingDestroyedWhileAsked();
    void destroyedBeforeBeingAsked();
    void subscribingInsideADeliveryCountsFromTheNext();
    void destroyedInsideADelivery_data();
    void destroyedInsideADelivery();
    void nestedPublishing();
    void blockingOne();
    void blockingAll();
    void deleteAllTools();
    void deleteAllToolsInsideADelivery_data();
    void deleteAllToolsInsideADelivery();

private:
    QString taken();

    QStringList m_log;
};

void tst_ExNotifiables::init()
{
    bus().deleteAllTools();
    m_log.clear();
}

/// What was logged since the last time.
QString tst_ExNotifiables::taken()
{
    const QString text = m_log.join(u' ');
    m_log.clear();
    return text;
}

void tst_ExNotifiables::ownTypeFirstThenWildcardsInOrderOfSubscription()
{
    const Recorder any(QStringLiteral("any"), m_log, {ANY});
    const Recorder a(QStringLiteral("a"), m_log, {ZOOM, SLICE});
    const Recorder both(QStringLiteral("both"), m_log, {ANY, ZOOM});
    const Recorder b(QStringLiteral("b"), m_log, {ZOOM});
    ExNotifiable::notify(ZOOM);
    QCOMPARE(taken(),
        QStringLiteral("a:ZOOM_CHANGED both:ZOOM_CHANGED b:ZOOM_CHANGED any:ZOOM_CHANGED "
                       "both:ZOOM_CHANGED"));
    ExNotifiable::notify(SLICE);
    QCOMPARE(taken(), QStringLiteral("a:SLICE_CHANGED any:SLICE_CHANGED both:SLICE_CHANGED"));
    ExNotifiable::notify(ExNotification::NONE);
    QCOMPARE(taken(), QStringLiteral("any:NONE both:NONE"));
    ExNotifiable::notify(ANY); // Its own type is the wildcard: twice.
    QCOMPARE(
        taken(), QStringLiteral("any:UNSPECIFIC both:UNSPECIFIC any:UNSPECIFIC both:UNSPECIFIC"));
    ExNotifiable::notify(static_cast<Type>(500)); // Nobody's type, still something.
    QCOMPARE(taken(), QStringLiteral("any:NONE both:NONE"));
}

void tst_ExNotifiables::repeatedSubscriptionsAreServedRepeatedly()
{
    int data = 0;
    QList<void *> seen;
    Recorder a(QStringLiteral("a"), m_log, {ZOOM},
        [&seen](const ExNotification &notification) { seen.append(notification.data()); });
    Recorder b(QStringLiteral("b"), m_log, {});
    bus().addNotifications(&b, ZOOM, ANY, SLICE, ExNotification::NONE, SLICE);
    bus().addNotification(&a, ExNotification(ZOOM, nullptr, &b, &b));
    bus().addNotification(nullptr, ZOOM);
    bus().addNotifications(nullptr, ZOOM, ExNotification::NONE);
    bus().notify(ExNotification(ZOOM, nullptr, nullptr, &data));
    QCOMPARE(
        taken(), QStringLiteral("b:ZOOM_CHANGED a:ZOOM_CHANGED a:ZOOM_CHANGED b:ZOOM_CHANGED"));
    QCOMPARE(seen, QList<void *>({&data, &data}));
    bus().notify(SLICE);
    QCOMPARE(taken(), QStringLiteral("b:SLICE_CHANGED b:SLICE_CHANGED"));
}

void tst_ExNotifiables::pendingAreAskedOnceInTheOutermostDelivery()
{
    std::unique_ptr<Asked> late;
    const Recorder creator(QStringLiteral("creator"), m_log, {ZOOM}, [&](const ExNotification &) {
        if (!late) {
            late = std::make_unique<Asked>(QStringLiteral("late"), m_log, std::vector{SLICE});
            ExNotifiable::notify(SLICE); // Nested: nobody is asked.
        }
    });
    const Asked a(QStringLiteral("a"), m_log, {ZOOM});
    ExNotifiable::notify(ExNotification::CLEANUP);
    QCOMPARE(taken(), QStringLiteral("a?"));
    ExNotifiable::notify(ZOOM);
    QCOMPARE(taken(), QStringLiteral("creator:ZOOM_CHANGED a:ZOOM_CHANGED"));
    ExNotifiable::notify(SLICE);
    ExNotifiable::notify(SLICE);
    QCOMPARE(taken(), QStringLiteral("late? late:SLICE_CHANGED late:SLICE_CHANGED"));
}

void tst_ExNotifiables::pendingCreatedWhileAskedAreServedInTheSamePass()
{
    std::unique_ptr<Asked> second;
    std::unique_ptr<Asked> third;
    const Asked first(QStringLiteral("1"), m_log, {ZOOM}, [&] {
        second = std::make_unique<Asked>(QStringLiteral("2"), m_log, std::vector{ZOOM}, [&] {
            third = std::make_unique<Asked>(QStringLiteral("3"), m_log, std::vector{ZOOM});
            ExNotifiable::notify(ZOOM); // Nested in the asking: those asked so far.
        });
    });
    ExNotifiable::notify(ZOOM);
    QCOMPARE(taken(),
        QStringLiteral("1? 2? 1:ZOOM_CHANGED 2:ZOOM_CHANGED 3? 1:ZOOM_CHANGED 2:ZOOM_CHANGED "
                       "3:ZOOM_CHANGED"));
}

void tst_ExNotifiables::pendingDestroyedWhileAsked_data()
{
    QTest::addColumn<QList<int>>("victims");
    QTest::addColumn<QString>("calls");
    QTest::newRow("earlier") << QList<int>{0} << QStringLiteral("0? 1? 2? 3? 1 2 3");
    QTest::newRow("itself") << QList<int>{1} << QStringLiteral("0? 1? 2? 3? 0 2 3");
    QTest::newRow("next") << QList<int>{2} << QStringLiteral("0? 1? 3? 0 1 3");
    QTest::newRow("last") << QList<int>{3} << QStringLiteral("0? 1? 2? 0 1 2");
    QTest::newRow("all") << QList<int>{3, 0, 1, 2} << QStringLiteral("0? 1?");
}

void tst_ExNotifiables::pendingDestroyedWhileAsked()
{
    QFETCH(const QList<int>, victims);
    std::array<std::unique_ptr<Asked>, 4> subscribers;
    for (std::size_t i = 0; i < subscribers.size(); ++i) {
        std::function<void()> act;
        if (i == 1) {
            act = [&] {
                for (const int victim : victims) {
                    subscribers[static_cast<std::size_t>(victim)].reset();
                }
            };
        }
        subscribers[i] = std::make_unique<Asked>(QString::number(i), m_log, std::vector{ZOOM}, act);
    }
    ExNotifiable::notify(ZOOM);
    m_log.replaceInStrings(QStringLiteral(":ZOOM_CHANGED"), QString());
    QTEST(taken(), "calls");
}

void tst_ExNotifiables::destroyedBeforeBeingAsked()
{
    {
        const Asked neverAsked(QStringLiteral("never"), m_log, {ZOOM});
        const Eager eager(m_log);
    }
    ExNotifiable::notify(ZOOM);
    QCOMPARE(taken(), QString());
    const Eager eager(m_log);
    ExNotifiable::notify(ZOOM);
    QCOMPARE(taken(), QStringLiteral("eager"));
}

void tst_ExNotifiables::subscribingInsideADeliveryCountsFromTheNext()
{
    ExNotifiable *self = nullptr;
    Recorder a(QStringLiteral("a"), m_log, {ZOOM}, [&](const ExNotification &) {
        if (ExNotifiable *const subscriber = std::exchange(self, nullptr)) {
            bus().addNotifications(subscriber, ZOOM, ANY, ExNotification::NONE);
        }
    });
    self = &a;
    ExNotifiable::notify(ZOOM); // Only the wildcard's walk had not begun yet.
    QCOMPARE(taken(), QStringLiteral("a:ZOOM_CHANGED a:ZOOM_CHANGED"));
    ExNotifiable::notify(ZOOM);
    QCOMPARE(taken(), QStringLiteral("a:ZOOM_CHANGED a:ZOOM_CHANGED a:ZOOM_CHANGED"));
}

void tst_ExNotifiables::destroyedInsideADelivery_data()
{
    QTest::addColumn<QString>("victims");
    QTest::addColumn<QString>("calls");
    QTest::newRow("earlier") << QStringLiteral("a") << QStringLiteral("a b c any | b c any");
    QTest::newRow("itself") << QStringLiteral("b") << QStringLiteral("a b c any | a c any");
    QTest::newRow("later") << QStringLiteral("c") << QStringLiteral("a b any | a b any");
    QTest::newRow("wildcard") << QStringLiteral("any") << QStringLiteral("a b c | a b c");
    QTest::newRow("all") << QStringLiteral("b c any a") << QStringLiteral("a b |");
}

void tst_ExNotifiables::destroyedInsideADelivery()
{
    QFETCH(const QString, victims);
    std::map<QString, std::unique_ptr<Recorder>> subscribers;
    for (const QString &name :
        {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("any")}) {
        Recorder::Reaction reaction;
        if (name == u"b") {
            reaction = [&](const ExNotification &) {
                for (const QString &victim : victims.split(u' ')) {
                    subscribers.erase(victim);
                }
            };
        }
        const std::vector types{name == u"any" ? ANY : ZOOM};
        subscribers[name] = std::make_unique<Recorder>(name, m_log, types, reaction);
    }
    ExNotifiable::notify(ZOOM);
    m_log.append(QStringLiteral("|"));
    ExNotifiable::notify(ZOOM);
    m_log.replaceInStrings(QStringLiteral(":ZOOM_CHANGED"), QString());
    QTEST(taken(), "calls");
}

void tst_ExNotifiables::nestedPublishing()
{
    const Recorder a(QStringLiteral("a"), m_log, {ZOOM},
        [](const ExNotification &) { ExNotifiable::notify(SLICE); });
    const Recorder b(QStringLiteral("b"), m_log, {SLICE, ZOOM});
    ExNotifiable::notify(ZOOM);
    QCOMPARE(taken(), QStringLiteral("a:ZOOM_CHANGED b:SLICE_CHANGED b:ZOOM_CHANGED"));
}

void tst_ExNotifiables::blockingOne()
{
    Recorder a(QStringLiteral("a"), m_log, {ZOOM});
    Recorder b(QStringLiteral("b"), m_log, {ZOOM},
        [&a](const ExNotification &) { a.setBlockedNotifications(!a.blockedNotifications()); });
    a.setBlockedNotifications(true);
    a.setBlockedNotifications(true);
    for (int i = 0; i < 3; ++i) {
        ExNotifiable::notify(ZOOM);
    }
    QCOMPARE(
        taken(), QStringLiteral("b:ZOOM_CHANGED a:ZOOM_CHANGED b:ZOOM_CHANGED b:ZOOM_CHANGED"));
    QVERIFY(!a.blockedNotifications());

    // Blocking ends with the object: another one may come to stand at its address.
    alignas(Recorder) std::array<std::byte, sizeof(Recorder)> place{};
    for (const bool block : {true, false}) {
        auto *const placed = new (place.data()) Recorder(QStringLiteral("p"), m_log, {ZOOM});
        QVERIFY(!placed->blockedNotifications());
        placed->setBlockedNotifications(block);
        placed->~Recorder();
    }
}

void tst_ExNotifiables::blockingAll()
{
    const Recorder blocker(QStringLiteral("blocker"), m_log, {ZOOM}, [](const ExNotification &) {
        bus().blockNotifications(true);
        ExNotifiable::notify(SLICE);
    });
    const Asked a(QStringLiteral("a"), m_log, {ANY, SLICE});
    bus().blockNotifications(true);
    ExNotifiable::notify(SLICE); // Dropped; nobody is asked.
    QCOMPARE(taken(), QString());
    QVERIFY(bus().areNotificationsBlocked());
    bus().blockNotifications(false);
    ExNotifiable::notify(ZOOM); // Under way already: goes on.
    QCOMPARE(taken(), QStringLiteral("a? blocker:ZOOM_CHANGED a:ZOOM_CHANGED"));
    QVERIFY(bus().areNotificationsBlocked());
}

void tst_ExNotifiables::deleteAllTools()
{
    Asked subscribed(QStringLiteral("old"), m_log, {ZOOM});
    ExNotifiable::notify(ZOOM);
    const Asked pending(QStringLiteral("pending"), m_log, {ZOOM});
    bus().blockNotifications(true);
    QCOMPARE(taken(), QStringLiteral("old? old:ZOOM_CHANGED"));

    bus().deleteAllTools();
    QVERIFY(!bus().areNotificationsBlocked());
    ExNotifiable::notify(ZOOM);
    QCOMPARE(taken(), QString());
    bus().addNotification(&subscribed, ZOOM);
    const Asked fresh(QStringLiteral("new"), m_log, {ZOOM});
    ExNotifiable::notify(ZOOM);
    QCOMPARE(taken(), QStringLiteral("new? old:ZOOM_CHANGED new:ZOOM_CHANGED"));
}

void tst_ExNotifiables::deleteAllToolsInsideADelivery_data()
{
    QTest::addColumn<bool>("whenAsked");
    QTest::newRow("from notified") << false;
    QTest::newRow("from addNotifications") << true;
}

void tst_ExNotifiables::deleteAllToolsInsideADelivery()
{
    QFETCH(const bool, whenAsked);
    std::unique_ptr<Asked> fresh;
    bool done = false;
    const std::function<void()> deleteAll = [&] {
        if (!std::exchange(done, true)) {
            bus().deleteAllTools();
            fresh = std::make_unique<Asked>(QStringLiteral("new"), m_log, std::vector{ANY});
        }
    };
    const Asked a(QStringLiteral("a"), m_log, {ZOOM}, whenAsked ? deleteAll : nullptr);
    const Recorder b(QStringLiteral("b"), m_log, {ZOOM, ANY}, [&](const ExNotification &) {
        deleteAll();
        ExNotifiable::notify(SLICE);
    });
    const Asked c(QStringLiteral("c"), m_log, {ANY, ZOOM});
    ExNotifiable::notify(ZOOM);
    // When asked: those that come after are forgotten, the new one is asked and served.
    QCOMPARE(taken(),
        whenAsked ? QStringLiteral("a? new? new:ZOOM_CHANGED")
                  : QStringLiteral("a? c? a:ZOOM_CHANGED b:ZOOM_CHANGED"));
    ExNotifiable::notify(ZOOM);
    QCOMPARE(taken(),
        whenAsked ? QStringLiteral("new:ZOOM_CHANGED") : QStringLiteral("new? new:ZOOM_CHANGED"));
}

QTEST_GUILESS_MAIN(tst_ExNotifiables)
#include "tst_ExNotifiables.moc"
