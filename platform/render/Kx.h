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

/// Key events.
enum KeyEvent { KeyReleased = 0, KeyPressed = 1 };

/// Keys. One that prints a character has the Unicode value of the character on it, letters in upper
/// case: 'A', '1', ' '. The others stand above the Unicode range.
enum Key : int {
    UnknownKey = 0, ///< one that the library has no code for
    EscapeKey = 0x110000,
    TabKey,
    BacktabKey,
    BackspaceKey,
    ReturnKey,
    EnterKey, ///< on the number pad
    InsertKey,
    DeleteKey,
    PauseKey,
    PrintKey,
    HomeKey,
    EndKey,
    LeftKey,
    UpKey,
    RightKey,
    DownKey,
    PageUpKey,
    PageDownKey,
    ShiftKey,
    ControlKey,
    AltKey,
    AltGrKey,
    MetaKey,
    MenuKey,
    F1Key = 0x110100, ///< the following function keys have the following values
    F24Key = F1Key + 23
};

/// What the pointer looks like over a viewer.
enum KxCursorShape : int {
    DefaultCursor = 0, ///< the viewer's own
    ArrowCursor,
    CrossCursor, ///< a point is about to be set
    PointingHandCursor, ///< something can be picked
    OpenHandCursor, ///< something can be taken hold of
    ClosedHandCursor, ///< it is being dragged
    MoveCursor, ///< moves in all directions
    HorizontalCursor, ///< moves to the left and right
    VerticalCursor, ///< moves up and down
    FallingDiagonalCursor, ///< from the top left to the bottom right
    RisingDiagonalCursor, ///< from the bottom left to the top right
    TextCursor,
    ForbiddenCursor,
    BusyCursor,
    BlankCursor ///< none at all
};

/// Whether the library shows what only its developers need, e.g. the topic behind a help action.
/// Off unless the environment variable MOVARA_DEBUG is set and not "0"; may be switched at any
/// time.
extern MOVARA_PLATFORM_EXPORT bool DBG_MOVARA_DEBUG;

} // namespace Kx
