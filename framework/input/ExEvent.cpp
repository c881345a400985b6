#include "framework/input/ExEvent.h"

#include "framework/viewers/ExBaseViewerRenderWidget.h"
#include "platform/render/KxMsg.h"

ExBaseViewer *ExEvent::viewer() const
{
    auto *const widget = qobject_cast<ExBaseViewerRenderWidget *>(object);
    return widget == nullptr ? nullptr : widget->viewer();
}

KxMsg &operator<<(KxMsg &message, const ExEvent &event)
{
    return message << static_cast<const ExSignal &>(event) << event.x << event.y << event.pressX
                   << event.pressY << event.delta;
}

KxMsg &operator>>(KxMsg &message, ExEvent &event)
{
    message >> static_cast<ExSignal &>(event) >> event.x >> event.y >> event.pressX >> event.pressY
        >> event.delta;
    event.object = nullptr;
    return message;
}
