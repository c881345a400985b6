#pragma once

#include "framework/dispatch/ExActionHandler.h"
#include "framework/input/ExEventHandler.h"

class SliceViewer;
class VolumeViewer;
class WorkstationViewer;

/// One thing that users do with mouse or keyboard in a viewer. Shared by all viewers: it finds the
/// viewer by the event, and keeps nothing that belongs to one. Lives longer than the viewers whose
/// handlers it is installed on, or is forgotten by these when it goes. GUI thread only.
class ViewerInteraction : public ExActionHandler
{
public:
    /// Adds its actions to a viewer's handler.
    virtual void install(ExEventHandler &handler) = 0;

protected:
    /// Binds an input to a member function of @p receiver.
    template <typename Receiver>
    static void bind(ExEventHandler &handler, ExSignal::Type type, int code, Receiver *receiver,
        bool (Receiver::*function)(const ExEvent &), int orderKey = 0)
    {
        ExEventHandler::Action action(ExSignal(type, code, 0, 0), receiver, function);
        action.signal.orderKey = orderKey;
        handler.addAction(action);
    }

    /// The viewer of an event; null when it is none of the workstation's.
    [[nodiscard]] static WorkstationViewer *viewerOf(const ExEvent &event);
    /// The same, when it is of this kind and shows something.
    [[nodiscard]] static SliceViewer *sliceViewerOf(const ExEvent &event);
    [[nodiscard]] static VolumeViewer *volumeViewerOf(const ExEvent &event);
    /// Whether exactly these modifiers are held.
    [[nodiscard]] static bool hasModifiers(const ExEvent &event, Qt::KeyboardModifiers modifiers);
};
