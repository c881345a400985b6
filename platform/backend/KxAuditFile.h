#pragma once

#include "platform/MovaraPlatformExport.h"

#include <QString>

#include <cstddef>
#include <memory>
#include <string>

class QJsonObject;

/// Rotating file of events, one JSON object a line, flushed line by line. Any thread.
/// When the file cannot be written, the log says so once, and the events go to the log instead.
class MOVARA_PLATFORM_EXPORT KxAuditFile
{
public:
    /// Appends to the file @p fileName, which is made, with its folder, when it is absent.
    /// @param maximumSize bytes after which the file is renamed ("audit.1.jsonl") and a new one
    /// begun.
    /// @param numberOfFiles how many renamed ones are kept.
    explicit KxAuditFile(const QString &fileName, std::size_t maximumSize = 5U << 20U,
        std::size_t numberOfFiles = 5);
    ~KxAuditFile();
    KxAuditFile(const KxAuditFile &) = delete;
    KxAuditFile &operator=(const KxAuditFile &) = delete;

    /// Named by the environment variable MOVARA_AUDIT_FILE, else "movara/audit.jsonl" in the user's
    /// data folder.
    [[nodiscard]] static QString defaultFileName();

    void append(const QJsonObject &event);

private:
    class Private;
    std::unique_ptr<Private> d;
};
