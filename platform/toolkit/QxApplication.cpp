#include "platform/toolkit/QxApplication.h"

#include "platform/toolkit/QxNotifyHook.h"
#include "platform/util/McLogFile.h"

#include <QList>
#include <QPointer>
#include <QThread>

#include <exception>

namespace {

QList<QxNotifyHook *> &hooks()
{
    // Never destroyed: hooks may be static objects of any library.
    static auto *const list = new QList<QxNotifyHook *>;
    return *list;
}

/// Whether a hook took the event, or the receiver is gone.
bool takenByHook(QObject *receiver, QEvent *event)
{
    const QList<QxNotifyHook *> before = hooks();
    if (before.isEmpty()) {
        return false;
    }
    const QPointer<QObject> alive(receiver);
    for (QxNotifyHook *const hook : before) {
        // A hook may have removed another one.
        if (hooks().contains(hook) && (hook->hookNotify(receiver, event) || !alive)) {
            return true;
        }
    }
    return false;
}

class HookFilter final : public QObject
{
public:
    explicit HookFilter(QCoreApplication *application)
        : QObject(application)
    {
        application->installEventFilter(this);
    }
    bool eventFilter(QObject *receiver, QEvent *event) override
    {
        return takenByHook(receiver, event);
    }
};

} // namespace

QxNotifyHook::~QxNotifyHook()
{
    QxApplication::removeHookNotify(this);
}

QxApplication::QxApplication(int &argc, char **argv)
    : QApplication(argc, argv)
{ }

QxApplication::~QxApplication() = default;

void QxApplication::installHookNotify(QxNotifyHook *hook)
{
    if (!hook || hooks().contains(hook)) {
        return;
    }
    hooks().append(hook);
    static QPointer<HookFilter> filter;
    QCoreApplication *const application = QCoreApplication::instance();
    if (application && !filter && !qobject_cast<QxApplication *>(application)) {
        filter = new HookFilter(application);
    }
}

void QxApplication::removeHookNotify(QxNotifyHook *hook)
{
    hooks().removeAll(hook);
}

bool QxApplication::notify(QObject *receiver, QEvent *event)
{
    try {
        return (QThread::currentThread() == thread() && takenByHook(receiver, event))
            || QApplication::notify(receiver, event);
    } catch (const std::exception &exception) {
        McLogFile::warnf("An exception has come to the event loop: %s", exception.what());
    } catch (...) {
        McLogFile::warnf("An exception has come to the event loop: not a standard one");
    }
    return false;
}
