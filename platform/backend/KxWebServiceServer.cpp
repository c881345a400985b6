#include "platform/backend/KxWebServiceServer.h"

#include <QDir>

namespace Zel {

KxWebServiceServer::KxWebServiceServer(const QUrl &url, const QString &name)
    : m_url(url)
    , m_name(name.isEmpty() ? url.host() : name)
{ }

KxWebServiceServer::~KxWebServiceServer() = default;

QUrl KxWebServiceServer::serviceUrl(const QString &path) const
{
    if (!m_url.isValid()) {
        return {};
    }
    QUrl result = m_url;
    result.setPath(QDir::cleanPath(m_url.path() + QLatin1Char('/') + path));
    return result;
}

QList<SeriesInfo> KxWebServiceServer::series(const std::string &) const
{
    return {};
}

} // namespace Zel
