#pragma once

#include "platform/MovaraPlatformExport.h"

#include <QHash>
#include <QString>

#include <optional>

/// Defaults that the site's administrator gives for all users: a read-only INI file, read once.
/// A file that exists and cannot be read or parsed is told once in the log and gives no values.
class MOVARA_PLATFORM_EXPORT KxSiteSettings
{
public:
    /// The site's file: named by the environment variable MOVARA_SITE_SETTINGS, else
    /// /etc/movara/site.ini. Read on first use.
    static const KxSiteSettings &instance();
    /// Reads the file @p fileName; an absent one, or an empty name, gives no values.
    explicit KxSiteSettings(const QString &fileName);

    /// The text under @p key, or nothing.
    [[nodiscard]] std::optional<QString> value(const QString &key) const;
    [[nodiscard]] const QHash<QString, QString> &values() const { return m_values; }
    [[nodiscard]] const QString &fileName() const { return m_fileName; }
    /// Whether a file exists whose content could not be learned.
    [[nodiscard]] bool failed() const { return m_failed; }

private:
    QString m_fileName;
    QHash<QString, QString> m_values;
    bool m_failed = false;
};
