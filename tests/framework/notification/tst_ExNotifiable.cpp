#include "platform/render/KxEngine.h"
#include "tests/support/Prelude.h"

namespace {

constexpr ExNotification::Type CLEANUP = ExNotification::CLEANUP;
constexpr ExNotification::Type RIS_ERROR = ExNotification::RIS_ERROR;

PerfMon &monitor()
{
    return KxEngine::instance().perfMon();
}

/// Counts of the sensors of a type, of all calls and of their time.
std::array<std::int64_t, 3> counts(int type)
{
    return {monitor().reading(1, static_cast<unsigned>(type)).count, monitor().reading(0, 10).count,
        monitor().reading(0, 11).count};
}

} // namespace

class tst_ExNotifiable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        monitor().reset();
        m_log.clear();
    }
    void cleanup() { PerfMon::setActive(false); }

    void blockedUntilUnblockedOrGone()
    {
        Recorder a(u"a"_s, m_log, {CLEANUP});
        const Recorder b(u"b"_s, m_log, {CLEANUP},
            [&a](const ExNotification &) { a.setBlockedNotifications(!a.blockedNotifications()); });
        a.setBlockedNotifications(true);
        a.setBlockedNotifications(true);
        for (int i = 0; i < 3; ++i) {
            ExNotifiable::notify(CLEANUP);
        }
        QCOMPARE(m_log.join(u' '), u"b:CLEANUP a:CLEANUP b:CLEANUP b:CLEANUP"_s);
        // Another one at the same address.
        alignas(Recorder) std::array<std::byte, sizeof(Recorder)> place{};
        for (int i = 0; i < 2; ++i) {
            auto *const placed = new (place.data()) Recorder(u"p"_s, m_log, {});
            QVERIFY(!placed->blockedNotifications());
            placed->setBlockedNotifications(true);
            placed->~Recorder();
        }
    }

    void sensors()
    {
        Recorder a(u"a"_s, m_log, {CLEANUP, RIS_ERROR, ExNotification::UNSPECIFIC});
        Recorder blocked(u"blocked"_s, m_log, {CLEANUP});
        blocked.setBlockedNotifications(true);
        ExNotifiable::notify(CLEANUP);
        QCOMPARE(counts(CLEANUP), (std::array<std::int64_t, 3>{0, 0, 0}));
        QVERIFY(monitor().sensorNames(1).empty()); // They are named when they are first needed.
        PerfMon::setActive(true);
        for (const auto type : {CLEANUP, CLEANUP, RIS_ERROR, ExNotification::UNSPECIFIC}) {
            ExNotifiable::notify(type);
        }
        QCOMPARE(counts(CLEANUP), (std::array<std::int64_t, 3>{4, 8, 8}));
        QCOMPARE(counts(RIS_ERROR)[0], 2);
        QCOMPARE(counts(-1)[0], 2);
        QCOMPARE(monitor().reading(0, 10).mean, 1.0);
        const std::vector<std::string> names = monitor().sensorNames(1);
        QCOMPARE(names.size(), 122U);
        QCOMPARE(names[0] + ' ' + names[1] + ' ' + names[121],
            std::string("NONE CLEANUP ABOUT_TO_SHOW_CONTEXTMENU"));
    }

    void switchedInsideACall()
    {
        const Recorder a(u"a"_s, m_log, {CLEANUP});
        const Recorder b(u"b"_s, m_log, {CLEANUP},
            [](const ExNotification &) { PerfMon::setActive(!PerfMon::isActive()); });
        const Recorder c(u"c"_s, m_log, {CLEANUP});
        ExNotifiable::notify(CLEANUP);
        QCOMPARE(counts(CLEANUP)[0], 2); // On during b: that call and c's.
        ExNotifiable::notify(CLEANUP);
        QCOMPARE(counts(CLEANUP)[0], 3); // Off during b: only a's.
    }

private:
    QStringList m_log;
};

QTEST_GUILESS_MAIN(tst_ExNotifiable)
#include "tst_ExNotifiable.moc"
