#pragma once

#include "framework/notification/ExNotifiable.h"

class WorkstationViewer;

/// Keeps what lies over a viewer's image up to date: listens for what changes in the viewer itself
/// and, for the reference lines, in the others. Owned by the viewer.
class ViewerOverlay final : public ExNotifiable
{
public:
    explicit ViewerOverlay(WorkstationViewer &viewer);

    void notified(const ExNotification &notification) override;
    void addNotifications() override;

private:
    WorkstationViewer &m_viewer;
};
