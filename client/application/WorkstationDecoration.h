#pragma once

#include "framework/tools/ExDecoration.h"

/// Texts and icons of the workstation's tools, from their modules, in the language in force. Owned
/// by the application object.
class WorkstationDecoration final : public ExDecoration
{
public:
    [[nodiscard]] QStringList keys() const override;
    [[nodiscard]] QString category(const char *key) const override;
    [[nodiscard]] QString description(const char *key) const override;
    [[nodiscard]] bool isKnown(const char *key) const override;
    [[nodiscard]] QString shortCut(const char *key) const override;
    [[nodiscard]] QString iconName(const char *key) const override;
    [[nodiscard]] QIcon icon(const char *key) const override;
    [[nodiscard]] QString text(const char *key, bool on) const override;
    /// With the shortcut, where there is one.
    [[nodiscard]] QString toolTip(const char *key) const override;
};
