#pragma once

#include "framework/MovaraFrameworkExport.h"

#include <QByteArray>
#include <QStringList>

#include <map>

/// Content of a saved session: one block of bytes for each participant, under its persistent name.
/// A plain value; what a block holds is its participant's business.
class MOVARA_FRAMEWORK_EXPORT ExSessionData
{
public:
    /// Sets the block of a participant, replacing an earlier one.
    void setBlock(const QString &persistentName, const QByteArray &bytes);
    /// The block of a participant; empty when there is none.
    [[nodiscard]] QByteArray block(const QString &persistentName) const;
    [[nodiscard]] bool contains(const QString &persistentName) const;
    /// Names of all participants, in ascending order.
    [[nodiscard]] QStringList persistentNames() const;

    friend bool operator==(const ExSessionData &, const ExSessionData &) = default;

private:
    std::map<QString, QByteArray> m_blocks;
};
