#pragma once

#include <QString>
#include <QStringBuilder>

#include <string>

/// Dotted key of a setting, e.g. "UI.ColorScheme". Made implicitly from any text, 8-bit text being
/// UTF-8, so that keys kept as character constants, standard strings and toolkit strings can be
/// passed alike. Null text is the empty key.
class KxPropertyKey
{
public:
    KxPropertyKey(const char *key)
        : m_text(QString::fromUtf8(key))
    { }
    KxPropertyKey(const std::string &key)
        : m_text(QString::fromStdString(key))
    { }
    KxPropertyKey(const QString &key)
        : m_text(key)
    { }
    KxPropertyKey(QLatin1String key)
        : m_text(key)
    { }
    template <typename A, typename B>
    KxPropertyKey(const QStringBuilder<A, B> &key)
        : m_text(QString(key))
    { }

    [[nodiscard]] const QString &text() const { return m_text; }

private:
    QString m_text;
};
