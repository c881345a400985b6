#pragma once

#include "platform/MovaraPlatformExport.h"
#include "platform/properties/KxEnum.h"
#include "platform/properties/KxVariant.h"

#include <QList>
#include <QRect>
#include <QString>
#include <QStringList>

#include <optional>
#include <type_traits>

/// Text form of the values of a KxProperty<T>. A client type that can be compared with == has its
/// own
///     QString toString() const;
/// and one of
///     static std::optional<T> fromString(const QString &);   (nothing, when the text is not a T)
///     bool fromString(const QString &);                       (needs a default constructor)
/// A type that cannot have these gets a specialisation of this trait instead.
template <typename T, typename = void>
struct KxPropertyTrait
{
    static constexpr KxVariant::Kind kind = KxVariant::Kind::Other;

    static QString toString(const T &value) { return value.toString(); }
    static std::optional<T> fromString(const QString &text)
    {
        if constexpr (requires { T::fromString(text); }) {
            return T::fromString(text);
        } else {
            T value{};
            return value.fromString(text) ? std::optional<T>(value) : std::nullopt;
        }
    }
};

/// Declares the trait of a type that the property library itself knows.
#define KX_DECLARE_PROPERTY_TRAIT(Type, KindName)                                                  \
    template <>                                                                                    \
    struct MOVARA_PLATFORM_EXPORT KxPropertyTrait<Type>                                            \
    {                                                                                              \
        static constexpr KxVariant::Kind kind = KxVariant::Kind::KindName;                         \
        static QString toString(const Type &value);                                                \
        static std::optional<Type> fromString(const QString &text);                                \
    };

/// "true" or "false"; "1" and "0" are read too.
KX_DECLARE_PROPERTY_TRAIT(bool, Boolean)
/// Decimal, with surrounding blanks allowed.
KX_DECLARE_PROPERTY_TRAIT(int, Integer)
/// The shortest decimal text that gives the same number again; only finite numbers are read.
/// Decimal point in any language.
KX_DECLARE_PROPERTY_TRAIT(float, Real)
KX_DECLARE_PROPERTY_TRAIT(double, Real)
/// The text itself.
KX_DECLARE_PROPERTY_TRAIT(QString, Text)
/// A JSON array of strings. Text that does not begin with "[" is read as items between commas, for
/// files written by hand.
KX_DECLARE_PROPERTY_TRAIT(QStringList, TextList)
/// Decimal numbers between commas; empty text is the empty list.
KX_DECLARE_PROPERTY_TRAIT(QList<int>, IntegerList)
/// "%1|%2|%3|%4" with x, y, width and height, decimal.
KX_DECLARE_PROPERTY_TRAIT(QRect, Rectangle)

#undef KX_DECLARE_PROPERTY_TRAIT

/// Enumerations go by name.
template <typename E>
struct KxPropertyTrait<E, std::enable_if_t<std::is_base_of_v<KxEnum, E>>>
{
    static constexpr KxVariant::Kind kind = KxVariant::Kind::Enumeration;

    static QString toString(const E &value) { return value.name(); }
    static std::optional<E> fromString(const QString &text) { return E::fromName(text); }
    static QStringList choices()
    {
        QStringList names;
        for (const E &value : E::values()) {
            names.append(value.name());
        }
        return names;
    }
    static QStringList choiceLabels()
    {
        QStringList labels;
        for (const E &value : E::values()) {
            labels.append(value.label());
        }
        return labels;
    }
};
