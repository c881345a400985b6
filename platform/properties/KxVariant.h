#pragma once

#include "platform/MovaraPlatformExport.h"
#include "platform/properties/KxPropertyKey.h"

#include <QHash>
#include <QObject>
#include <QStringList>
#include <QVariant>

#include <string>
#include <vector>

class KxPropertySerializer;

/// A setting of any type: dotted key, translated label, attributes, text form, store. KxProperty<T>
/// adds the typed value. Usually owned by KxPropertyPool. GUI thread only.
///
/// Rule of use: whoever sets a value that differs from the current one then calls serialize() and
/// propagate(); an equal value writes and tells nothing. changeFromString() and
/// KxProperty::change() do just that.
class MOVARA_PLATFORM_EXPORT KxVariant : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(KxVariant)

public:
    /// What an editor for the value looks like.
    enum class Kind {
        Boolean,
        Integer,
        Real,
        Text,
        TextList,
        IntegerList,
        Rectangle,
        Enumeration,
        Other
    };

    ~KxVariant() override;

    [[nodiscard]] const QString &key() const { return m_key; }
    /// The label in the current language (KxTranslationProperty); empty when the key has none.
    [[nodiscard]] QString label() const;
    [[nodiscard]] virtual Kind kind() const = 0;

    /// Sets the attribute @p name, e.g. KxPropertyPool::ATTRIBUTE_FLAG_LIST, replacing an earlier
    /// value.
    void setAttribute(const char *name, const QVariant &value);
    /// The same with a list of texts in the local 8-bit encoding, kept in order.
    void setAttribute(const char *name, const std::vector<std::string> &texts);
    /// The attribute @p name; an invalid QVariant when it is not set. A list of texts is a
    /// QStringList.
    [[nodiscard]] QVariant attribute(const char *name) const;

    /// The values the user may choose among, as texts for fromString(): the attribute
    /// ATTRIBUTE_FLAG_LIST, else what the type itself knows (names of an enumeration). Empty when
    /// any value will do.
    [[nodiscard]] QStringList choices() const;
    /// What to show for the choices, in the same order.
    [[nodiscard]] QStringList choiceLabels() const;

    /// The value as text, the form in which it is stored.
    [[nodiscard]] virtual QString toString() const = 0;
    /// Sets the value from text, without telling anybody. False, the value unchanged, when @p text
    /// is not of the type.
    virtual bool fromString(const QString &text) = 0;
    [[nodiscard]] virtual bool isDefault() const = 0;
    /// Sets the value to the default, without telling anybody.
    virtual void resetToDefault() = 0;

    /// Sets the value from text by the rule of use above. True when the value was changed by it.
    bool changeFromString(const QString &text);
    /// Sets the default by the rule of use above. True when the value was changed by it.
    bool changeToDefault();

    /// Writes the value to the store. False when the store could not take it (it says so in the
    /// log).
    bool serialize();
    /// Takes the value from the store; the default when the stored text is not of the type, which
    /// the log tells. True when a stored value was taken; without any the value stays as it is.
    bool reload();
    /// Tells the listeners that the value changed: first those of the signal, then the hook of
    /// KxPropertyPool.
    void propagate();

    /// Connects the changed signal to @p slot (written with SLOT()) of @p receiver; the slot may
    /// take a KxVariant* or nothing. False when there is no such slot. Typed connects use
    /// QObject::connect with propertyChanged.
    bool connectPropertyChangedSignal(const QObject *receiver, const char *slot);

Q_SIGNALS:
    /// The value changed and was told with propagate().
    void propertyChanged(KxVariant *property);

protected:
    /// @param serializer the store; must outlive the setting.
    KxVariant(const KxPropertyKey &key, KxPropertySerializer &serializer);

private:
    [[nodiscard]] virtual QStringList typeChoices() const { return {}; }
    [[nodiscard]] virtual QStringList typeChoiceLabels() const { return {}; }

    QString m_key;
    KxPropertySerializer &m_serializer;
    QHash<QByteArray, QVariant> m_attributes;
};
