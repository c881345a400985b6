#pragma once

#include "platform/MovaraPlatformExport.h"

#include <QApplication>

class QxNotifyHook;

/// Application object whose deliveries of events can be watched by hooks. GUI thread only. An
/// exception that a receiver lets out ends here and is written to the log: the toolkit's event loop
/// cannot bear it.
class MOVARA_PLATFORM_EXPORT QxApplication : public QApplication
{
    Q_OBJECT

public:
    /// @param argc must stay valid for the life of the object, like @p argv.
    QxApplication(int &argc, char **argv);
    ~QxApplication() override;

    /// Installs @p hook, which stays the caller's; hooks are called in the order installed.
    /// Installing it again, or null, does nothing. May be called before there is an application
    /// object; under an application object of another class, which must exist by then, hooks work
    /// as its event filter.
    static void installHookNotify(QxNotifyHook *hook);
    /// Removes @p hook; one that is not installed is ignored.
    static void removeHookNotify(QxNotifyHook *hook);

    bool notify(QObject *receiver, QEvent *event) override;
};
