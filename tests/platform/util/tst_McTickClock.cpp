#include "platform/util/McTickClock.h"
#include "platform/util/McWatch.h"

#include <QTest>

#include <chrono>
#include <cmath>
#include <thread>

class tst_McTickClock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void agreesWithTheSteadyClock();
    void microsecondsSurviveDaysOfUptime();
};

void tst_McTickClock::agreesWithTheSteadyClock()
{
    using Clock = std::chrono::steady_clock;
    const McWatch watch;
    const Clock::time_point start = Clock::now();
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    const double bySteadyClock = std::chrono::duration<double>(Clock::now() - start).count();
    const double byWatch = static_cast<double>(watch.getTime());
    // Rate, not speed: a wrong factor shows as tens of percent, a busy machine as far less.
    QVERIFY2(std::abs(byWatch / bySteadyClock - 1) < 0.1, qPrintable(QString::number(byWatch)));
}

void tst_McTickClock::microsecondsSurviveDaysOfUptime()
{
    const double ticksPerSecond = 1e15 / McTickClock::seconds(1'000'000'000'000'000);
    const auto tenDays = static_cast<std::int64_t>(10 * 86400 * ticksPerSecond);
    const auto fiveMicroseconds = static_cast<std::int64_t>(5e-6 * ticksPerSecond) + 1;
    const std::int64_t difference = McTickClock::microseconds(tenDays + fiveMicroseconds)
        - McTickClock::microseconds(tenDays);
    QVERIFY(difference >= 4 && difference <= 6);
}

QTEST_APPLESS_MAIN(tst_McTickClock)
#include "tst_McTickClock.moc"
