#include "client/session/SessionFile.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDataStream>
#include <QFileInfo>
#include <QSaveFile>

#include <unistd.h>

namespace SessionFile {

namespace {

/// As of PNG pictures: shows at once where a transfer has cut a bit off or changed line ends.
constexpr char mark[] = "\x89MVS\r\n\x1a\n";
constexpr qsizetype markSize = sizeof mark - 1;
constexpr quint32 version = 1;
constexpr qsizetype sumPlace = markSize + sizeof(quint32) + sizeof(quint64);
constexpr qsizetype sumSize = 32;
constexpr qsizetype headSize = sumPlace + sumSize;
/// More than any session; what is larger is not read into memory.
constexpr qint64 largestFile = qint64(64) * 1024 * 1024;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(SessionFile)
};

/// Of everything but itself.
QByteArray sumOf(const QByteArray &head, const QByteArray &content)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(head);
    hash.addData(content);
    return hash.result();
}

QByteArray contentOf(const ExSessionData &session)
{
    QByteArray content;
    QDataStream stream(&content, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_6_0);
    const QStringList names = session.persistentNames();
    stream << static_cast<quint32>(names.size());
    for (const QString &name : names) {
        stream << name.toUtf8() << session.block(name);
    }
    return content;
}

bool readContent(const QByteArray &content, ExSessionData &session)
{
    QDataStream stream(content);
    stream.setVersion(QDataStream::Qt_6_0);
    quint32 count = 0;
    stream >> count;
    ExSessionData read;
    for (quint32 i = 0; i < count && stream.status() == QDataStream::Ok; ++i) {
        QByteArray name;
        QByteArray block;
        stream >> name >> block;
        read.setBlock(QString::fromUtf8(name), block);
    }
    const bool isWhole = stream.status() == QDataStream::Ok && stream.atEnd();
    if (isWhole) {
        session = read;
    }
    return isWhole;
}

QString damaged()
{
    return Texts::tr("The session is damaged and cannot be opened. Take an earlier copy of the "
                     "file, or open the folder of the images instead.");
}

QString otherVersion(quint32 found)
{
    return Texts::tr("The session was saved in format %1; this workstation reads format %2. Open "
                     "it with the version of the workstation that has saved it.")
        .arg(found)
        .arg(version);
}

/// On the disk before the new name is: else a power failure might leave an empty file.
bool isOnDisk(QSaveFile &file)
{
    return file.flush() && ::fsync(file.handle()) == 0;
}

} // namespace

QByteArray toBytes(const ExSessionData &session)
{
    const QByteArray content = contentOf(session);
    QByteArray bytes(mark, markSize);
    QDataStream stream(&bytes, QIODevice::WriteOnly | QIODevice::Append);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream << version << static_cast<quint64>(content.size());
    return bytes + sumOf(bytes, content) + content;
}

QString fromBytes(const QByteArray &bytes, ExSessionData &session)
{
    if (bytes.left(markSize) != QByteArrayView(mark, markSize)) {
        const bool isBeginning = !bytes.isEmpty() && bytes.size() < markSize
            && QByteArrayView(mark, markSize).startsWith(bytes);
        return isBeginning ? damaged() : Texts::tr("This is not a session of the workstation.");
    }
    quint32 foundVersion = 0;
    quint64 length = 0;
    QDataStream stream(bytes.mid(markSize));
    stream.setByteOrder(QDataStream::LittleEndian);
    stream >> foundVersion >> length;
    if (stream.status() != QDataStream::Ok) {
        return damaged();
    }
    if (foundVersion != version) {
        return otherVersion(foundVersion);
    }
    const QByteArray content = bytes.mid(headSize);
    if (length > static_cast<quint64>(content.size())) {
        return Texts::tr("The session is cut short: %1 of %2 bytes are there. Copy the file once "
                         "more, or open the folder of the images instead.")
            .arg(content.size())
            .arg(length);
    }
    const bool isSound = length == static_cast<quint64>(content.size())
        && bytes.mid(sumPlace, sumSize) == sumOf(bytes.left(sumPlace), content)
        && readContent(content, session);
    return isSound ? QString() : damaged();
}

QString write(const QString &name, const QByteArray &bytes)
{
    QSaveFile file(name);
    // The new file is made beside the old one; where that is not allowed nothing is written.
    file.setDirectWriteFallback(false);
    const bool isWritten = file.open(QIODevice::WriteOnly)
        && file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner)
        && file.write(bytes) == bytes.size() && isOnDisk(file) && file.commit();
    if (isWritten) {
        return {};
    }
    const QString reason = file.errorString();
    return QFileInfo::exists(name)
        ? Texts::tr("The session cannot be saved to %1: %2. What was saved there before is "
                    "unchanged. Make room on the disk, or save to another folder.")
              .arg(name, reason)
        : Texts::tr("The session cannot be saved to %1: %2. Make room on the disk, or save to "
                    "another folder.")
              .arg(name, reason);
}

QString read(const QString &name, ExSessionData &session)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        return Texts::tr("The session %1 cannot be read: %2. Look whether the file is there and "
                         "whether you may read it.")
            .arg(name, file.errorString());
    }
    const QByteArray bytes = file.read(largestFile + 1);
    const QString problem = bytes.size() > largestFile
        ? Texts::tr("This is not a session of the workstation.")
        : fromBytes(bytes, session);
    return problem.isEmpty() ? problem : name % QLatin1Char('\n') % problem;
}

} // namespace SessionFile
