#pragma once

#include <QCoreApplication>
#include <QString>

#include <vector>

class KxVariant;

/// The file with the site's defaults, as one who looks after the site sees it: it is written, and
/// read by everyone at their next start.
class SiteFile final
{
    Q_DECLARE_TR_FUNCTIONS(SiteFile)

public:
    explicit SiteFile(const QString &fileName);

    [[nodiscard]] const QString &fileName() const { return m_fileName; }
    /// Why it cannot be written, for the user; empty when it can be.
    [[nodiscard]] QString problem() const;
    /// Puts the present values of these settings into the file; others in it stay. The file as it
    /// was is kept beside it, with ".old" at the end of its name.
    /// @return what has gone wrong, for the user; empty when all is written.
    [[nodiscard]] QString save(const std::vector<const KxVariant *> &settings) const;

private:
    QString m_fileName;
};
