#pragma once

#include "platform/MovaraPlatformExport.h"

/// Object with a number of its own. Brings no reference count: that comes from McHandable or
/// McHandableThreaded.
class MOVARA_PLATFORM_EXPORT KxObject
{
public:
    KxObject();
    KxObject(const KxObject &) = delete;
    KxObject &operator=(const KxObject &) = delete;
    virtual ~KxObject();

    /// Number of this object; unique in the process and ascending in order of construction, from 1
    /// on.
    [[nodiscard]] int objectId() const { return m_objectId; }

private:
    int m_objectId;
};
