#pragma once

#include "platform/MovaraPlatformExport.h"

#include <functional>
#include <string>

/// Keeps what work throws from going where nobody can catch it: out of a thread, or through code
/// that must go on. Any thread.
class MOVARA_PLATFORM_EXPORT McGuard
{
public:
    McGuard() = delete;

    /// Does @p work. What it throws comes back as a plain English sentence, for people; empty when
    /// it throws nothing.
    [[nodiscard]] static std::string run(const std::function<void()> &work);
};
