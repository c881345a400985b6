#pragma once

#include "platform/rights/UserFunctionPermissions.h"
#include "tests/support/Files.h"

#include <QTemporaryDir>

/// Keeps settings, rights, log and audit file of the process in a folder of their own, so that no
/// test reads or writes the user's. Make it before any of these is first used.
class PrivateSettings
{
public:
    PrivateSettings()
    {
        setPolicy("{}");
        qputenv("MOVARA_SETTINGS_FILE", path("settings.ini").toUtf8());
        qputenv("MOVARA_AUDIT_FILE", path("audit.jsonl").toUtf8());
        qputenv("MOVARA_LOG_DIR", m_folder.path().toUtf8());
        qputenv("MOVARA_SITE_SETTINGS", path("site.ini").toUtf8());
    }

    /// Puts another policy in force; JSON, see UserFunctionPermissions.
    void setPolicy(const QByteArray &policy)
    {
        const QString name = path("policy.json");
        writeFile(name, policy);
        qputenv("MOVARA_POLICY_FILE", name.toUtf8());
        Zel::UserFunctionPermissions::instance().load(name);
    }
    /// Full name of a file in the folder.
    [[nodiscard]] QString path(const char *name) const
    {
        return m_folder.filePath(QLatin1String(name));
    }

private:
    QTemporaryDir m_folder;
};
