#pragma once

#include <QFile>

/// Writes a whole file; ends the program when that fails.
inline void writeFile(const QString &name, const QByteArray &content)
{
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("%s cannot be written", qPrintable(name));
    }
}

/// A whole file; empty when there is none.
inline QByteArray readFile(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
