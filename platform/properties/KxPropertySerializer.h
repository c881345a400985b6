#pragma once

#include "platform/MovaraPlatformExport.h"

#include <QString>

#include <optional>

/// Store of property values: text by key. Properties refer to it, never own it.
/// GUI thread only. Failures are told in the log by the store and answered with false or nothing.
class MOVARA_PLATFORM_EXPORT KxPropertySerializer
{
public:
    KxPropertySerializer() = default;
    KxPropertySerializer(const KxPropertySerializer &) = delete;
    KxPropertySerializer &operator=(const KxPropertySerializer &) = delete;
    virtual ~KxPropertySerializer();

    /// The text stored under @p key, or nothing when there is none.
    [[nodiscard]] virtual std::optional<QString> read(const QString &key) const = 0;
    /// Stores @p text under @p key. False when it could not be stored; an empty key never can.
    virtual bool write(const QString &key, const QString &text) = 0;
    /// Forgets the text under @p key. True also when there was none; false when it could not be
    /// removed.
    virtual bool remove(const QString &key) = 0;
};
