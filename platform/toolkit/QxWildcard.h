#pragma once

#include "platform/MovaraPlatformExport.h"

#include <QRegularExpression>

/// Wildcard patterns over keys: `*` stands for any text, dots and slashes included, `?` for one
/// character, `[abc]`, `[a-z]` for one of a set and `[!abc]` for one outside it. Everything else,
/// an unclosed `[` too, stands for itself.
class MOVARA_PLATFORM_EXPORT QxWildcard
{
public:
    /// Expression that matches the whole of a key, with regard to case. Not valid for a range that
    /// runs backwards.
    [[nodiscard]] static QRegularExpression expression(const QString &pattern);
};
