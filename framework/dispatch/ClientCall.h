#pragma once

#include "framework/MovaraFrameworkExport.h"

#include <exception>

/// Calls of what clients and plug-ins supply: handlers of notifications and input, tools. An
/// exception from one of them ends at the call, is written to the log, and counts as "not done", so
/// that the others are told all the same and the toolkit's event loop is left as it was. GUI thread
/// only.
class MOVARA_FRAMEWORK_EXPORT ClientCall
{
public:
    ClientCall() = delete;

    /// @param what is called, for the log. @return what @p call returns; false when it throws.
    template <typename Call>
    static bool protect(const char *what, Call call)
    {
        try {
            return call();
        } catch (const std::exception &exception) {
            report(what, exception.what());
        } catch (...) {
            report(what, nullptr);
        }
        return false;
    }

    /// Calls that have thrown, since the start of the process.
    [[nodiscard]] static int numFailed();

private:
    static void report(const char *what, const char *reason);
};
