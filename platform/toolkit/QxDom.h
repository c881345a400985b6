#pragma once

#include "platform/MovaraPlatformExport.h"

#include <QString>

/// Helpers to read and write values in documents.
class MOVARA_PLATFORM_EXPORT QxDom
{
public:
    QxDom() = delete;

    /// 1 for "true", 0 for "false" (both compared with case), -1 for anything else.
    static int qStringToBool(const QString &text);
};
