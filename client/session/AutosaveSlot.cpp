#include "client/session/AutosaveSlot.h"

#include "client/session/SessionFile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace {

/// So many workstations of one user save beside each other; further ones do not.
constexpr int numSlots = 32;

} // namespace

QString AutosaveSlot::defaultFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
        % QLatin1String("/movara-workstation/autosave");
}

AutosaveSlot::AutosaveSlot(const QString &file)
    : m_file(file)
    , m_lock(file % QLatin1String(".lock"))
{
    // However long a workstation runs, only the end of its process gives its slot free.
    m_lock.setStaleLockTime(0);
}

AutosaveSlot::~AutosaveSlot() = default;

std::unique_ptr<AutosaveSlot> AutosaveSlot::take(const QString &folder, int number)
{
    const QString name = folder % QLatin1String("/autosave-") % QString::number(number)
        % QLatin1Char('.') % QLatin1String(SessionFile::suffix);
    std::unique_ptr<AutosaveSlot> slot(new AutosaveSlot(name));
    return slot->m_lock.tryLock() ? std::move(slot) : nullptr;
}

std::unique_ptr<AutosaveSlot> AutosaveSlot::takeFree(const QString &folder)
{
    const bool isThere = QDir().mkpath(folder)
        && QFile::setPermissions(
            folder, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    for (int i = 1; isThere && i <= numSlots; ++i) {
        std::unique_ptr<AutosaveSlot> slot = take(folder, i);
        if (slot && !QFileInfo::exists(slot->file())) {
            return slot;
        }
    }
    return nullptr;
}

std::unique_ptr<AutosaveSlot> AutosaveSlot::takeLeft(const QString &folder)
{
    std::unique_ptr<AutosaveSlot> latest;
    for (int i = 1; QFileInfo::exists(folder) && i <= numSlots; ++i) {
        std::unique_ptr<AutosaveSlot> slot = take(folder, i);
        if (!slot || !QFileInfo::exists(slot->file())) {
            continue;
        }
        const QDateTime time = QFileInfo(slot->file()).lastModified();
        if (!latest || time > QFileInfo(latest->file()).lastModified()) {
            latest = std::move(slot);
        }
    }
    return latest;
}

QString AutosaveSlot::setAside() const
{
    const QString time
        = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss-zzz"));
    const QString name = m_file % QLatin1String(".unusable-") % time;
    return QFile::rename(m_file, name) ? name : QString();
}

void AutosaveSlot::clear() const
{
    QFile::remove(m_file);
}
