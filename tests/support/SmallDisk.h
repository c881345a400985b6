#pragma once

#include <QFile>
#include <QTemporaryDir>

#include <sys/mount.h>

/// A file system of a few pages, gone with the object. Only root can have one.
class SmallDisk
{
public:
    SmallDisk() { m_isMounted = mount(0, "size=32k"); }
    ~SmallDisk()
    {
        if (m_isMounted) {
            ::umount(qPrintable(path()));
        }
    }
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;

    [[nodiscard]] bool isMounted() const { return m_isMounted; }
    [[nodiscard]] QString path() const { return m_folder.path(); }
    /// Takes all the room that is left.
    void fill() const
    {
        QFile filler(fillerName());
        if (filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
            while (filler.write(QByteArray(1024, 'x')) > 0) { }
        }
    }
    /// Gives it back.
    void makeRoom() const { QFile::remove(fillerName()); }
    bool setReadOnly(bool readOnly) const
    {
        constexpr unsigned long remount = MS_REMOUNT;
        constexpr unsigned long remountReadOnly = MS_REMOUNT | MS_RDONLY;
        return mount(readOnly ? remountReadOnly : remount, "size=32k");
    }

private:
    bool mount(unsigned long flags, const char *options) const
    {
        return ::mount("tmpfs", qPrintable(path()), "tmpfs", flags, options) == 0;
    }
    [[nodiscard]] QString fillerName() const { return m_folder.filePath(QStringLiteral("filler")); }

    QTemporaryDir m_folder;
    bool m_isMounted = false;
};
