#pragma once

#include "platform/render/Kx.h"

/// The rendering library's code of a key; UnknownKey when it has none.
/// @param toolkitKey the toolkit's key code.
Kx::Key kxKey(int toolkitKey);
