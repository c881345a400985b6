#pragma once

#include "platform/MovaraPlatformExport.h"

/// Common root of the rendering library's interfaces.
class MOVARA_PLATFORM_EXPORT KxInterface
{
public:
    KxInterface() = default;
    KxInterface(const KxInterface &) = delete;
    KxInterface &operator=(const KxInterface &) = delete;
    virtual ~KxInterface();
};
