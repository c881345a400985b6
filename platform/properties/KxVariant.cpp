#include "platform/properties/KxVariant.h"

#include "platform/properties/KxPropertyPool.h"
#include "platform/properties/KxPropertySerializer.h"
#include "platform/properties/KxTranslationProperty.h"
#include "platform/util/McLogFile.h"

KxVariant::KxVariant(const KxPropertyKey &key, KxPropertySerializer &serializer)
    : m_key(key.text())
    , m_serializer(serializer)
{ }

KxVariant::~KxVariant() = default;

QString KxVariant::label() const
{
    return KxTranslationProperty::label(m_key);
}

void KxVariant::setAttribute(const char *name, const QVariant &value)
{
    m_attributes.insert(QByteArray(name), value);
}

void KxVariant::setAttribute(const char *name, const std::vector<std::string> &texts)
{
    QStringList list;
    for (const std::string &text : texts) {
        list.append(QString::fromLocal8Bit(text.c_str()));
    }
    setAttribute(name, QVariant(list));
}

QVariant KxVariant::attribute(const char *name) const
{
    return m_attributes.value(QByteArray(name));
}

QStringList KxVariant::choices() const
{
    const QStringList listed = attribute(KxPropertyPool::ATTRIBUTE_FLAG_LIST).toStringList();
    return listed.isEmpty() ? typeChoices() : listed;
}

QStringList KxVariant::choiceLabels() const
{
    const QStringList listed = attribute(KxPropertyPool::ATTRIBUTE_FLAG_LIST).toStringList();
    return listed.isEmpty() ? typeChoiceLabels() : listed;
}

bool KxVariant::changeFromString(const QString &text)
{
    const QString before = toString();
    if (!fromString(text) || toString() == before) {
        return false;
    }
    serialize();
    propagate();
    return true;
}

bool KxVariant::changeToDefault()
{
    if (isDefault()) {
        return false;
    }
    resetToDefault();
    serialize();
    propagate();
    return true;
}

bool KxVariant::serialize()
{
    return m_serializer.write(m_key, toString());
}

bool KxVariant::reload()
{
    const std::optional<QString> text = m_serializer.read(m_key);
    if (!text) {
        return false;
    }
    if (fromString(*text)) {
        return true;
    }
    McLogFile::warnf(
        "WARNING - setting %s: stored value \"%s\" is not of its type, the default is used",
        qUtf8Printable(m_key), qUtf8Printable(*text));
    resetToDefault();
    return false;
}

void KxVariant::propagate()
{
    Q_EMIT propertyChanged(this);
    KxPropertyPool::callPropagationHook(*this);
}

bool KxVariant::connectPropertyChangedSignal(const QObject *receiver, const char *slot)
{
    return static_cast<bool>(
        QObject::connect(this, SIGNAL(propertyChanged(KxVariant *)), receiver, slot));
}
