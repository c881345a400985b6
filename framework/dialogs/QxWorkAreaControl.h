#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "platform/toolkit/QxTaskControl.h"

/// Task control that relays everything to the application's progress display
/// (ExApplication::progress()). GUI thread only, but for the reports of value and text: those of
/// other threads arrive through the event loop.
class MOVARA_FRAMEWORK_EXPORT QxWorkAreaControl : public QxTaskControl
{
    Q_OBJECT

public:
    explicit QxWorkAreaControl(QObject *parent = nullptr);
    ~QxWorkAreaControl() override;

    void startWorking(const char *text) override;
    void startWorkingNoStop(const char *text) override;
    void stopWorking() override;
    /// Non-zero when the user has interrupted the work.
    int wasInterrupted() override;

protected Q_SLOTS:
    void workAreaSetProgressValueGlobal(float value);
    void workAreaSetProgressText(const QString &text);
};
