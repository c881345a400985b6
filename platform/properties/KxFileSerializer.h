#pragma once

#include "platform/MovaraPlatformExport.h"
#include "platform/properties/FileStamp.h"
#include "platform/properties/KxPropertySerializer.h"

#include <QHash>

class KxSiteSettings;

/// Store in an INI file. Every write replaces the file as a whole and takes in what other processes
/// wrote meanwhile, so that several processes on one file lose none of each other's keys. A damaged
/// file is set aside under a new name, which the log tells, and the store goes on empty. While the
/// disk is full, or the folder may not be written to, the file stays as it was and what is written
/// is kept in memory. GUI thread only.
class MOVARA_PLATFORM_EXPORT KxFileSerializer final : public KxPropertySerializer
{
public:
    /// @param fileName the file; made, with its folder, by the first write.
    /// @param site answers for keys that the file does not have; may be null; must outlive the
    /// store.
    explicit KxFileSerializer(const QString &fileName, const KxSiteSettings *site = nullptr);
    /// The user's file: named by the environment variable MOVARA_SETTINGS_FILE, else
    /// "movara/settings.ini" in the user's configuration folder.
    [[nodiscard]] static QString defaultFileName();

    [[nodiscard]] const QString &fileName() const { return m_fileName; }

    /// Looks into the file again when it has changed since the last look.
    [[nodiscard]] std::optional<QString> read(const QString &key) const override;
    /// False also when the file cannot be written, or another process keeps it locked for five
    /// seconds.
    bool write(const QString &key, const QString &text) override;
    bool remove(const QString &key) override;
    bool flush() override;

private:
    /// Texts by key; nothing for a key that is to be removed.
    using Changes = QHash<QString, std::optional<QString>>;

    void refresh() const;
    bool change(const QString &key, const std::optional<QString> &text);
    /// Writes what is not written yet, and tells when that begins to fail.
    bool store();
    bool changeFile();
    bool changeLocked();
    static bool writeValues(const QString &fileName, const Changes &changes);
    bool setAside() const;
    void setAsideWithLock() const;
    [[nodiscard]] QString lockName() const;
    void complain(const char *what) const;
    void remember(const QHash<QString, QString> &values, const FileStamp &stamp) const;

    QString m_fileName;
    const KxSiteSettings *m_site;
    Changes m_unwritten;
    mutable QHash<QString, QString> m_values;
    mutable FileStamp m_seen;
    bool m_isFailing = false;
    mutable bool m_complained = false;
};
