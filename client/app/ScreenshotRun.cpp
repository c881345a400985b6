#include "client/app/ScreenshotRun.h"

#include "client/app/WorkSession.h"
#include "client/desktop/Desktop.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QPixmap>

#include <cstdio>
#include <utility>

namespace {

constexpr int checkMilliseconds = 50;
constexpr qint64 mostMilliseconds = 300000;

} // namespace

ScreenshotRun::ScreenshotRun(WorkSession &session, QString file)
    : m_session(session)
    , m_file(std::move(file))
{
    connect(&session, &WorkSession::opened, this, [this] { m_isOpened = true; });
    connect(&m_timer, &QTimer::timeout, this, &ScreenshotRun::check);
    m_timer.start(checkMilliseconds);
    m_clock.start();
}

void ScreenshotRun::check()
{
    if (m_isOpened && !m_session.openProblem().isEmpty()) {
        fail(m_session.openProblem());
    } else if (m_isOpened && m_session.isSettled()) {
        finish();
    } else if (m_clock.elapsed() > mostMilliseconds) {
        fail(QStringLiteral("The studies were not loaded within %1 seconds.")
                 .arg(mostMilliseconds / 1000));
    }
}

void ScreenshotRun::finish()
{
    m_timer.stop();
    const QList<ExMonitorWidget *> windows = m_session.desktop().windows();
    for (qsizetype i = 0; i < windows.size(); ++i) {
        if (!windows[i]->grab().save(fileFor(i), "PNG")) {
            fail(QStringLiteral("The picture cannot be written to %1.").arg(fileFor(i)));
            return;
        }
    }
    QCoreApplication::exit(0);
}

QString ScreenshotRun::fileFor(qsizetype window) const
{
    if (window == 0) {
        return m_file;
    }
    const QFileInfo first(m_file);
    const QString name = QStringLiteral("%1-%2").arg(first.completeBaseName()).arg(window + 1);
    const QString ending = first.suffix().isEmpty() ? QString() : u'.' % first.suffix();
    return first.dir().filePath(name % ending);
}

void ScreenshotRun::fail(const QString &message)
{
    m_timer.stop();
    std::fprintf(stderr, "movara-workstation: %s\n", qUtf8Printable(message));
    QCoreApplication::exit(1);
}
