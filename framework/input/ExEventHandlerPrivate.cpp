#include "framework/input/ExEventHandlerPrivate.h"

#include <cstdlib>

bool ExEventHandlerPrivate::dispatch(const ExEvent &event)
{
    List *const list = find(event.code());
    if (list == nullptr) {
        return false;
    }
    // The event's mask takes part as it is. Events of the filter have none, so that an action which
    // requires a modifier or a held button is never called for live input; only events made by hand
    // can reach it.
    const int required = event.state & event.mask;
    return walkBackward(*list, event,
        [required](const ExSignal &signal) { return (signal.state & signal.mask) == required; });
}

void ExEventHandlerPrivate::recognize(ExEvent &event, bool isKey)
{
    if (const auto previous = motionEvents.find(event.object); previous != motionEvents.end()) {
        event.pressX = previous->second.x;
        event.pressY = previous->second.y;
    }
    if (!isKey) {
        recognizeClick(event);
    }
    motionEvents.insert_or_assign(event.object, event);
}

void ExEventHandlerPrivate::recognizeClick(ExEvent &event)
{
    if (event.type == ExSignal::PRESS) {
        event.expected = ExSignal::CLICK;
        pressEvents.insert_or_assign(event.object, event);
    } else if (event.type == ExSignal::RELEASE) {
        recognizeRelease(event);
    } else if (event.type == ExSignal::MOVE) {
        recognizeMove(event);
    }
}

void ExEventHandlerPrivate::recognizeRelease(ExEvent &event)
{
    const auto found = pressEvents.find(event.object);
    if (found == pressEvents.end()) {
        return;
    }
    const ExEvent &press = found->second;
    if (press.buttonOrKey == event.buttonOrKey && isNear(press, event)) {
        event.type = ExSignal::CLICK;
        event.x = press.x;
        event.y = press.y;
        event.pressX = press.pressX;
        event.pressY = press.pressY;
    }
    pressEvents.erase(found);
}

void ExEventHandlerPrivate::recognizeMove(ExEvent &event)
{
    const auto found = pressEvents.find(event.object);
    if (found == pressEvents.end()) {
        return;
    }
    if (isNear(found->second, event)) {
        event.expected = ExSignal::CLICK;
    } else {
        pressEvents.erase(found);
    }
}

bool ExEventHandlerPrivate::isNear(const ExEvent &a, const ExEvent &b) const
{
    return std::abs(a.x - b.x) <= clickTolerance && std::abs(a.y - b.y) <= clickTolerance;
}

void ExEventHandlerPrivate::store(const ExEvent &event)
{
    lastEvents.insert_or_assign(event.object, event);
}

void ExEventHandlerPrivate::forget(const QObject *object)
{
    lastEvents.erase(object);
    motionEvents.erase(object);
    pressEvents.erase(object);
}

bool ExEventHandlerPrivate::remembers(const QObject *object) const
{
    return motionEvents.find(object) != motionEvents.end();
}
