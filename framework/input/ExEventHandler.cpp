#include "framework/input/ExEventHandler.h"

#include "framework/input/ExEventHandlerPrivate.h"
#include "framework/input/ToolkitEvents.h"

#include <QEvent>
#include <QPointer>

template class ExActionMap<ExSignal, std::pair<ExSignal::Type, int>, ExEvent>;

namespace {

/// Set while any handler handles an event. A handler that runs within another one clears it when it
/// is done, for the outer one too: moves are only held back until something has been handled in
/// between.
bool busy = false;

class BusyScope
{
public:
    BusyScope() { busy = true; }
    ~BusyScope() { busy = false; }
    BusyScope(const BusyScope &) = delete;
    BusyScope &operator=(const BusyScope &) = delete;
};

} // namespace

ExEventHandler::ExEventHandler()
    : d(std::make_unique<ExEventHandlerPrivate>())
{ }

ExEventHandler::~ExEventHandler() = default;

void ExEventHandler::connect(QObject *object)
{
    if (object == nullptr) {
        return;
    }
    object->installEventFilter(this);
    QObject::disconnect(object, &QObject::destroyed, this, nullptr);
    // Another object may come to stand at the same address: nothing of this one must be left then.
    // A widget gets events even after it has told that it goes.
    QObject::connect(object, &QObject::destroyed, this, [this](QObject *gone) {
        gone->removeEventFilter(this);
        d->forget(gone);
    });
}

void ExEventHandler::disconnect(QObject *object)
{
    if (object == nullptr) {
        return;
    }
    object->removeEventFilter(this);
    QObject::disconnect(object, &QObject::destroyed, this, nullptr);
    d->forget(object);
}

void ExEventHandler::setClickTolerance(int pixels)
{
    d->clickTolerance = pixels;
}

int ExEventHandler::clickTolerance() const
{
    return d->clickTolerance;
}

void ExEventHandler::addAction(const Action &action)
{
    d->addAction(action);
}

void ExEventHandler::removeAction(const Action &action)
{
    d->removeAction(action);
}

ExEvent ExEventHandler::event(QObject *object) const
{
    return d->lastEvents[object];
}

bool ExEventHandler::eventFilter(QObject *object, QEvent *toolkitEvent)
{
    if (busy && toolkitEvent->type() == QEvent::MouseMove) {
        return true;
    }
    const BusyScope scope;
    ExEvent event(object);
    fillFromToolkitEvent(event, *toolkitEvent);
    if (event.type != ExSignal::NO_SIGNAL) {
        d->recognize(event, isKeyEvent(*toolkitEvent));
        const QPointer<QObject> watched(object);
        const QPointer<ExEventHandler> self(this);
        if (d->dispatch(event) || watched.isNull()) {
            return true;
        }
        if (self.isNull() || !d->remembers(object)) {
            return false; // An action has destroyed this handler, or disconnected the object.
        }
        const auto last = d->lastEvents.find(object);
        if (last != d->lastEvents.end() && last->second.isActivating()) {
            event.setActivating(true);
        }
    }
    d->store(event);
    return false;
}
