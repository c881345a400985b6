#include "framework/input/ExSignal.h"

#include "platform/render/Kx.h"
#include "platform/render/KxMsg.h"

#include <Qt>

namespace {

struct StateBit
{
    unsigned toolkit;
    unsigned kx;
};

constexpr StateBit stateBits[] = {
    {Qt::LeftButton, Kx::LeftButton},
    {Qt::MiddleButton, Kx::MiddleButton},
    {Qt::RightButton, Kx::RightButton},
    {Qt::ShiftModifier, Kx::ShiftModifier},
    {Qt::ControlModifier, Kx::ControlModifier},
    {Qt::AltModifier, Kx::AltModifier},
};

ExSignal::Type readType(KxMsg &message)
{
    std::int32_t number = 0;
    message >> number;
    return static_cast<ExSignal::Type>(number);
}

} // namespace

ExSignal::~ExSignal() = default;

unsigned ExSignal::kxButtonState() const
{
    unsigned bits = 0;
    for (const StateBit &bit : stateBits) {
        bits |= (static_cast<unsigned>(state) & bit.toolkit) != 0 ? bit.kx : 0;
    }
    return bits;
}

KxMsg &operator<<(KxMsg &message, const ExSignal &signal)
{
    return message << std::int32_t{signal.type} << signal.buttonOrKey << signal.state << signal.mask
                   << signal.orderKey << std::int32_t{signal.expected};
}

KxMsg &operator>>(KxMsg &message, ExSignal &signal)
{
    signal.type = readType(message);
    message >> signal.buttonOrKey >> signal.state >> signal.mask >> signal.orderKey;
    signal.expected = readType(message);
    return message;
}
