#include "tests/support/Prelude.h"

namespace {

using enum ExNotification::Type;
constexpr ExNotification::Type ANY = UNSPECIFIC;

/// A base of a subscriber that publishes when it goes, after the subscriber's part has gone.
class LastWord
{
public:
    LastWord() = default;
    LastWord(const LastWord &) = delete;
    LastWord &operator=(const LastWord &) = delete;
    ~LastWord() { ExNotifiable::notify(CLEANUP); }
};

/// Subscribes too early: in its constructor.
class Eager : public LastWord, public Recorder
{
public:
    explicit Eager(QStringList &log)
        : Recorder(u"eager"_s, log, {})
    {
        bus().addNotification(this, CLEANUP);
    }
};

} // namespace

class tst_ExNotifiables : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        bus().deleteAllTools();
        m_log.clear();
    }

    void ownTypeFirstThenWildcardsInOrderOfSubscription()
    {
        const Recorder any(u"any"_s, m_log, {ANY});
        const Recorder a(u"a"_s, m_log, {CLEANUP, RIS_ERROR});
        const Recorder both(u"both"_s, m_log, {ANY, CLEANUP});
        Recorder b(u"b"_s, m_log, {CLEANUP});
        QCOMPARE(told(CLEANUP), u"a both b any both"_s);
        QCOMPARE(told(RIS_ERROR), u"a:RIS_ERROR any:RIS_ERROR both:RIS_ERROR"_s);
        // Its own type is the wildcard: twice.
        QCOMPARE(told(ANY), u"any:UNSPECIFIC both:UNSPECIFIC any:UNSPECIFIC both:UNSPECIFIC"_s);
        ExNotifiable::notify(static_cast<ExNotification::Type>(500)); // Unknown, still something.
        QCOMPARE(taken(), u"any:NONE both:NONE"_s);

        bus().addNotifications(&b, ANY, CLEANUP, CLEANUP, NONE, RIS_ERROR);
        bus().addNotification(&b, ExNotification(CLEANUP, nullptr, &a, &b));
        bus().addNotification(nullptr, CLEANUP);
        bus().addNotifications(nullptr, CLEANUP, NONE);
        QCOMPARE(told(CLEANUP), u"a both b b b b any both b"_s); // As often as subscribed.
    }

    void askedOnceInTheNextOutermostDelivery()
    {
        std::unique_ptr<Recorder> late;
        const Recorder creator(u"creator"_s, m_log, {CLEANUP}, [&](const ExNotification &) {
            if (!late) {
                late = asked(u"late"_s);
                ExNotifiable::notify(RIS_ERROR); // Nested: nobody is asked.
            }
        });
        const auto first = asked(u"first"_s);
        QCOMPARE(told(RIS_ERROR), u"first?"_s); // Nobody wants it; those that are new are asked.
        ExNotifiable::notify(CLEANUP);
        QCOMPARE(told(CLEANUP), u"creator first late? creator first late"_s);
    }

    void createdWhileOthersAreAsked()
    {
        std::unique_ptr<Recorder> second;
        std::unique_ptr<Recorder> third;
        const auto first = asked(u"1"_s, [&] {
            second = asked(u"2"_s, [&] {
                third = asked(u"3"_s);
                ExNotifiable::notify(CLEANUP); // Nested: those that have been asked so far.
            });
        });
        QCOMPARE(told(CLEANUP), u"1? 2? 1 2 3? 1 2 3"_s);
    }

    void destroyedWhileOthersAreAsked()
    {
        const std::pair<QList<int>, QString> rows[]
            = {{{0}, u"0? 1? 2? 3? 1 2 3"_s}, {{1}, u"0? 1? 2? 3? 0 2 3"_s},
                {{2}, u"0? 1? 3? 0 1 3"_s}, {{3}, u"0? 1? 2? 0 1 2"_s}, {{3, 0, 1, 2}, u"0? 1?"_s}};
        for (const auto &[victims, calls] : rows) {
            std::vector<std::unique_ptr<Recorder>> subscribers;
            for (int i = 0; i < 4; ++i) {
                subscribers.push_back(asked(QString::number(i), [&, i, dying = victims] {
                    for (const int victim : i == 1 ? dying : QList<int>()) {
                        subscribers[static_cast<std::size_t>(victim)].reset();
                    }
                }));
            }
            ExNotifiable::notify(CLEANUP);
            QCOMPARE(taken(), calls);
        }
    }

    void destroyedBeforeBeingAsked()
    {
        asked(u"never"_s).reset();
        std::make_unique<Eager>(m_log).reset();
        QCOMPARE(told(CLEANUP), QString());
        const Eager eager(m_log);
        QCOMPARE(told(CLEANUP), u"eager"_s);
    }

    void subscribingAndDestroyingInsideADelivery()
    {
        std::unique_ptr<Recorder> a;
        std::unique_ptr<Recorder> b;
        auto c = std::make_unique<Recorder>(u"c"_s, m_log, std::vector{CLEANUP, ANY});
        Recorder d(u"d"_s, m_log, {});
        a = std::make_unique<Recorder>(
            u"a"_s, m_log, std::vector{CLEANUP}, [&](const ExNotification &) {
                c.reset();
                bus().addNotifications(&d, CLEANUP, ANY, NONE);
                ExNotifiable::notify(RIS_ERROR);
                a.reset();
            });
        b = std::make_unique<Recorder>(u"b"_s, m_log, std::vector{CLEANUP});
        // The wildcard's walk begins after all that.
        QCOMPARE(told(CLEANUP), u"c a d:RIS_ERROR b d"_s);
        QCOMPARE(told(CLEANUP), u"b d d"_s);
    }

    void blockingAll()
    {
        const Recorder blocker(u"blocker"_s, m_log, {CLEANUP}, [](const ExNotification &) {
            bus().blockNotifications(true);
            ExNotifiable::notify(RIS_ERROR);
        });
        const auto a = asked(u"a"_s);
        bus().blockNotifications(true);
        QCOMPARE(told(CLEANUP), QString()); // Dropped; nobody is asked.
        bus().blockNotifications(false);
        // Under way already when it is blocked: goes on.
        QCOMPARE(told(CLEANUP), u"a? blocker a"_s);
        QVERIFY(bus().areNotificationsBlocked());
    }

    void deleteAllTools()
    {
        const auto old = asked(u"old"_s);
        ExNotifiable::notify(CLEANUP);
        const auto pending = asked(u"pending"_s);
        bus().blockNotifications(true);
        bus().deleteAllTools();
        QVERIFY(!bus().areNotificationsBlocked());
        QCOMPARE(told(CLEANUP), u"old? old"_s);
        bus().addNotification(old.get(), CLEANUP);
        const auto fresh = asked(u"new"_s);
        QCOMPARE(told(CLEANUP), u"new? old new"_s);
    }

    void deleteAllToolsInsideADelivery()
    {
        std::unique_ptr<Recorder> fresh;
        Recorder late(u"late"_s, m_log, {});
        const auto deleteAll = [&] {
            bus().deleteAllTools();
            bus().addNotification(&late, ANY); // From the next delivery on: this one ends.
            fresh = asked(u"new"_s);
            ExNotifiable::notify(CLEANUP); // Nested, so that the new one is not asked yet.
        };
        const Recorder a(
            u"a"_s, m_log, {CLEANUP, ANY}, [&](const ExNotification &) { deleteAll(); });
        const Recorder b(u"b"_s, m_log, {CLEANUP, ANY});
        ExNotifiable::notify(CLEANUP);
        QCOMPARE(told(CLEANUP), u"a late new? new late"_s);

        const auto c = asked(u"c"_s, deleteAll);
        const auto d = asked(u"d"_s);
        // Those that wait are forgotten, the new one is asked.
        QCOMPARE(told(CLEANUP), u"c? late new? new late"_s);
    }

private:
    /// What was logged since the last time; the type that most tests use is left out.
    QString taken() { return std::exchange(m_log, {}).join(u' ').remove(u":CLEANUP"_s); }

    /// Publishes, and gives what was logged since the last time.
    QString told(ExNotification::Type type)
    {
        ExNotifiable::notify(type);
        return taken();
    }

    /// A subscriber that logs "name?" when it is asked for its types.
    std::unique_ptr<Recorder> asked(const QString &name, const std::function<void()> &act = {})
    {
        auto recorder = std::make_unique<Recorder>(name, m_log, std::vector{CLEANUP});
        recorder->whenAsked = [this, name, act] {
            m_log.append(name + u'?');
            if (act) {
                act();
            }
        };
        return recorder;
    }

    QStringList m_log;
};

QTEST_GUILESS_MAIN(tst_ExNotifiables)
#include "tst_ExNotifiables.moc"
