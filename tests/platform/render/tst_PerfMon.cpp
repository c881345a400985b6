#include "platform/render/PerfMon.h"

#include <QTest>

#include <thread>
#include <vector>

class tst_PerfMon : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { PerfMon::setActive(false); }

    void readings()
    {
        PerfMon monitor;
        monitor.sensorValueSet(0, 1, 5, true);
        QCOMPARE(monitor.reading(0, 1).count, 0); // Off.
        PerfMon::setActive(true);
        for (const int value : {-3, 10, 2}) {
            monitor.sensorValueSet(0, 1, value, true);
        }
        monitor.sensorValueSet(0, 1, 99, false); // Shown, not counted.
        const PerfMon::Reading reading = monitor.reading(0, 1);
        QCOMPARE(
            QList<std::int64_t>({reading.count, reading.last, reading.minimum, reading.maximum}),
            QList<std::int64_t>({3, 99, -3, 10}));
        QCOMPARE(reading.mean, 3.0);
        monitor.registerSensors(0, {"a", "b"});
        monitor.reset();
        QCOMPARE(monitor.reading(0, 1).count, 0);
        QCOMPARE(monitor.sensorNames(0).size() + monitor.sensorNames(1).size(), 2U);
    }

    void fromManyThreads()
    {
        constexpr int count = 1000;
        PerfMon monitor;
        std::vector<std::jthread> threads;
        for (unsigned i = 0; i < 4; ++i) {
            threads.emplace_back([&monitor, i] {
                for (int n = 0; n < count; ++n) {
                    PerfMon::setActive(true);
                    monitor.sensorValueSet(0, i % 2, n, true);
                    monitor.registerSensors(i, {"x"});
                }
            });
        }
        while (monitor.reading(0, 0).count + monitor.reading(0, 1).count < 4 * count) {
            QVERIFY(monitor.sensorNames(0).size() <= 1);
        }
        threads.clear();
        QCOMPARE(monitor.reading(0, 1).maximum, count - 1);
    }
};

QTEST_APPLESS_MAIN(tst_PerfMon)
#include "tst_PerfMon.moc"
