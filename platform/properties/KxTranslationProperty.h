#pragma once

#include "platform/MovaraPlatformExport.h"

#include <QString>

/// Labels of settings and of their key groups ("UI", "UI.MonitorDependent"), by key. Usable from
/// static initializers. GUI thread only. Translations are looked up when a label is asked for, in
/// the context "Property".
class MOVARA_PLATFORM_EXPORT KxTranslationProperty
{
public:
    /// Registers the untranslated @p label for @p key, replacing an earlier one, and returns @p key
    /// itself. Neither may be null.
    static const char *translate(const char *key, const char *label);
    /// The label of @p key in the current language; empty when none is registered.
    [[nodiscard]] static QString label(const QString &key);
};
