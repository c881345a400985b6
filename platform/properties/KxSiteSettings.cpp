#include "platform/properties/KxSiteSettings.h"

#include "platform/properties/KxIniFile.h"
#include "platform/util/McLogFile.h"

const KxSiteSettings &KxSiteSettings::instance()
{
    // Never destroyed, like the pool that reads it.
    static const auto *const site = new KxSiteSettings(
        qEnvironmentVariable("MOVARA_SITE_SETTINGS", QStringLiteral("/etc/movara/site.ini")));
    return *site;
}

KxSiteSettings::KxSiteSettings(const QString &fileName)
    : m_fileName(fileName)
{
    KxIniFile file = KxIniFile::read(fileName);
    m_values = std::move(file.values);
    m_failed
        = file.state == KxIniFile::State::Damaged || file.state == KxIniFile::State::Unreadable;
    if (m_failed) {
        McLogFile::warnf("WARNING - the site settings %s cannot be read: %s",
            qUtf8Printable(fileName),
            file.state == KxIniFile::State::Damaged ? "not an INI file" : "no access");
    }
}

std::optional<QString> KxSiteSettings::value(const QString &key) const
{
    const auto found = m_values.constFind(key);
    return found == m_values.constEnd() ? std::nullopt : std::optional<QString>(*found);
}
