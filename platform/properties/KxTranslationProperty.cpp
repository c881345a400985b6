#include "platform/properties/KxTranslationProperty.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QHash>

namespace {

QHash<QString, QByteArray> &labels()
{
    // Never destroyed: static initializers of any library register here, destructors may still ask.
    static auto *const instance = new QHash<QString, QByteArray>;
    return *instance;
}

} // namespace

const char *KxTranslationProperty::translate(const char *key, const char *label)
{
    labels().insert(QString::fromUtf8(key), QByteArray(label));
    return key;
}

QString KxTranslationProperty::label(const QString &key)
{
    const QByteArray source = labels().value(key);
    return source.isEmpty() ? QString()
                            : QCoreApplication::translate("Property", source.constData());
}
