#include "platform/backend/KxBackendPeer.h"

#include "platform/backend/KxAuditFile.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QJsonArray>
#include <QJsonObject>

namespace {

KxBackendPeer *installedPeer = nullptr;

KxAuditFile &auditFile()
{
    // Opened by the first event; never destroyed, like the built-in peer.
    static auto *const file = new KxAuditFile(KxAuditFile::defaultFileName());
    return *file;
}

} // namespace

KxBackendPeer::KxBackendPeer() = default;

KxBackendPeer::~KxBackendPeer()
{
    if (installedPeer == this) {
        installedPeer = nullptr;
    }
}

KxBackendPeer *KxBackendPeer::instance()
{
    static auto *const builtIn = new KxBackendPeer;
    return installedPeer ? installedPeer : builtIn;
}

void KxBackendPeer::install(KxBackendPeer *peer)
{
    installedPeer = peer;
}

void KxBackendPeer::setReasonToQuit(const std::string &reason)
{
    m_reasonToQuit = reason;
}

void KxBackendPeer::logEvent(
    int code, const std::string &key, int first, int second, int third, const QString &text)
{
    QJsonObject event{
        {QStringLiteral("time"), QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs)},
        {QStringLiteral("process"), QCoreApplication::applicationPid()},
        {QStringLiteral("event"), code},
        {QStringLiteral("key"), QString::fromStdString(key)},
        {QStringLiteral("arguments"), QJsonArray{first, second, third}},
    };
    if (!text.isEmpty()) {
        event.insert(QStringLiteral("text"), text);
    }
    auditFile().append(event);
}
