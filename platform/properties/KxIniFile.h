#pragma once

#include <QHash>
#include <QString>

/// Values of an INI file as text by key.
struct KxIniFile
{
    enum class State { Missing, Read, Unreadable, Damaged };

    /// Reads the file @p name; without values unless the state is Read.
    static KxIniFile read(const QString &name);
    /// The key under which @p key stands in the file: slashes separate groups there, so they are
    /// written as %2F.
    static QString fileKey(const QString &key);

    State state = State::Missing;
    QHash<QString, QString> values;
};
