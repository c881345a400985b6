#pragma once

#include "framework/dispatch/ExActionHandlerCore.h"

#include <array>
#include <cstddef>
#include <cstring>
#include <type_traits>

/// One action: a signal, and the member function of a receiver that it is to call. A value; owns
/// nothing. An action without a receiver or without a handler is dead and is never called.
template <typename Signal, typename Event>
class ExActionCore
{
public:
    /// A dead action.
    ExActionCore() = default;

    /// @param receiver derives from ExActionHandlerCore (virtually, as a rule); not owned, may be
    /// null.
    /// @param handler returns true when it has consumed the event; may be null.
    template <typename Receiver, typename Class>
    ExActionCore(
        const Signal &actionSignal, Receiver *receiver, bool (Class::*handler)(const Event &))
        : signal(actionSignal)
        , m_receiver(receiver)
    {
        static_assert(
            std::is_base_of_v<Class, Receiver>, "the handler must be a member of the receiver");
        static_assert(sizeof handler <= sizeof m_handler);
        // A pointer to a member of a derived class does not convert to one of a virtual base. So
        // the object is kept as the class that the handler belongs to, beside a function that knows
        // this class.
        m_object = static_cast<Class *>(receiver);
        std::memcpy(m_handler.data(), &handler, sizeof handler);
        m_call = handler == nullptr ? nullptr : &callStored<Class>;
    }

    /// Dead actions, without a handler or without a receiver: null constants have no type from
    /// which the constructor above could tell the classes. Enough to remove an action by, too:
    /// handlers are not compared then.
    ExActionCore(
        const Signal &actionSignal, ExActionHandlerCore *receiver, std::nullptr_t /*handler*/)
        : signal(actionSignal)
        , m_receiver(receiver)
    { }
    template <typename Class>
    ExActionCore(const Signal &actionSignal, std::nullptr_t /*receiver*/,
        bool (Class::* /*handler*/)(const Event &))
        : signal(actionSignal)
    { }

    /// An action whose handler is known when compiling; a little faster to call.
    template <auto handler, typename Receiver>
    static ExActionCore bound(const Signal &actionSignal, Receiver *receiver)
    {
        ExActionCore action;
        action.signal = actionSignal;
        action.m_receiver = receiver;
        action.m_object = receiver;
        action.m_call = &callBound<handler, Receiver>;
        return action;
    }

    [[nodiscard]] ExActionHandlerCore *receiver() const { return m_receiver; }
    [[nodiscard]] bool isDead() const { return m_receiver == nullptr || m_call == nullptr; }
    /// Calls the handler; only for an action that is not dead.
    bool call(const Event &event) const { return m_call(*this, event); }
    /// Makes the action dead.
    void clear()
    {
        m_receiver = nullptr;
        m_call = nullptr;
    }

    /// What the action is bound to.
    Signal signal{};

private:
    template <typename Class>
    static bool callStored(const ExActionCore &action, const Event &event)
    {
        bool (Class::*handler)(const Event &) = nullptr;
        std::memcpy(&handler, action.m_handler.data(), sizeof handler);
        return (static_cast<Class *>(action.m_object)->*handler)(event);
    }

    template <auto handler, typename Receiver>
    static bool callBound(const ExActionCore &action, const Event &event)
    {
        return (static_cast<Receiver *>(action.m_object)->*handler)(event);
    }

    ExActionHandlerCore *m_receiver = nullptr;
    void *m_object = nullptr;
    bool (*m_call)(const ExActionCore &, const Event &) = nullptr;
    std::array<std::byte, 3 * sizeof(void *)> m_handler{};
};
