#pragma once

#include "platform/MovaraPlatformExport.h"
#include "platform/properties/KxEnumValue.h"

#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

/// A value of an enumeration type whose values are registered at start-up, so that they have names
/// and labels and can be stored by name. Derive types from KxTypedEnum. Usable from static
/// initializers; GUI thread only.
class MOVARA_PLATFORM_EXPORT KxEnum
{
public:
    [[nodiscard]] constexpr int value() const { return m_value; }
    /// The registered name; empty when the value is not registered.
    [[nodiscard]] QString name() const;
    /// The label in the current language; empty when the value is not registered.
    [[nodiscard]] QString label() const;

    friend bool operator==(const KxEnum &a, const KxEnum &b) { return a.m_value == b.m_value; }

protected:
    /// @param context names the enumeration type and the translation context of its labels.
    constexpr KxEnum(const char *context, int value)
        : m_context(context)
        , m_value(value)
    { }
    ~KxEnum() = default;
    KxEnum(const KxEnum &) = default;
    KxEnum &operator=(const KxEnum &) = default;

    /// The values registered for @p context, in order of registration.
    [[nodiscard]] static const std::vector<std::unique_ptr<KxEnumValue>> &registered(
        const char *context);
    /// The value registered under @p name for @p context, or nothing.
    [[nodiscard]] static std::optional<int> valueOf(const char *context, const QString &name);

private:
    template <typename V>
    friend class RegEnumValue;
    /// Adds a value to a type. One that repeats a value or a name of the type is refused, with a
    /// warning in the log.
    static void add(const char *context, std::unique_ptr<KxEnumValue> value);
    [[nodiscard]] const KxEnumValue *find() const;

    const char *m_context;
    int m_value;
};

/// Base of the enumeration type E, which supplies the context and takes over the constructors:
///     class LogEnableType final : public KxTypedEnum<LogEnableType> {
///     public: using KxTypedEnum::KxTypedEnum;
///             static const char *context() { return "Enumeration.LogEnableType"; } };
template <typename E>
class KxTypedEnum : public KxEnum
{
public:
    /// The value of a registered value class, e.g. LoadNever().
    KxTypedEnum(const TypedEnumValue<E> &value)
        : KxEnum(E::context(), value.value())
    { }
    /// A constant when the type's context is one.
    constexpr explicit KxTypedEnum(int value)
        : KxEnum(E::context(), value)
    { }

    /// The value registered under @p name, or nothing.
    [[nodiscard]] static std::optional<E> fromName(const QString &name)
    {
        const std::optional<int> value = valueOf(E::context(), name);
        return value ? std::optional<E>(E(*value)) : std::nullopt;
    }
    /// All registered values in order of registration.
    [[nodiscard]] static std::vector<E> values()
    {
        std::vector<E> result;
        for (const auto &value : registered(E::context())) {
            result.push_back(E(value->value()));
        }
        return result;
    }
};

/// Registers the value class V with its enumeration for the life of the process; one static object
/// for each value class.
template <typename V>
class RegEnumValue
{
public:
    RegEnumValue() { KxEnum::add(V::Enumeration::context(), std::make_unique<V>()); }
};
