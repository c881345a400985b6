#pragma once

#include "platform/MovaraPlatformExport.h"
#include "platform/backend/SeriesInfo.h"

#include <QList>
#include <QUrl>

namespace Zel {

/// A server whose web services the client may use. The client derives from it, owns its object and
/// hands it to the application object. This class itself knows only where the server is, and no
/// series. GUI thread only.
class MOVARA_PLATFORM_EXPORT KxWebServiceServer
{
public:
    /// @param name for the user; an empty one is replaced by the host's.
    explicit KxWebServiceServer(const QUrl &url, const QString &name = QString());
    KxWebServiceServer(const KxWebServiceServer &) = delete;
    KxWebServiceServer &operator=(const KxWebServiceServer &) = delete;
    virtual ~KxWebServiceServer();

    [[nodiscard]] const QUrl &url() const { return m_url; }
    [[nodiscard]] const QString &name() const { return m_name; }
    /// The address of the service @p path, which counts from the server's own address, slash in
    /// front or not. Not valid when the server's address is not.
    [[nodiscard]] QUrl serviceUrl(const QString &path) const;
    /// The series of a study as far as they are known now, in no particular order. Must not block.
    [[nodiscard]] virtual QList<SeriesInfo> series(const std::string &studyUid) const;

private:
    QUrl m_url;
    QString m_name;
};

} // namespace Zel
