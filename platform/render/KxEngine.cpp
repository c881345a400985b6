#include "platform/render/KxEngine.h"

#include <QCoreApplication>
#include <QThread>

KxEngine &KxEngine::instance()
{
    // Never destroyed: renderers held by static objects still take their requests out while the
    // process ends.
    static auto *const engine = new KxEngine;
    return *engine;
}

bool kxIsMainThread()
{
    const QCoreApplication *const application = QCoreApplication::instance();
    return application == nullptr || application->thread() == QThread::currentThread();
}
