// What the event handler adds to sending a mouse move to a widget.

#include "framework/dispatch/ExActionHandler.h"
#include "framework/input/ExEventHandler.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWidget>

#include <benchmark/benchmark.h>

#include <cstdint>

namespace {

constexpr int boundKeys = 50;
constexpr int boundActions = 10;

class Receiver : public ExActionHandler
{
public:
    bool look(const ExEvent &event)
    {
        sum += event.x;
        return false;
    }

    std::int64_t sum = 0;
};

void sendMoves(benchmark::State &state, QWidget &widget)
{
    int x = 0;
    for (auto _ : state) {
        const QPointF position(x++ % 100, 10);
        QMouseEvent move(
            QEvent::MouseMove, position, position, Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &move);
    }
}

void plainSend(benchmark::State &state)
{
    QWidget widget;
    widget.setMouseTracking(true);
    sendMoves(state, widget);
}

void sendThroughHandler(benchmark::State &state)
{
    QWidget widget;
    widget.setMouseTracking(true);
    Receiver receiver;
    ExEventHandler handler;
    handler.connect(&widget);
    for (int key = 0; key < boundKeys; ++key) {
        handler.addAction(
            {ExSignal(ExSignal::PRESS, Qt::Key_A + key, 0, 0), &receiver, &Receiver::look});
    }
    for (int action = 0; action < boundActions; ++action) {
        handler.addAction({ExSignal(ExSignal::MOVE, 0, 0, 0), &receiver, &Receiver::look});
    }
    sendMoves(state, widget);
    benchmark::DoNotOptimize(receiver.sum);
}

BENCHMARK(plainSend)->Name("input: mouse move/sendEvent to a plain widget");
BENCHMARK(sendThroughHandler)->Name("input: mouse move/movara, 50 keys and 10 actions");

} // namespace
