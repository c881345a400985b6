#include "framework/monitors/ScreenWatch.h"

#include <QGuiApplication>
#include <QScreen>

#include <chrono>

ScreenWatch::ScreenWatch()
{
    using namespace std::chrono_literals;
    m_rest.setSingleShot(true);
    m_rest.setInterval(200ms);
    m_after.setSingleShot(true);
    m_after.setInterval(600ms);
    connect(&m_rest, &QTimer::timeout, this, [this] {
        m_after.start();
        Q_EMIT settled();
    });
    connect(&m_after, &QTimer::timeout, this, &ScreenWatch::followed);
}

void ScreenWatch::start()
{
    auto *const application = qobject_cast<QGuiApplication *>(QCoreApplication::instance());
    if (m_started || application == nullptr) {
        return;
    }
    m_started = true;
    const auto changed = [this] { m_rest.start(); };
    connect(application, &QGuiApplication::screenAdded, this, [this](QScreen *screen) {
        watch(screen);
        m_rest.start();
    });
    connect(application, &QGuiApplication::screenRemoved, this, changed);
    connect(application, &QGuiApplication::primaryScreenChanged, this, changed);
    // A timer must not outlive the event loop that it belongs to.
    connect(application, &QCoreApplication::aboutToQuit, &m_rest, &QTimer::stop);
    connect(application, &QCoreApplication::aboutToQuit, &m_after, &QTimer::stop);
    const QList<QScreen *> screens = QGuiApplication::screens();
    for (QScreen *const screen : screens) {
        watch(screen);
    }
}

void ScreenWatch::watch(QScreen *screen)
{
    const auto changed = [this] { m_rest.start(); };
    connect(screen, &QScreen::geometryChanged, this, changed);
    connect(screen, &QScreen::availableGeometryChanged, this, changed);
    connect(screen, &QScreen::logicalDotsPerInchChanged, this, changed);
}
