#pragma once

namespace Zel {

/// Functions of a client that a policy has to grant to the user; see
/// UserFunctionPermissions::havePermission(). Clients use further codes of their own.
enum EnFunctionCode : int {
    /// Windows start in the style of the desktop instead of the product's own.
    FUNCTION_NATIVE_STYLE = 140
};

} // namespace Zel
