#pragma once

#include "platform/util/McProgressInterface.h"

#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;

/// The progress display of the work area: shows, in the status line, what is under way and how far
/// it is, with a way to cancel it. Hidden while nothing is under way. Work that asks whether it was
/// interrupted gives the button the time to be pressed; nothing else can be used meanwhile. GUI
/// thread only.
class ProgressLine final : public QWidget, public McProgressInterface
{
    Q_OBJECT

public:
    explicit ProgressLine(QWidget *parent = nullptr);

    /// Work in the background. @param total 0 when it is not known.
    void setProgress(int done, int total, const QString &what);

    void startWorking(const char *text) override;
    void startWorkingNoStop(const char *text) override;
    void stopWorking() override;
    int wasInterrupted() override;
    void setProgressValue(float value) override;
    void setProgressInfo(const char *text) override;

    /// Keeps input from all but the button while work in this thread looks whether it is
    /// interrupted.
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void cancelRequested();

private:
    void start(const char *text, bool canBeStopped);
    void showNow();

    QLabel *m_label;
    QProgressBar *m_bar;
    QPushButton *m_cancel;
    bool m_wasInterrupted = false;
};
