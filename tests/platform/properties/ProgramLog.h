#pragma once

#include "platform/util/McLogFile.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

/// Sends the program's log to a folder of its own and gives what arrives there. Make it before the
/// log is first used.
class ProgramLog
{
public:
    ProgramLog() { qputenv("MOVARA_LOG_DIR", m_folder.path().toUtf8()); }

    /// The lines since the last call, without their times; each begins with the level, I or W.
    QStringList take()
    {
        theLogInstance().flush();
        QFile file(QString::fromStdString(theLogInstance().fileName()));
        if (!file.open(QIODevice::ReadOnly) || !file.seek(m_position)) {
            return {QStringLiteral("the log cannot be read")};
        }
        QStringList lines;
        while (!file.atEnd()) {
            lines.append(QString::fromUtf8(file.readLine()).trimmed().mid(timeLength));
        }
        m_position = file.pos();
        return lines;
    }

private:
    static constexpr int timeLength = 24;
    QTemporaryDir m_folder;
    qint64 m_position = 0;
};
