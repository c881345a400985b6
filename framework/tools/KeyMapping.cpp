#include "framework/tools/KeyMapping.h"

#include <Qt>

#include <algorithm>
#include <iterator>

namespace {

struct KeyPair
{
    Qt::Key toolkit;
    Kx::Key kx;
};

constexpr KeyPair specialKeys[] = {
    {Qt::Key_Escape, Kx::EscapeKey},
    {Qt::Key_Tab, Kx::TabKey},
    {Qt::Key_Backtab, Kx::BacktabKey},
    {Qt::Key_Backspace, Kx::BackspaceKey},
    {Qt::Key_Return, Kx::ReturnKey},
    {Qt::Key_Enter, Kx::EnterKey},
    {Qt::Key_Insert, Kx::InsertKey},
    {Qt::Key_Delete, Kx::DeleteKey},
    {Qt::Key_Pause, Kx::PauseKey},
    {Qt::Key_Print, Kx::PrintKey},
    {Qt::Key_Home, Kx::HomeKey},
    {Qt::Key_End, Kx::EndKey},
    {Qt::Key_Left, Kx::LeftKey},
    {Qt::Key_Up, Kx::UpKey},
    {Qt::Key_Right, Kx::RightKey},
    {Qt::Key_Down, Kx::DownKey},
    {Qt::Key_PageUp, Kx::PageUpKey},
    {Qt::Key_PageDown, Kx::PageDownKey},
    {Qt::Key_Shift, Kx::ShiftKey},
    {Qt::Key_Control, Kx::ControlKey},
    {Qt::Key_Alt, Kx::AltKey},
    {Qt::Key_AltGr, Kx::AltGrKey},
    {Qt::Key_Meta, Kx::MetaKey},
    {Qt::Key_Menu, Kx::MenuKey},
};

/// The toolkit, too, gives keys that print the Unicode value of their character.
constexpr int lastUnicodeValue = 0x10ffff;

} // namespace

Kx::Key kxKey(int toolkitKey)
{
    if (toolkitKey >= Qt::Key_Space && toolkitKey <= lastUnicodeValue) {
        return static_cast<Kx::Key>(toolkitKey);
    }
    if (toolkitKey >= Qt::Key_F1 && toolkitKey <= Qt::Key_F24) {
        return static_cast<Kx::Key>(Kx::F1Key + (toolkitKey - Qt::Key_F1));
    }
    const auto *const found = std::find_if(std::begin(specialKeys), std::end(specialKeys),
        [toolkitKey](const KeyPair &pair) { return pair.toolkit == toolkitKey; });
    return found == std::end(specialKeys) ? Kx::UnknownKey : found->kx;
}
