#pragma once

#include <QString>
#include <QStringList>

/// A display protocol of the client: what it is called and which studies and panels it is made for.
/// A plain value.
struct ExHangingProtocol
{
    /// Identifies the protocol; unique in the client.
    QString identifier;
    /// What the user reads.
    QString name;
    /// Modalities that it applies to, e.g. "CT"; empty for all.
    QStringList modalities;
    /// Names of the editors that it shows.
    QStringList editors;
};
