#pragma once

#include "framework/input/ExEventHandler.h"

#include <map>

/// The actions of an event handler, and what it remembers of the objects that it watches.
class ExEventHandlerPrivate : public ExActionMap<ExSignal, std::pair<ExSignal::Type, int>, ExEvent>
{
public:
    /// Offers the event from the highest order key down, among equal ones the last added first.
    bool dispatch(const ExEvent &event);
    /// Fills in what depends on the events before: previous position and, unless it is of a key,
    /// clicks.
    void recognize(ExEvent &event, bool isKey);
    /// Keeps the event as the object's last one.
    void store(const ExEvent &event);
    void forget(const QObject *object);
    /// Whether an input event of the object was seen since it was last forgotten.
    [[nodiscard]] bool remembers(const QObject *object) const;

    int clickTolerance = 5;
    /// What event() gives.
    std::map<const QObject *, ExEvent> lastEvents;
    /// The last input event of each object, for the previous position.
    std::map<const QObject *, ExEvent> motionEvents;
    /// The press that may become a click, of each object.
    std::map<const QObject *, ExEvent> pressEvents;

private:
    [[nodiscard]] bool isNear(const ExEvent &a, const ExEvent &b) const;
    void recognizeClick(ExEvent &event);
    void recognizeRelease(ExEvent &event);
    void recognizeMove(ExEvent &event);
};
