#include "platform/render/KxEngine.h"
#include "tests/support/Recorder.h"

#include <QTest>

#include <chrono>

namespace {

constexpr ExNotification::Type ZOOM = ExNotification::ZOOM_CHANGED;
constexpr ExNotification::Type SLICE = ExNotification::SLICE_CHANGED;
constexpr unsigned overall = 0;
constexpr unsigned byType = 1;
constexpr unsigned calls = 10;
constexpr unsigned totalTime = 11;

PerfMon &monitor()
{
    return KxEngine::instance().perfMon();
}

double microsecondsSince(std::chrono::steady_clock::time_point start)
{
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start)
        .count();
}

} // namespace

class tst_NotificationSensors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void silentWhileOff();
    void namesAndCounts();
    void switchedOnInsideACall();
    void blockedIsNotTimed();
    void microseconds();

private:
    QStringList m_log;
};

void tst_NotificationSensors::init()
{
    monitor().reset();
}

void tst_NotificationSensors::cleanup()
{
    PerfMon::setActive(false);
}

void tst_NotificationSensors::silentWhileOff()
{
    const Recorder a(QStringLiteral("a"), m_log, {ZOOM});
    ExNotifiable::notify(ZOOM);
    QCOMPARE(monitor().reading(overall, calls).count, 0);
    QVERIFY(monitor().sensorNames(byType).empty()); // Named when first needed.
}

void tst_NotificationSensors::namesAndCounts()
{
    const Recorder a(QStringLiteral("a"), m_log, {ZOOM, SLICE, ExNotification::UNSPECIFIC});
    const Recorder b(QStringLiteral("b"), m_log, {ZOOM});
    PerfMon::setActive(true);
    ExNotifiable::notify(ZOOM);
    ExNotifiable::notify(ZOOM);
    ExNotifiable::notify(SLICE);
    ExNotifiable::notify(ExNotification::UNSPECIFIC);
    const std::vector<std::string> names = monitor().sensorNames(byType);
    QCOMPARE(names.size(), 122U);
    for (std::size_t i = 0; i < names.size(); ++i) {
        QCOMPARE(names[i], ExNotification::Type2String(static_cast<ExNotification::Type>(i)));
    }
    QCOMPARE(monitor().reading(byType, ZOOM).count, 6);
    QCOMPARE(monitor().reading(byType, SLICE).count, 2);
    QCOMPARE(monitor().reading(byType, static_cast<unsigned>(-1)).count, 2);
    QCOMPARE(monitor().reading(overall, calls).count, 10);
    QCOMPARE(monitor().reading(overall, calls).maximum, 1);
    QCOMPARE(monitor().reading(overall, totalTime).count, 10);
}

void tst_NotificationSensors::switchedOnInsideACall()
{
    const Recorder a(QStringLiteral("a"), m_log, {ZOOM});
    const Recorder b(QStringLiteral("b"), m_log, {ZOOM},
        [](const ExNotification &) { PerfMon::setActive(!PerfMon::isActive()); });
    const Recorder c(QStringLiteral("c"), m_log, {ZOOM});
    ExNotifiable::notify(ZOOM);
    QCOMPARE(monitor().reading(byType, ZOOM).count, 2); // b and c.
    ExNotifiable::notify(ZOOM);
    QCOMPARE(monitor().reading(byType, ZOOM).count, 3); // a.
}

void tst_NotificationSensors::blockedIsNotTimed()
{
    Recorder a(QStringLiteral("a"), m_log, {ZOOM});
    const Recorder b(QStringLiteral("b"), m_log, {ZOOM});
    a.setBlockedNotifications(true);
    PerfMon::setActive(true);
    ExNotifiable::notify(ZOOM);
    QCOMPARE(monitor().reading(byType, ZOOM).count, 1);
}

void tst_NotificationSensors::microseconds()
{
    // Bracketed by a clock read inside the call and one read around it, with a percent for the
    // clocks' rates.
    double inside = 0;
    const Recorder quick(QStringLiteral("quick"), m_log, {SLICE});
    const Recorder slow(QStringLiteral("slow"), m_log, {ZOOM}, [&](const ExNotification &) {
        const auto start = std::chrono::steady_clock::now();
        do {
            ExNotifiable::notify(SLICE);
            inside = microsecondsSince(start);
        } while (inside < 5000);
    });
    PerfMon::setActive(true);
    const auto start = std::chrono::steady_clock::now();
    ExNotifiable::notify(ZOOM);
    const double outside = microsecondsSince(start);
    const auto measured = static_cast<double>(monitor().reading(byType, ZOOM).last);
    QVERIFY2(measured >= inside * 0.99 - 1 && measured <= outside * 1.01 + 1,
        qPrintable(QStringLiteral("%1 <= %2 <= %3").arg(inside).arg(measured).arg(outside)));
    const PerfMon::Reading nested = monitor().reading(byType, SLICE);
    QVERIFY(nested.mean * static_cast<double>(nested.count) <= outside * 1.01 + 1);
}

QTEST_GUILESS_MAIN(tst_NotificationSensors)
#include "tst_NotificationSensors.moc"
