#include "platform/util/McGuard.h"

#include <exception>
#include <new>

std::string McGuard::run(const std::function<void()> &work)
{
    try {
        work();
        return {};
    } catch (const std::bad_alloc &) {
        return "There is not enough memory.";
    } catch (const std::exception &exception) {
        return std::string("An unexpected error: ") + exception.what() + ".";
    } catch (...) {
        return "An unexpected error.";
    }
}
