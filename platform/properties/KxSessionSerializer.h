#pragma once

#include "platform/MovaraPlatformExport.h"
#include "platform/properties/KxPropertySerializer.h"

#include <QHash>

class KxSiteSettings;

/// Store that lives in memory as long as the session. It begins with the site's defaults.
class MOVARA_PLATFORM_EXPORT KxSessionSerializer final : public KxPropertySerializer
{
public:
    explicit KxSessionSerializer(const KxSiteSettings &site);

    [[nodiscard]] std::optional<QString> read(const QString &key) const override;
    bool write(const QString &key, const QString &text) override;
    bool remove(const QString &key) override;

private:
    QHash<QString, QString> m_values;
};
