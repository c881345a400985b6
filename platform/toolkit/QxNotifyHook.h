#pragma once

#include "platform/MovaraPlatformExport.h"

class QEvent;
class QObject;

/// Sees every event of the GUI thread before its receiver does; see
/// QxApplication::installHookNotify().
class MOVARA_PLATFORM_EXPORT QxNotifyHook
{
public:
    QxNotifyHook() = default;
    QxNotifyHook(const QxNotifyHook &) = delete;
    QxNotifyHook &operator=(const QxNotifyHook &) = delete;
    /// A hook that is destroyed is removed by that.
    virtual ~QxNotifyHook();

    /// @return true to keep the event from the receiver and from the hooks installed later. A hook
    /// that destroys the receiver ends the delivery too.
    virtual bool hookNotify(QObject *receiver, QEvent *event) = 0;
};
