#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

class MainWindow;

/// Waits until the main window shows everything in its final state, writes a picture of it and ends
/// the event loop: with 0, or with another code after a message when something went wrong.
class ScreenshotRun final : public QObject
{
    Q_OBJECT

public:
    ScreenshotRun(MainWindow &window, QString file);

private:
    void check();
    void finish();
    void fail(const QString &message);

    MainWindow &m_window;
    QString m_file;
    QTimer m_timer;
    QElapsedTimer m_clock;
    bool m_isOpened = false;
};
