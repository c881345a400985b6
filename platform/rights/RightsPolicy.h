#pragma once

#include <QHash>
#include <QList>
#include <QRegularExpression>
#include <QSet>
#include <QString>

/// Content of a policy file.
struct RightsPolicy
{
    /// Reads the file @p fileName. A file that is no policy gives one that denies every tool and
    /// editor, with @p problem set.
    static RightsPolicy read(const QString &fileName, QString &problem);

    QList<QRegularExpression> deniedTools;
    QList<QRegularExpression> deniedEditors;
    QSet<int> grantedFunctions;
    /// Current identifier by outdated one; a current one is outdated itself nowhere.
    QHash<QString, QString> renamedTools;
};
