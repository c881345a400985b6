// What docs/concepts/bus.md shows.
#include "framework/notification/ExNotifiable.h"
#include "framework/notification/ExNotifiables.h"

/// Counts the slices that were gone through since a volume was last shown.
class SliceCounter final : public ExNotifiable
{
public:
    void addNotifications() override
    {
        ExNotifiables::getInstance().addNotifications(this, ExNotification::SLICE_CHANGED,
            ExNotification::VIEWER_VOLUME_CHANGED, ExNotification::NONE);
    }
    void notified(const ExNotification &notification) override
    {
        m_count = notification.type() == ExNotification::SLICE_CHANGED ? m_count + 1 : 0;
    }
    [[nodiscard]] int count() const { return m_count; }

private:
    int m_count = 0;
};

void sliceChanged(ExBaseViewer *viewer)
{
    // GUI thread: everybody has been told when this returns.
    ExNotifiable::notify({ExNotification::SLICE_CHANGED, viewer});
}

void volumesArrived()
{
    // Any thread: told from the event loop, once, however often this was called meanwhile.
    ExNotifiables::getInstance().notifyDelayed(ExNotification::VOLUMES_LOADED_INTO_SYSTEM);
}
