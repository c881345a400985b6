#include "client/application/SettingsKeeper.h"

#include "platform/properties/KxPropertyPool.h"

namespace {

constexpr int retryMilliseconds = 5000;

KxPropertySerializer &store()
{
    return KxPropertyPool::instance().registrySerializer();
}

} // namespace

SettingsKeeper::SettingsKeeper(QObject *parent)
    : QObject(parent)
{
    m_timer.setInterval(retryMilliseconds);
    connect(&m_timer, &QTimer::timeout, this, &SettingsKeeper::tryAgain);
    store().setProblemHandler([this](const QString &file) { failed(file); });
}

SettingsKeeper::~SettingsKeeper()
{
    store().setProblemHandler({});
    store().flush();
}

void SettingsKeeper::failed(const QString &file)
{
    m_timer.start();
    const QString message = tr("The settings cannot be saved to %1: make room on the disk, or "
                               "allow writing there. They hold until you quit.")
                                .arg(file);
    QMetaObject::invokeMethod(
        this, [this, message] { Q_EMIT told(message); }, Qt::QueuedConnection);
}

void SettingsKeeper::tryAgain()
{
    if (store().flush()) {
        m_timer.stop();
        Q_EMIT told(tr("The settings are saved now."));
    }
}
