// One record delivered to many subscribers. "per delivery" is the time divided by their number.

#include "benchmarks/notification/Peers.h"

#include <boost/signals2.hpp>
#include <sigc++/sigc++.h>
#include <vtkCallbackCommand.h>
#include <vtkCommand.h>
#include <vtkNew.h>
#include <vtkObject.h>

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

namespace {

const ExNotification record(ExNotification::SLICE_CHANGED);

template <typename Receiver>
std::vector<std::unique_ptr<Receiver>> makeReceivers(const benchmark::State &state)
{
    std::vector<std::unique_ptr<Receiver>> receivers(static_cast<std::size_t>(state.range(0)));
    for (std::unique_ptr<Receiver> &receiver : receivers) {
        receiver = std::make_unique<Receiver>();
    }
    return receivers;
}

void reportPerDelivery(benchmark::State &state)
{
    state.counters["per delivery"] = benchmark::Counter(static_cast<double>(state.range(0)),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void busMovara(benchmark::State &state)
{
    const auto receivers = makeReceivers<CountingSubscriber>(state);
    ExNotifiable::notify(ExNotification::NONE); // Asks them for their types.
    for (auto _ : state) {
        ExNotifiable::notify(record);
    }
    benchmark::DoNotOptimize(receivers.front()->count);
    reportPerDelivery(state);
}

void busQt(benchmark::State &state)
{
    const auto receivers = makeReceivers<QtReceiver>(state);
    QtSender sender;
    for (const auto &receiver : receivers) {
        QObject::connect(&sender, &QtSender::published, receiver.get(), &QtReceiver::receive);
    }
    for (auto _ : state) {
        Q_EMIT sender.published(record);
    }
    benchmark::DoNotOptimize(receivers.front()->count);
    reportPerDelivery(state);
}

void busBoost(benchmark::State &state)
{
    const auto receivers = makeReceivers<PlainReceiver>(state);
    boost::signals2::signal<void(const ExNotification &)> published;
    for (const auto &receiver : receivers) {
        published.connect(
            [target = receiver.get()](const ExNotification &n) { target->receive(n); });
    }
    for (auto _ : state) {
        published(record);
    }
    benchmark::DoNotOptimize(receivers.front()->count);
    reportPerDelivery(state);
}

void busSigc(benchmark::State &state)
{
    const auto receivers = makeReceivers<PlainReceiver>(state);
    sigc::signal<void(const ExNotification &)> published;
    for (const auto &receiver : receivers) {
        published.connect(sigc::mem_fun(*receiver, &PlainReceiver::receive));
    }
    for (auto _ : state) {
        published.emit(record);
    }
    benchmark::DoNotOptimize(receivers.front()->count);
    reportPerDelivery(state);
}

void busVtk(benchmark::State &state)
{
    const auto receivers = makeReceivers<PlainReceiver>(state);
    vtkNew<vtkObject> sender;
    for (const auto &receiver : receivers) {
        vtkNew<vtkCallbackCommand> command;
        command->SetClientData(receiver.get());
        command->SetCallback([](vtkObject *, unsigned long, void *target, void *data) {
            static_cast<PlainReceiver *>(target)->receive(
                *static_cast<const ExNotification *>(data));
        });
        sender->AddObserver(vtkCommand::UserEvent, command);
    }
    ExNotification copy = record;
    for (auto _ : state) {
        sender->InvokeEvent(vtkCommand::UserEvent, &copy);
    }
    benchmark::DoNotOptimize(receivers.front()->count);
    reportPerDelivery(state);
}

void busVirtualCall(benchmark::State &state)
{
    const auto receivers = makeReceivers<PlainReceiver>(state);
    for (auto _ : state) {
        for (const auto &receiver : receivers) {
            receiver->receive(record);
        }
    }
    benchmark::DoNotOptimize(receivers.front()->count);
    reportPerDelivery(state);
}

BENCHMARK(busMovara)->Name("bus/movara")->Arg(1)->Arg(100);
BENCHMARK(busQt)->Name("bus/qt")->Arg(1)->Arg(100);
BENCHMARK(busBoost)->Name("bus/boost::signals2")->Arg(1)->Arg(100);
BENCHMARK(busSigc)->Name("bus/sigc++")->Arg(1)->Arg(100);
BENCHMARK(busVtk)->Name("bus/vtk")->Arg(1)->Arg(100);
BENCHMARK(busVirtualCall)->Name("bus/virtual call")->Arg(1)->Arg(100);

} // namespace
