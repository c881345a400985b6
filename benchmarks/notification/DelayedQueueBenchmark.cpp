// Deferred notifications: queueing distinct ones, against posting a bare event for each.

#include "framework/notification/ExNotifiable.h"
#include "framework/notification/ExNotifiables.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>

#include <benchmark/benchmark.h>

#include <bit>
#include <cstdint>

namespace {

void *distinct(std::int64_t number)
{
    return std::bit_cast<void *>(static_cast<std::uintptr_t>(number) * 64);
}

void queueMovara(benchmark::State &state)
{
    ExNotifiables &dispatcher = ExNotifiables::getInstance();
    for (auto _ : state) {
        for (std::int64_t i = 0; i < state.range(0); ++i) {
            dispatcher.notifyDelayed(
                ExNotification(ExNotification::LABELS_CHANGED, nullptr, nullptr, distinct(i)));
        }
        state.PauseTiming();
        dispatcher.removeDelayedNotifications(nullptr);
        QCoreApplication::sendPostedEvents();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void queueBareEvents(benchmark::State &state)
{
    QObject receiver;
    for (auto _ : state) {
        for (std::int64_t i = 0; i < state.range(0); ++i) {
            QCoreApplication::postEvent(&receiver, new QEvent(QEvent::User));
        }
        state.PauseTiming();
        QCoreApplication::sendPostedEvents();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(queueMovara)->Name("queue/movara")->Arg(10)->Arg(1000)->Arg(100000);
BENCHMARK(queueBareEvents)->Name("queue/bare postEvent")->Arg(10)->Arg(1000)->Arg(100000);

} // namespace
