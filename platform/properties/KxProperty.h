#pragma once

#include "platform/properties/KxPropertySerializer.h"
#include "platform/properties/KxPropertyTrait.h"
#include "platform/properties/KxVariant.h"

#include <optional>
#include <utility>

/// A setting with a value of type T. T is bool, int, float, double, QString, QStringList,
/// QList<int>, QRect, a type derived from KxTypedEnum, or a client type with a text form of its own
/// (KxPropertyTrait). Contract of KxVariant.
template <typename T>
class MOVARA_PLATFORM_EXPORT KxProperty : public KxVariant
{
public:
    using Trait = KxPropertyTrait<T>;

    /// Takes the value that @p serializer holds under @p key; the default when there is none or it
    /// is not a T.
    KxProperty(const KxPropertyKey &key, T defaultValue, KxPropertySerializer &serializer)
        : KxVariant(key, serializer)
        , m_default(std::move(defaultValue))
        , m_value(m_default)
    {
        reload();
    }

    [[nodiscard]] const T &value() const { return m_value; }
    [[nodiscard]] const T &defaultValue() const { return m_default; }
    /// Sets the value, without writing it and without telling anybody.
    void setValue(const T &value) { m_value = value; }
    /// The same.
    KxProperty &operator=(const T &value)
    {
        setValue(value);
        return *this;
    }
    /// Sets the value by the rule of use of KxVariant: a different one is written and told, an
    /// equal one does nothing. True when the value was changed by it.
    bool change(const T &value)
    {
        if (m_value == value) {
            return false;
        }
        setValue(value);
        serialize();
        propagate();
        return true;
    }

    [[nodiscard]] Kind kind() const override { return Trait::kind; }
    [[nodiscard]] QString toString() const override { return toString(m_value); }
    bool fromString(const QString &text) override { return fromString(text, m_value); }
    [[nodiscard]] bool isDefault() const override { return m_value == m_default; }
    void resetToDefault() override { m_value = m_default; }

    /// The text form of @p value.
    [[nodiscard]] static QString toString(const T &value) { return Trait::toString(value); }
    /// Reads @p text into @p value. False, @p value unchanged, when the text is not a T.
    static bool fromString(const QString &text, T &value)
    {
        std::optional<T> read = Trait::fromString(text);
        if (!read) {
            return false;
        }
        value = std::move(*read);
        return true;
    }
    /// The value that @p serializer holds under @p key, without making a setting; nothing when
    /// absent or not a T.
    [[nodiscard]] static std::optional<T> stored(
        const KxPropertyKey &key, const KxPropertySerializer &serializer)
    {
        const std::optional<QString> text = serializer.read(key.text());
        return text ? Trait::fromString(*text) : std::nullopt;
    }

private:
    [[nodiscard]] QStringList typeChoices() const override
    {
        if constexpr (requires { Trait::choices(); }) {
            return Trait::choices();
        } else {
            return {};
        }
    }
    [[nodiscard]] QStringList typeChoiceLabels() const override
    {
        if constexpr (requires { Trait::choiceLabels(); }) {
            return Trait::choiceLabels();
        } else {
            return {};
        }
    }

    T m_default;
    T m_value;
};
