#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "platform/toolkit/QxTaskControl.h"
#include "platform/util/McWatch.h"

/// Task control that shows the application's progress display only when the work promises to take
/// long enough, so that short work does not flicker. Nothing is shown during the first second after
/// construction; from then on the display appears once the time that the work will take in all,
/// projected from what is done, reaches the delay. The timed behaviour is that of
/// startWorkingNoStop(). GUI thread only, but for the reports of value and text: those of other
/// threads arrive through the event loop.
class MOVARA_FRAMEWORK_EXPORT QxTimedWorkAreaControl : public QxTaskControl
{
    Q_OBJECT

public:
    /// @param delay in seconds; exactly 0 shows the display at once.
    explicit QxTimedWorkAreaControl(float delay, QObject *parent = nullptr);
    ~QxTimedWorkAreaControl() override;

    /// Makes the application busy, and keeps the text for when the display is shown.
    void startWorkingNoStop(const char *text) override;
    /// Hides the display when it is shown; the application is busy no more.
    void stopWorking() override;
    /// Non-zero when the user has interrupted the work.
    int wasInterrupted() override;

protected Q_SLOTS:
    void workAreaSetProgressValueGlobal(float value);
    void workAreaSetProgressText(const QString &text);

private:
    void show();

    McWatch m_watch;
    float m_delay;
    QString m_text;
    /// The display was started by this control; once set it stays.
    bool m_shown = false;
};
