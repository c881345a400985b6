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
    /// Whether changes have begun and not come to rest.
    [[nodiscard]] bool isChanging() const { return m_rest.isActive(); }

Q_SIGNALS:
    void settled();

private:
    void watch(QScreen *screen);

    QTimer m_rest;
    bool m_started = false;
};
