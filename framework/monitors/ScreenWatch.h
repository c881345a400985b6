#pragma once

#include <QObject>
#include <QTimer>

class QScreen;

/// Tells that displays were plugged in or out, moved, scaled or made primary, once the changes have
/// come to rest: a desktop reports one change in many steps.
class ScreenWatch : public QObject
{
    Q_OBJECT

public:
    ScreenWatch();

    /// Begins to watch, as soon as there is an application object; further calls do nothing.
    void start();
    /// Whether changes have begun and all that comes of them is not over yet.
    [[nodiscard]] bool isChanging() const { return m_rest.isActive() || m_after.isActive(); }

Q_SIGNALS:
    void settled();
    /// The window manager has had time to follow, too: it moves windows about by what it believes
    /// of the displays, and may learn of them later than we.
    void followed();

private:
    void watch(QScreen *screen);

    QTimer m_rest;
    QTimer m_after;
    bool m_started = false;
};
