#pragma once

#include "framework/MovaraFrameworkExport.h"

#include <QIcon>
#include <QString>
#include <QStringList>

/// Provider of the texts and icons of tools, by decoration key. The client implements one; the
/// framework only asks. GUI thread only. A key that the provider does not know gives empty texts
/// and a null icon.
class MOVARA_FRAMEWORK_EXPORT ExDecoration
{
public:
    ExDecoration() = default;
    ExDecoration(const ExDecoration &) = delete;
    ExDecoration &operator=(const ExDecoration &) = delete;
    virtual ~ExDecoration();

    /// All keys that the provider knows, e.g. for an editor of tool bars.
    [[nodiscard]] virtual QStringList keys() const = 0;
    /// The group under which a tool is listed for the user, e.g. "Measure".
    [[nodiscard]] virtual QString category(const char *key) const = 0;
    /// What the tool is for, in one or two sentences.
    [[nodiscard]] virtual QString description(const char *key) const = 0;
    /// Whether the provider knows the key.
    [[nodiscard]] virtual bool isKnown(const char *key) const = 0;
    /// The key's default keyboard shortcut in text form, e.g. "Ctrl+W"; may be empty.
    [[nodiscard]] virtual QString shortCut(const char *key) const = 0;
    /// File or resource name of the icon, for documents that show it; may be empty.
    [[nodiscard]] virtual QString iconName(const char *key) const = 0;
    [[nodiscard]] virtual QIcon icon(const char *key) const = 0;
    /// The action's text. @param on for the active or for the inactive state of the tool.
    [[nodiscard]] virtual QString text(const char *key, bool on) const = 0;
    [[nodiscard]] virtual QString toolTip(const char *key) const = 0;
};
