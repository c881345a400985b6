#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "framework/dispatch/ExActionCore.h"
#include "framework/dispatch/ExActionMap.h"
#include "framework/input/ExEvent.h"

#include <QObject>

#include <cstddef>
#include <memory>

class ExEventHandlerPrivate;

extern template class MOVARA_FRAMEWORK_EXPORT
    ExActionMap<ExSignal, std::pair<ExSignal::Type, int>, ExEvent>;

/// Turns the toolkit's mouse, wheel and key events on the objects that it watches, normally a
/// viewer's render widget, into events of this framework, makes clicks out of presses and releases,
/// and offers each to the actions bound to its signal. Owned by the viewer; owns neither the
/// watched objects nor the receivers of its actions. GUI thread only. A receiver, a watched object
/// and the handler itself may be destroyed by an action that the handler calls.
class MOVARA_FRAMEWORK_EXPORT ExEventHandler : public QObject
{
    Q_OBJECT

public:
    using Action = ExActionCore<ExSignal, ExEvent>;

    /// No parent, no actions, a click tolerance of 5 pixels.
    ExEventHandler();
    ~ExEventHandler() override;

    using QObject::connect;
    using QObject::disconnect;

    /// Watches an object, as an event filter on it. Null is ignored.
    void connect(QObject *object);
    /// Stops watching and forgets what was remembered of the object. Null is ignored.
    void disconnect(QObject *object);

    /// How far, in pixels along either axis, a release may be from its press to make a click. Any
    /// value is taken.
    void setClickTolerance(int pixels);
    [[nodiscard]] int clickTolerance() const;

    /// Binds an action to its signal. Among the actions of a signal's type and code the one with
    /// the highest order key is tried first, among equal ones the one added last. Only actions
    /// whose required state is empty are called for live input: an action that depends on a
    /// modifier or a held button tests that itself.
    void addAction(const Action &action);
    /// Removes the first action with the same receiver and an equal signal; handler and order key
    /// are not compared.
    void removeAction(const Action &action);

    /// The last event on an object that no action has consumed; one without signal when the
    /// object's last event was no input, or when none is known.
    [[nodiscard]] ExEvent event(QObject *object) const;
    /// No object is never seen. A null pointer constant would go to QObject::event() otherwise.
    [[nodiscard]] ExEvent event(std::nullptr_t /*object*/) { return {}; }
    using QObject::event;

    /// True when an action has consumed the event: the toolkit is not to deliver it further. Mouse
    /// moves that arrive while another event is being handled are swallowed.
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    std::unique_ptr<ExEventHandlerPrivate> d;
};
