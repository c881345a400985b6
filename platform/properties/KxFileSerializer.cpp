#include "platform/properties/KxFileSerializer.h"

#include "platform/properties/KxIniFile.h"
#include "platform/properties/KxSiteSettings.h"
#include "platform/util/McLogFile.h"

#include <QDateTime>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryFile>
#include <QThread>

#include <filesystem>
#include <utility>

namespace {

constexpr int lockTimeoutMs = 5000;
constexpr unsigned long lockPollMs = 2;

/// Waits for the lock with short pauses. QLockFile's own pauses double, which starves a process
/// while others write busily.
bool lockInTime(QLockFile &lock)
{
    const QDeadlineTimer deadline(lockTimeoutMs);
    while (!lock.tryLock(0)) {
        if (lock.error() != QLockFile::LockFailedError || deadline.hasExpired()) {
            return false;
        }
        QThread::msleep(lockPollMs);
    }
    return true;
}

/// Where a link leads, so that replacing the file does not replace a link to it.
QString resolved(const QString &fileName)
{
    const QString target = QFileInfo(fileName).canonicalFilePath();
    return target.isEmpty() ? fileName : target;
}

bool replaceFile(const QString &from, const QString &to)
{
    std::error_code problem;
    std::filesystem::rename(from.toStdU16String(), to.toStdU16String(), problem);
    return !problem;
}

/// Copies @p fileName, which may be absent, to a file of a new name beside it. Empty when that
/// cannot be done.
QString workingCopy(const QString &fileName)
{
    QFile source(fileName);
    const bool exists = source.exists();
    QTemporaryFile copy(fileName);
    if ((exists && !source.open(QIODevice::ReadOnly)) || !copy.open()) {
        return {};
    }
    const QByteArray content = exists ? source.readAll() : QByteArray();
    if (source.error() != QFileDevice::NoError || copy.write(content) != content.size()
        || !copy.flush()) {
        return {};
    }
    copy.setAutoRemove(false);
    return copy.fileName();
}

} // namespace

KxFileSerializer::KxFileSerializer(const QString &fileName, const KxSiteSettings *site)
    : m_fileName(resolved(fileName))
    , m_site(site)
{ }

QString KxFileSerializer::defaultFileName()
{
    QString named = qEnvironmentVariable("MOVARA_SETTINGS_FILE");
    if (!named.isEmpty()) {
        return named;
    }
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + QLatin1String("/movara/settings.ini");
}

QString KxFileSerializer::lockName() const
{
    return m_fileName + QLatin1String(".lock");
}

std::optional<QString> KxFileSerializer::read(const QString &key) const
{
    if (const auto waiting = m_unwritten.constFind(key);
        waiting != m_unwritten.constEnd() && waiting->has_value()) {
        return *waiting;
    }
    refresh();
    const auto found = m_unwritten.contains(key) ? m_values.constEnd() : m_values.constFind(key);
    if (found != m_values.constEnd()) {
        return *found;
    }
    return m_site ? m_site->value(key) : std::nullopt;
}

bool KxFileSerializer::write(const QString &key, const QString &text)
{
    return !key.isEmpty() && change(key, text);
}

bool KxFileSerializer::remove(const QString &key)
{
    // QSettings takes an empty key for all keys.
    return key.isEmpty() || change(key, std::nullopt);
}

bool KxFileSerializer::flush()
{
    return m_unwritten.isEmpty() || store();
}

void KxFileSerializer::refresh() const
{
    const FileStamp stamp = FileStamp::of(m_fileName);
    if (stamp == m_seen) {
        return;
    }
    const KxIniFile file = KxIniFile::read(m_fileName);
    if (file.state == KxIniFile::State::Unreadable) {
        complain("cannot be read");
        remember(m_values, stamp);
        return;
    }
    if (file.state == KxIniFile::State::Damaged) {
        setAsideWithLock();
        if (FileStamp::of(m_fileName) != stamp) {
            refresh(); // It is set aside, or another process has begun a good one meanwhile.
            return;
        }
    }
    // The stamp from before reading: what is written while it is read is read next time.
    remember(file.values, stamp);
}

