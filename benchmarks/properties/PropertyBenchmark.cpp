// Settings: reading, writing and telling of changes, beside the toolkit's settings file.

#include "platform/properties/KxPropertyPool.h"

#include <QObject>
#include <QSettings>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int present = 200; ///< settings in the store

QString keyOf(int i)
{
    return u"Bench.Group%1.Value%2"_s.arg(i / 10).arg(i);
}

/// A file with many settings, for either.
class Store
{
public:
    Store()
        : settings(m_folder.filePath(u"bench.ini"_s), QSettings::IniFormat)
    {
        for (int i = 0; i < present; ++i) {
            settings.setValue(keyOf(i).replace(u'.', u'/'), i);
        }
        settings.sync();
    }

private:
    QTemporaryDir m_folder;

public:
    QSettings settings;
};

KxProperty<int> &property(int i)
{
    KxPropertyPool &pool = KxPropertyPool::instance();
    return pool.property<int>(KxPropertyKey(keyOf(i)), i, pool.defaultSerializer());
}

void fillPool()
{
    for (int i = 0; i < present; ++i) {
        property(i);
    }
}

void readSettings(benchmark::State &state)
{
    const Store store;
    int next = 0;
    for (auto _ : state) {
        next = (next + 1) % present;
        benchmark::DoNotOptimize(store.settings.value(u"Bench/Group7/Value77"_s).toInt() + next);
    }
}

void readPool(benchmark::State &state)
{
    fillPool();
    const KxPropertyPool &pool = KxPropertyPool::instance();
    int next = 0;
    for (auto _ : state) {
        next = (next + 1) % present;
        benchmark::DoNotOptimize(pool.find<int>("Bench.Group7.Value77")->value() + next);
    }
}

void writeSettings(benchmark::State &state)
{
    Store store;
    int value = 0;
    for (auto _ : state) {
        store.settings.setValue(u"Bench/Group7/Value77"_s, ++value);
    }
}

/// With a subscriber to the change, and in the store of the session, which is written like the
/// settings above: in memory.
void writePool(benchmark::State &state)
{
    fillPool();
    KxProperty<int> &setting = property(77);
    int value = setting.value();
    int told = 0;
    const QMetaObject::Connection connection
        = QObject::connect(&setting, &KxVariant::propertyChanged, [&told] { ++told; });
    for (auto _ : state) {
        setting.change(++value);
    }
    QObject::disconnect(connection);
    if (told == 0) {
        state.SkipWithError("nobody was told");
    }
}

BENCHMARK(readSettings)->Name("settings: read/QSettings");
BENCHMARK(readPool)->Name("settings: read/movara");
BENCHMARK(writeSettings)->Name("settings: write/QSettings, nobody told");
BENCHMARK(writePool)->Name("settings: write/movara, one subscriber told");

} // namespace
