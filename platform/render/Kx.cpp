#include "platform/render/Kx.h"

#include <cstdlib>
#include <cstring>

namespace {

bool askedForByEnvironment()
{
    const char *const value = std::getenv("MOVARA_DEBUG");
    return value != nullptr && *value != '\0' && std::strcmp(value, "0") != 0;
}

} // namespace

bool Kx::DBG_MOVARA_DEBUG = askedForByEnvironment();
