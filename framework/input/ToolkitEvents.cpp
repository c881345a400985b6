#include "framework/input/ToolkitEvents.h"

#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QWidget>

namespace {

constexpr int largestButton = 16;

int stateOf(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers)
{
    return static_cast<int>(buttons.toInt()) | static_cast<int>(modifiers.toInt());
}

void setPosition(ExEvent &event, const QPoint &position)
{
    event.x = position.x();
    event.y = position.y();
}

void fillMouse(ExEvent &event, ExSignal::Type type, const QMouseEvent &mouse)
{
    const auto button = static_cast<int>(mouse.button());
    if (button > largestButton) {
        return;
    }
    event.type = type;
    event.buttonOrKey = type == ExSignal::MOVE ? 0 : button;
    event.state = stateOf(mouse.buttons(), mouse.modifiers());
    setPosition(event, mouse.position().toPoint());
}

void fillKey(ExEvent &event, ExSignal::Type type, const QKeyEvent &key)
{
    event.type = type;
    event.buttonOrKey = key.key();
    event.state = stateOf(QGuiApplication::mouseButtons(), key.modifiers());
    if (const auto *widget = qobject_cast<QWidget *>(event.object)) {
        setPosition(event, widget->mapFromGlobal(QCursor::pos()));
    }
}

void fillWheel(ExEvent &event, const QWheelEvent &wheel)
{
    const QPoint delta = wheel.angleDelta();
    event.type = ExSignal::WHEEL;
    event.state = stateOf(wheel.buttons(), wheel.modifiers());
    event.delta = delta.y() != 0 ? delta.y() : delta.x();
    setPosition(event, wheel.position().toPoint());
}

} // namespace

void fillFromToolkitEvent(ExEvent &event, const QEvent &toolkitEvent)
{
    switch (toolkitEvent.type()) {
    case QEvent::MouseButtonPress:
        return fillMouse(event, ExSignal::PRESS, static_cast<const QMouseEvent &>(toolkitEvent));
    case QEvent::MouseButtonRelease:
        return fillMouse(event, ExSignal::RELEASE, static_cast<const QMouseEvent &>(toolkitEvent));
    case QEvent::MouseButtonDblClick:
        return fillMouse(
            event, ExSignal::DOUBLE_CLICK, static_cast<const QMouseEvent &>(toolkitEvent));
    case QEvent::MouseMove:
        return fillMouse(event, ExSignal::MOVE, static_cast<const QMouseEvent &>(toolkitEvent));
    case QEvent::KeyPress:
        return fillKey(event, ExSignal::PRESS, static_cast<const QKeyEvent &>(toolkitEvent));
    case QEvent::KeyRelease:
        return fillKey(event, ExSignal::RELEASE, static_cast<const QKeyEvent &>(toolkitEvent));
    case QEvent::Wheel:
        return fillWheel(event, static_cast<const QWheelEvent &>(toolkitEvent));
    default:
        return;
    }
}

bool isKeyEvent(const QEvent &toolkitEvent)
{
    return toolkitEvent.type() == QEvent::KeyPress || toolkitEvent.type() == QEvent::KeyRelease;
}
