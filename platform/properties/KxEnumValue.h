#pragma once

#include "platform/MovaraPlatformExport.h"

#include <QString>

/// One value of an enumeration type: integer, name, label. Immutable; the texts are literals that
/// live for ever.
class MOVARA_PLATFORM_EXPORT KxEnumValue
{
public:
    /// @param name by which the value is stored.
    /// @param label untranslated text for the user, translated in @p context; null takes the name.
    KxEnumValue(int value, const char *name, const char *label, const char *context);
    KxEnumValue(const KxEnumValue &) = delete;
    KxEnumValue &operator=(const KxEnumValue &) = delete;
    virtual ~KxEnumValue();

    [[nodiscard]] int value() const { return m_value; }
    [[nodiscard]] QString name() const;
    /// The label in the current language.
    [[nodiscard]] QString label() const;

private:
    int m_value;
    const char *m_name;
    const char *m_label;
    const char *m_context;
};

/// KxEnumValue of the enumeration type E (see KxEnum), whose context it takes. Each value is a
/// class of its own:
///     class LoadNever final : public TypedEnumValue<LoadIncompleteStudies> {
///     public: LoadNever() : TypedEnumValue(29, "LoadNever", QT_TRANSLATE_NOOP("...", "Never")) {}
///     }; static const RegEnumValue<LoadNever> RegLoadNever;
template <typename E>
class TypedEnumValue : public KxEnumValue
{
public:
    using Enumeration = E;

protected:
    TypedEnumValue(int value, const char *name, const char *label)
        : KxEnumValue(value, name, label, E::context())
    { }
};
