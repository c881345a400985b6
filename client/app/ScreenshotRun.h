#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

class WorkSession;

/// Waits until everything is shown in its final state, writes a picture of each window and ends the
/// event loop: with 0, or with another code after a message when something went wrong.
class ScreenshotRun final : public QObject
{
    Q_OBJECT

public:
    /// @param file for the window with the viewers; a further window's name has "-2" and so on
    /// before the ending.
    ScreenshotRun(WorkSession &session, QString file);

private:
    void check();
    void finish();
    [[nodiscard]] QString fileFor(qsizetype window) const;
    void fail(const QString &message);

    WorkSession &m_session;
    QString m_file;
    QTimer m_timer;
    QElapsedTimer m_clock;
    bool m_isOpened = false;
};
