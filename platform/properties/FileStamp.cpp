#include "platform/properties/FileStamp.h"

#include <QFile>

#include <sys/stat.h>

FileStamp FileStamp::of(const QString &name)
{
    struct stat status
    { };
    if (stat(QFile::encodeName(name).constData(), &status) != 0) {
        return {};
    }
    return {status.st_ino, status.st_mtim.tv_sec, status.st_mtim.tv_nsec, status.st_size};
}
