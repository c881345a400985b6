#pragma once

#include "platform/MovaraPlatformExport.h"
#include "platform/backend/KxTaskControl.h"

#include <QObject>

/// Task control as an object with signals: what the work reports is sent on to whoever shows it,
/// every report as it comes. Reports may come from any thread; receivers in other threads get them
/// queued. Lives by its parent or by handles, not by both. Start, stop and interruption are those
/// of McProgressInterface until a derived class shows them.
class MOVARA_PLATFORM_EXPORT QxTaskControl : public QObject, public KxTaskControl
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(QxTaskControl)

public:
    explicit QxTaskControl(QObject *parent = nullptr);
    ~QxTaskControl() override;

    void reportProgress(float fraction) override;
    void reportText(const QString &text) override;
    /// The same as reportProgress().
    void setProgressValue(float value) override;
    /// The same as reportText(); null counts as empty.
    void setProgressInfo(const char *text) override;

Q_SIGNALS:
    /// @param fraction done, 0 to 1.
    void progressChanged(float fraction);
    void textChanged(const QString &text);
};
