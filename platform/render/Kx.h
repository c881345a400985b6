#pragma once

#include "platform/MovaraPlatformExport.h"

/// Codes of the rendering library.
namespace Kx {

/// Buttons and modifier keys held, as bits.
enum ButtonState : unsigned {
    NoButtonState = 0,
    LeftButton = 1,
    MiddleButton = 2,
    RightButton = 4,
    ShiftModifier = 8,
    ControlModifier = 16,
    AltModifier = 32,
    DoubleClick = 64
};

/// Mouse events; a press is the release of its button plus one.
enum MouseEvent {
    MouseMove = 0,
    LeftReleased = 2,
    LeftPressed = 3,
    MiddleReleased = 4,
    MiddlePressed = 5,
    RightReleased = 6,
    RightPressed = 7
};

/// Whether the library shows what only its developers need, e.g. the topic behind a help action.
/// Off unless the environment variable MOVARA_DEBUG is set and not "0"; may be switched at any
/// time.
extern MOVARA_PLATFORM_EXPORT bool DBG_MOVARA_DEBUG;

} // namespace Kx