void KxFileSerializer::remember(const QHash<QString, QString> &values, const FileStamp &stamp) const
{
    m_values = values;
    m_seen = stamp;
}

bool KxFileSerializer::change(const QString &key, const std::optional<QString> &text)
{
    m_unwritten.insert(key, text);
    return store();
}

bool KxFileSerializer::store()
{
    const bool isStored = changeFile();
    const bool hadFailed = std::exchange(m_isFailing, !isStored);
    if (isStored) {
        m_unwritten.clear();
        m_complained = false;
    } else if (!hadFailed) {
        tellProblem(m_fileName);
    }
    return isStored;
}

bool KxFileSerializer::changeFile()
{
    if (!QDir().mkpath(QFileInfo(m_fileName).absolutePath())) {
        complain("is in a folder that cannot be made");
        return false;
    }
    QLockFile lock(lockName());
    if (!lockInTime(lock)) {
        complain(lock.error() == QLockFile::LockFailedError
                ? "is locked by another process"
                : "cannot be written: the disk is full, or the folder may not be written to");
        return false;
    }
    const bool done = changeLocked();
    if (!done) {
        complain("cannot be written");
    }
    return done;
}

bool KxFileSerializer::changeLocked()
{
    // The change is made in a copy of a fresh name: QSettings recognises a known file as unchanged
    // by its size and its time of change in milliseconds, and would overwrite what another process
    // wrote within the same tick.
    QString copy = workingCopy(m_fileName);
    KxIniFile content = KxIniFile::read(copy);
    if (content.state == KxIniFile::State::Damaged) {
        QFile::remove(copy);
        copy = setAside() ? workingCopy(m_fileName) : QString();
        content = KxIniFile::read(copy);
    }
    if (content.state != KxIniFile::State::Read || !writeValues(copy, m_unwritten)
        || !replaceFile(copy, m_fileName)) {
        QFile::remove(copy);
        return false;
    }
    for (auto change = m_unwritten.cbegin(); change != m_unwritten.cend(); ++change) {
        if (change.value()) {
            content.values.insert(change.key(), *change.value());
        } else {
            content.values.remove(change.key());
        }
    }
    remember(content.values, FileStamp::of(m_fileName));
    return true;
}

bool KxFileSerializer::writeValues(const QString &fileName, const Changes &changes)
{
    QSettings settings(fileName, QSettings::IniFormat);
    for (auto change = changes.cbegin(); change != changes.cend(); ++change) {
        const QString key = KxIniFile::fileKey(change.key());
        if (change.value()) {
            settings.setValue(key, *change.value());
        } else {
            settings.remove(key);
        }
    }
    settings.sync();
    return settings.status() == QSettings::NoError;
}

void KxFileSerializer::setAsideWithLock() const
{
    // Another process may have set it aside and begun a good one meanwhile.
    QLockFile lock(lockName());
    if (!lockInTime(lock)) {
        complain("is damaged and cannot be locked");
    } else if (KxIniFile::read(m_fileName).state == KxIniFile::State::Damaged) {
        setAside();
    }
}

bool KxFileSerializer::setAside() const
{
    const QString stamp = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss"));
    QString name = m_fileName + QLatin1String(".damaged-") + stamp;
    for (int i = 2; QFile::exists(name); ++i) {
        name = m_fileName + QStringLiteral(".damaged-%1-%2").arg(stamp).arg(i);
    }
    const bool moved = QFile::rename(m_fileName, name);
    McLogFile::warnf("WARNING - the settings file %s is damaged%s%s; default settings are used",
        qUtf8Printable(m_fileName), moved ? " and was set aside as " : "",
        moved ? qUtf8Printable(name) : "");
    return moved;
}

void KxFileSerializer::complain(const char *what) const
{
    if (!m_complained) {
        m_complained = true;
        McLogFile::warnf("WARNING - the settings file %s %s", qUtf8Printable(m_fileName), what);
    }
}
