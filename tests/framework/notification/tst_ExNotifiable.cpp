#include "platform/render/KxEngine.h"
#include "tests/support/Prelude.h"

namespace {

using enum ExNotification::Type;

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
        Recorder a(u"a"_s, m_log, {CLEANUP, RIS_ERROR, UNSPECIFIC});
        Recorder blocked(u"blocked"_s, m_log, {CLEANUP});
        blocked.setBlockedNotifications(true);
        ExNotifiable::notify(CLEANUP);
        QCOMPARE(counts(CLEANUP), (std::array<std::int64_t, 3>{0, 0, 0}));
        QVERIFY(monitor().sensorNames(1).empty()); // They are named when they are first needed.
        PerfMon::setActive(true);
        for (const auto type : {CLEANUP, CLEANUP, RIS_ERROR, UNSPECIFIC}) {
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

    void namesOfTypes()
    {
        const std::pair<int, const char *> rows[] = {{-2, "NONE"}, {-1, "UNSPECIFIC"}, {0, "NONE"},
            {18, "ACTIVE_VIEWER_CHANGED"}, {51, "_3D_QUALITY_CHANGED"}, {99, "_3DCONTOUR_EXITED"},
            {121, "ABOUT_TO_SHOW_CONTEXTMENU"}, {122, "NONE"}};
        for (const auto &[number, name] : rows) {
            QCOMPARE(ExNotification::Type2String(static_cast<ExNotification::Type>(number)), name);
        }
    }

    void typesThatNeedAViewer()
    {
        int place = 0;
        QList<int> invalid[2];
        for (int i = 0; i < 2; ++i) {
            auto *const viewer = i == 0 ? nullptr : reinterpret_cast<ExBaseViewer *>(&place);
            for (int number = -3; number <= 123; ++number) {
                if (!ExNotification(static_cast<ExNotification::Type>(number), viewer).isValid()) {
                    invalid[i].append(number);
                }
            }
        }
        QCOMPARE(invalid[0], QList<int>({-3, -2, 8, 9, 10, 11, 12, 13, 14, 15, 18, 122, 123}));
        QCOMPARE(invalid[1], QList<int>({-3, -2, 122, 123}));
    }

private:
    QStringList m_log;
};

QTEST_GUILESS_MAIN(tst_ExNotifiable)
#include "tst_ExNotifiable.moc"
