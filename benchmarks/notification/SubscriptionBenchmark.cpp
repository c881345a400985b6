// Subscribing many and ending the subscriptions again, in the order in which they were made.

#include "benchmarks/notification/Peers.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

namespace {

void destroyMovara(benchmark::State &state)
{
    std::vector<std::unique_ptr<CountingSubscriber>> subscribers(
        static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        for (auto &subscriber : subscribers) {
            subscriber = std::make_unique<CountingSubscriber>();
        }
        ExNotifiable::notify(ExNotification::NONE);
        state.ResumeTiming();
        for (auto &subscriber : subscribers) {
            subscriber.reset();
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void subscribeAndDestroyMovara(benchmark::State &state)
{
    std::vector<std::unique_ptr<CountingSubscriber>> subscribers(
        static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        for (auto &subscriber : subscribers) {
            subscriber = std::make_unique<CountingSubscriber>();
        }
        ExNotifiable::notify(ExNotification::NONE);
        for (auto &subscriber : subscribers) {
            subscriber.reset();
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

/// Connects receivers that exist to a signal.
class QtConnections
{
public:
    explicit QtConnections(std::int64_t count)
        : m_receivers(static_cast<std::size_t>(count))
        , m_connections(m_receivers.size())
    { }
    void connectAll()
    {
        for (std::size_t i = 0; i < m_receivers.size(); ++i) {
            m_connections[i] = QObject::connect(
                &m_sender, &QtSender::published, &m_receivers[i], &QtReceiver::receive);
        }
    }
    void disconnectAll()
    {
        for (const QMetaObject::Connection &connection : m_connections) {
            QObject::disconnect(connection);
        }
    }

private:
    QtSender m_sender;
    std::vector<QtReceiver> m_receivers;
    std::vector<QMetaObject::Connection> m_connections;
};

void disconnectQt(benchmark::State &state)
{
    QtConnections connections(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        connections.connectAll();
        state.ResumeTiming();
        connections.disconnectAll();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void connectAndDisconnectQt(benchmark::State &state)
{
    QtConnections connections(state.range(0));
    for (auto _ : state) {
        connections.connectAll();
        connections.disconnectAll();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(destroyMovara)->Name("subscribers: destroy/movara")->Arg(100)->Arg(1000)->Arg(10000);
BENCHMARK(disconnectQt)
    ->Name("subscribers: destroy/qt, disconnect by handle")
    ->Arg(100)
    ->Arg(1000)
    ->Arg(10000);
BENCHMARK(subscribeAndDestroyMovara)
    ->Name("subscribers: make and destroy/movara")
    ->Arg(100)
    ->Arg(1000)
    ->Arg(10000);
BENCHMARK(connectAndDisconnectQt)
    ->Name("subscribers: make and destroy/qt, by handle")
    ->Arg(100)
    ->Arg(1000)
    ->Arg(10000);

} // namespace
