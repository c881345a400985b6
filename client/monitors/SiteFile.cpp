#include "client/monitors/SiteFile.h"

#include "platform/properties/KxSiteSettings.h"
#include "platform/properties/KxVariant.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>

#include <algorithm>

namespace {

/// Whether a file can be made; folders on the way may be missing.
bool canBeMade(const QString &fileName)
{
    QFileInfo folder(QFileInfo(fileName).absolutePath());
    while (!folder.exists() && !folder.isRoot()) {
        folder.setFile(folder.absolutePath());
    }
    return folder.isDir() && folder.isWritable();
}

} // namespace

SiteFile::SiteFile(const QString &fileName)
    : m_fileName(fileName)
{ }

QString SiteFile::problem() const
{
    if (m_fileName.isEmpty()) {
        return tr("No file is named for the settings of this site.");
    }
    const QFileInfo file(m_fileName);
    const bool canWrite = canBeMade(m_fileName) && (!file.exists() || file.isWritable());
    if (!canWrite) {
        return tr("You may not write %1.").arg(m_fileName);
    }
    if (KxSiteSettings(m_fileName).failed()) {
        return tr("%1 is damaged or cannot be read. It has to be put right by hand first.")
            .arg(m_fileName);
    }
    return {};
}

QString SiteFile::save(const std::vector<const KxVariant *> &settings) const
{
    const QString trouble = problem();
    if (!trouble.isEmpty()) {
        return trouble;
    }
    const bool isNew = !QFile::exists(m_fileName);
    const QString old = m_fileName + QLatin1String(".old");
    if (!isNew && ((QFile::exists(old) && !QFile::remove(old)) || !QFile::copy(m_fileName, old))) {
        return tr("%1 could not be kept as %2.").arg(m_fileName, old);
    }
    QDir().mkpath(QFileInfo(m_fileName).absolutePath());
    {
        QSettings file(m_fileName, QSettings::IniFormat);
        for (const KxVariant *const setting : settings) {
            file.setValue(setting->key(), setting->toString());
        }
    }
    if (isNew) {
        // It is for everyone, whatever the habits of the one who makes it.
        QFile::setPermissions(
            m_fileName, QFile::permissions(m_fileName) | QFile::ReadGroup | QFile::ReadOther);
    }
    const KxSiteSettings written(m_fileName);
    const bool isDone
        = std::all_of(settings.begin(), settings.end(), [&written](const KxVariant *setting) {
              return written.value(setting->key()) == setting->toString();
          });
    return isDone ? QString() : tr("%1 could not be written.").arg(m_fileName);
}
