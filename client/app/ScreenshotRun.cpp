#include "client/app/ScreenshotRun.h"

#include "client/app/MainWindow.h"

#include <QCoreApplication>
#include <QPixmap>

#include <cstdio>
#include <utility>

namespace {

constexpr int checkMilliseconds = 50;
constexpr qint64 mostMilliseconds = 300000;

} // namespace

ScreenshotRun::ScreenshotRun(MainWindow &window, QString file)
    : m_window(window)
    , m_file(std::move(file))
{
    connect(&window, &MainWindow::opened, this, [this] { m_isOpened = true; });
    connect(&m_timer, &QTimer::timeout, this, &ScreenshotRun::check);
    m_timer.start(checkMilliseconds);
    m_clock.start();
}

void ScreenshotRun::check()
{
    if (m_isOpened && !m_window.openProblem().isEmpty()) {
        fail(m_window.openProblem());
    } else if (m_isOpened && m_window.isSettled()) {
        finish();
    } else if (m_clock.elapsed() > mostMilliseconds) {
        fail(QStringLiteral("The studies were not loaded within %1 seconds.")
                 .arg(mostMilliseconds / 1000));
    }
}

void ScreenshotRun::finish()
{
    m_timer.stop();
    if (m_window.grab().save(m_file, "PNG")) {
        QCoreApplication::exit(0);
    } else {
        fail(QStringLiteral("The picture cannot be written to %1.").arg(m_file));
    }
}

void ScreenshotRun::fail(const QString &message)
{
    m_timer.stop();
    std::fprintf(stderr, "movara-workstation: %s\n", qUtf8Printable(message));
    QCoreApplication::exit(1);
}
