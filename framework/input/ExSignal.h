#pragma once

#include "framework/MovaraFrameworkExport.h"

#include <utility>

class KxMsg;

/// One input gesture, as short as it can be said: the key under which actions are bound to input. A
/// value.
class MOVARA_FRAMEWORK_EXPORT ExSignal
{
public:
    enum Type : int {
        PRESS = 0, ///< mouse button or key pressed
        RELEASE = 1, ///< mouse button or key released
        CLICK = 2, ///< a release that the event handler takes for the end of a click
        DOUBLE_CLICK = 3,
        MOVE = 4,
        WHEEL = 5,
        NO_SIGNAL = 6 ///< anything else
    };

    /// No signal: everything else 0.
    ExSignal() = default;
    /// @param signalCode the toolkit's button (1, 2, 4, 8, 16; 0 for none) or its key code.
    /// @param signalState buttons held and keyboard modifiers, in the toolkit's bits.
    /// @param extraMask bits of the state that matter beside those that are set in it.
    ExSignal(Type signalType, int signalCode, int signalState, int extraMask)
        : type(signalType)
        , buttonOrKey(signalCode)
        , state(signalState)
        , mask(signalState | extraMask)
    { }
    ExSignal(const ExSignal &) = default;
    ExSignal &operator=(const ExSignal &) = default;
    virtual ~ExSignal();

    /// Non-zero when type, code, state and mask are equal; order key and expectation do not count.
    int operator==(const ExSignal &other) const
    {
        return type == other.type && buttonOrKey == other.buttonOrKey && state == other.state
            && mask == other.mask;
    }

    /// The key of action tables: type and code.
    [[nodiscard]] std::pair<Type, int> code() const { return {type, buttonOrKey}; }

    [[nodiscard]] bool isWheel() const { return type == WHEEL; }
    /// Also true for gestures without a button, e.g. a plain move, and for a default signal. Codes
    /// 1 to 16 count as buttons whatever the type: no key that the toolkit reports has such a code.
    [[nodiscard]] bool isMouse() const
    {
        return buttonOrKey == 0 ? type != WHEEL : buttonOrKey >= 1 && buttonOrKey <= 16;
    }
    [[nodiscard]] bool isKey() const { return type != NO_SIGNAL && !isMouse() && type != WHEEL; }

    /// The state in the rendering library's bits (Kx::ButtonState).
    [[nodiscard]] unsigned kxButtonState() const;

    Type type = NO_SIGNAL;
    /// The toolkit's button (0 for none) or key code.
    int buttonOrKey = 0;
    /// Buttons held and keyboard modifiers, in the toolkit's bits.
    int state = 0;
    /// The bits of the state that matter when matching.
    int mask = 0;
    /// Priority among actions bound to the same input: the highest is tried first.
    int orderKey = 0;
    /// The gesture that may follow: CLICK while a press can still become one.
    Type expected = NO_SIGNAL;
};

/// Writes type, code, state, mask, order key and expected type, each as a 32-bit integer.
MOVARA_FRAMEWORK_EXPORT KxMsg &operator<<(KxMsg &message, const ExSignal &signal);
/// Reads the same in the same order.
MOVARA_FRAMEWORK_EXPORT KxMsg &operator>>(KxMsg &message, ExSignal &signal);
