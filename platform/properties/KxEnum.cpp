#include "platform/properties/KxEnum.h"

#include "platform/util/McLogFile.h"

#include <QCoreApplication>

#include <algorithm>
#include <map>
#include <string>

KxEnumValue::KxEnumValue(int value, const char *name, const char *label, const char *context)
    : m_value(value)
    , m_name(name)
    , m_label(label ? label : name)
    , m_context(context)
{ }

KxEnumValue::~KxEnumValue() = default;

QString KxEnumValue::name() const
{
    return QString::fromUtf8(m_name);
}

QString KxEnumValue::label() const
{
    return QCoreApplication::translate(m_context, m_label);
}

namespace {

using Values = std::vector<std::unique_ptr<KxEnumValue>>;

Values &valuesOf(const char *context)
{
    // By text, since each library has its own copy of the literal. Never destroyed: see
    // KxPropertyPool::instance().
    static auto *const types = new std::map<std::string, Values>;
    return (*types)[context];
}

} // namespace

const Values &KxEnum::registered(const char *context)
{
    return valuesOf(context);
}

void KxEnum::add(const char *context, std::unique_ptr<KxEnumValue> value)
{
    Values &values = valuesOf(context);
    const bool repeated = std::any_of(values.begin(), values.end(), [&](const auto &other) {
        return other->value() == value->value() || other->name() == value->name();
    });
    if (repeated) {
        McLogFile::warnf("WARNING - %s: value %d \"%s\" repeats a registered one", context,
            value->value(), qUtf8Printable(value->name()));
        return;
    }
    values.push_back(std::move(value));
}

std::optional<int> KxEnum::valueOf(const char *context, const QString &name)
{
    for (const auto &value : valuesOf(context)) {
        if (value->name() == name) {
            return value->value();
        }
    }
    return std::nullopt;
}

const KxEnumValue *KxEnum::find() const
{
    for (const auto &value : valuesOf(m_context)) {
        if (value->value() == m_value) {
            return value.get();
        }
    }
    return nullptr;
}

QString KxEnum::name() const
{
    const KxEnumValue *value = find();
    return value ? value->name() : QString();
}

QString KxEnum::label() const
{
    const KxEnumValue *value = find();
    return value ? value->label() : QString();
}
