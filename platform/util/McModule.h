#pragma once

#include "platform/MovaraPlatformExport.h"

#include <memory>
#include <string>

/// A part of the program that is loaded only when it is first needed, since it brings along more
/// than a start should wait for: a shared library with one function, `movaraMake`, that makes an
/// object of a class known to both sides. Modules lie in one folder near this library, see
/// movara_add_module() in cmake/MovaraTargets.cmake. Stays loaded until the process ends. Any
/// thread.
class MOVARA_PLATFORM_EXPORT McModule
{
public:
    /// Loads it. To be kept in a static variable of the function that needs it first.
    /// @param name of its target, e.g. "MovaraDicomCodec".
    explicit McModule(const char *name);

    /// A new object; null when the module was not loaded.
    /// @tparam Interface the class that the module's function tells.
    template <typename Interface>
    [[nodiscard]] std::unique_ptr<Interface> make() const
    {
        const auto maker = reinterpret_cast<Interface *(*)()>(m_maker);
        return std::unique_ptr<Interface>(maker == nullptr ? nullptr : maker());
    }
    /// Full name of the file.
    [[nodiscard]] const std::string &file() const { return m_file; }
    /// Why it was not loaded, and what to do: English sentences for the user. Empty when it was.
    [[nodiscard]] const std::string &problem() const { return m_problem; }

private:
    std::string m_file;
    std::string m_problem;
    void (*m_maker)() = nullptr;
};

// Names of types cannot stand in parentheses. NOLINTBEGIN(bugprone-macro-parentheses)
/// Stands once in a module: its function, which makes objects of @p Class by the name of
/// @p Interface.
#define MOVARA_MODULE(Interface, Class)                                                            \
    extern "C" __attribute__((visibility("default"))) Interface *movaraMake()                      \
    {                                                                                              \
        return new Class;                                                                          \
    }
// NOLINTEND(bugprone-macro-parentheses)
