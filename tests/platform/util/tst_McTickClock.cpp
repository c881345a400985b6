#include "platform/util/McTickClock.h"

#include <QTest>

class tst_McTickClock : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void microsecondsSurviveDaysOfUptime()
    {
        const double ticksPerSecond = 1e15 / McTickClock::seconds(1'000'000'000'000'000);
        const auto tenDays = static_cast<std::int64_t>(10 * 86400 * ticksPerSecond);
        const auto fiveMicroseconds = static_cast<std::int64_t>(5e-6 * ticksPerSecond) + 1;
        const std::int64_t difference = McTickClock::microseconds(tenDays + fiveMicroseconds)
            - McTickClock::microseconds(tenDays);
        QVERIFY(difference >= 4 && difference <= 6);
    }
};

QTEST_APPLESS_MAIN(tst_McTickClock)
#include "tst_McTickClock.moc"
