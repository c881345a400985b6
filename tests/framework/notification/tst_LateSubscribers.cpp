// Static subscribers at the end of the process: some go before the dispatcher, some after it. A
// program of its own, because what matters happens after main(); its exit code is the result.

#include "framework/notification/ExNotifiable.h"
#include "framework/notification/ExNotifiables.h"

#include <cstdlib>
#include <memory>

namespace {

int deliveries = 0;

class Subscriber : public ExNotifiable
{
public:
    void notified(const ExNotification & /*notification*/) override { ++deliveries; }
    void addNotifications() override
    {
        ExNotifiables::getInstance().addNotifications(
            this, ExNotification::CLEANUP, ExNotification::UNSPECIFIC, ExNotification::NONE);
    }
};

/// Made before the dispatcher, so destroyed after its state; everything is still callable then.
class Holder
{
public:
    ~Holder()
    {
        const int before = deliveries;
        ExNotifiables &bus = ExNotifiables::getInstance();
        const Subscriber tooLate;
        bus.addNotification(m_subscriber.get(), ExNotification::CLEANUP);
        bus.blockNotifications(false);
        bus.deleteAllTools();
        bus.notify(ExNotification::CLEANUP);
        bus.notifyDelayed(ExNotification::CLEANUP);
        bus.removeDelayedNotifications(nullptr);
        m_subscriber->setBlockedNotifications(true);
        m_subscriber.reset();
        if (deliveries != before || bus.areNotificationsBlocked()) {
            std::_Exit(EXIT_FAILURE);
        }
    }
    void make() { m_subscriber = std::make_unique<Subscriber>(); }

private:
    std::unique_ptr<Subscriber> m_subscriber;
};

Holder holder;
Subscriber early;

} // namespace

int main()
{
    holder.make();
    static const Subscriber local;
    ExNotifiables::getInstance().notifyDelayed(ExNotification::CLEANUP);
    ExNotifiable::notify(ExNotification::CLEANUP);
    constexpr int expected = 3 * 2;
    return deliveries == expected ? EXIT_SUCCESS : EXIT_FAILURE;
}
