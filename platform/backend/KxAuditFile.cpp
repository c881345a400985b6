#include "platform/backend/KxAuditFile.h"

#include "platform/util/McLogFile.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

#include <spdlog/sinks/rotating_file_sink.h>

#include <atomic>

class KxAuditFile::Private
{
public:
    Private(const QString &fileName, std::size_t maximumSize, std::size_t numberOfFiles)
        : m_name(fileName)
    {
        QDir().mkpath(QFileInfo(fileName).absolutePath());
        try {
            m_sink = std::make_unique<spdlog::sinks::rotating_file_sink_mt>(
                fileName.toStdString(), maximumSize, numberOfFiles);
            m_sink->set_pattern("%v");
        } catch (const spdlog::spdlog_ex &problem) {
            complain(problem.what());
        }
    }

    void append(const std::string &line)
    {
        if (!write(line)) {
            theLogInstance().print("Audit", line);
        }
    }

private:
    bool write(const std::string &line)
    {
        if (!m_sink) {
            return false;
        }
        try {
            m_sink->log(spdlog::details::log_msg("", spdlog::level::info, line));
            m_sink->flush();
            return true;
        } catch (const spdlog::spdlog_ex &problem) {
            complain(problem.what());
            return false;
        }
    }

    void complain(const char *problem)
    {
        if (!m_complained.exchange(true)) {
            McLogFile::warnf(
                "WARNING - the audit file %s cannot be written, events go to this log: %s",
                qUtf8Printable(m_name), problem);
        }
    }

    QString m_name;
    std::unique_ptr<spdlog::sinks::rotating_file_sink_mt> m_sink;
    std::atomic<bool> m_complained = false;
};

KxAuditFile::KxAuditFile(
    const QString &fileName, std::size_t maximumSize, std::size_t numberOfFiles)
    : d(std::make_unique<Private>(fileName, maximumSize, numberOfFiles))
{ }

KxAuditFile::~KxAuditFile() = default;

QString KxAuditFile::defaultFileName()
{
    QString named = qEnvironmentVariable("MOVARA_AUDIT_FILE");
    if (!named.isEmpty()) {
        return named;
    }
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
        + QLatin1String("/movara/audit.jsonl");
}

void KxAuditFile::append(const QJsonObject &event)
{
    d->append(QJsonDocument(event).toJson(QJsonDocument::Compact).toStdString());
}
