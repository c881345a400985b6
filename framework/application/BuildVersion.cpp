#include "framework/application/BuildVersion.h"

#include "framework/BuildVersionTag.h"

const char *movaraBuildVersionTag()
{
    return MOVARA_BUILD_VERSION_TAG;
}
