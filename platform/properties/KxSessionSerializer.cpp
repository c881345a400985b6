#include "platform/properties/KxSessionSerializer.h"

#include "platform/properties/KxSiteSettings.h"

KxSessionSerializer::KxSessionSerializer(const KxSiteSettings &site)
    : m_values(site.values())
{ }

std::optional<QString> KxSessionSerializer::read(const QString &key) const
{
    const auto found = m_values.constFind(key);
    return found == m_values.constEnd() ? std::nullopt : std::optional<QString>(*found);
}

bool KxSessionSerializer::write(const QString &key, const QString &text)
{
    if (key.isEmpty()) {
        return false;
    }
    m_values.insert(key, text);
    return true;
}

bool KxSessionSerializer::remove(const QString &key)
{
    m_values.remove(key);
    return true;
}
