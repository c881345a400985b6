#include "platform/properties/KxIniFile.h"

#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStringDecoder>
#include <QStringList>
#include <QTemporaryFile>

#include <algorithm>

namespace {

bool isIniLine(const QByteArray &line)
{
    return line.isEmpty() || line.startsWith(';') || line.startsWith('#') || line.contains('=')
        || (line.startsWith('[') && line.endsWith(']'));
}

/// Whether @p content can be an INI file. QSettings itself takes nearly anything and drops what it
/// cannot use.
bool isIni(const QByteArray &content)
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(content);
    const bool hasControls = std::any_of(text.begin(), text.end(),
        [](QChar c) { return c < QLatin1Char(' ') && !QStringLiteral("\t\r\n").contains(c); });
    const QList<QByteArray> lines = content.split('\n');
    return !decoder.hasError() && !hasControls
        && std::all_of(lines.begin(), lines.end(),
            [](const QByteArray &line) { return isIniLine(line.trimmed()); });
}

QString settingKey(QString key)
{
    return key.replace(QLatin1String("%2F"), QLatin1String("/"))
        .replace(QLatin1String("%5C"), QLatin1String("\\"))
        .replace(QLatin1String("%25"), QLatin1String("%"));
}

/// Unquoted commas in a file written by hand read as a list; the settings' own text forms want them
/// back.
QString asText(const QVariant &value)
{
    const QStringList parts = value.toStringList();
    return parts.size() > 1 ? parts.join(QLatin1Char(',')) : value.toString();
}

} // namespace

QString KxIniFile::fileKey(const QString &key)
{
    QString result = key;
    return result.replace(QLatin1Char('%'), QLatin1String("%25"))
        .replace(QLatin1Char('/'), QLatin1String("%2F"))
        .replace(QLatin1Char('\\'), QLatin1String("%5C"));
}

KxIniFile KxIniFile::read(const QString &name)
{
    KxIniFile file;
    if (name.isEmpty() || !QFileInfo::exists(name)) {
        return file;
    }
    QFile source(name);
    if (!source.open(QIODevice::ReadOnly)) {
        file.state = State::Unreadable;
        return file;
    }
    // Read through a copy of a fresh name: QSettings keeps files that it has read, by name, and
    // takes one of the same size and time of change in milliseconds for unchanged.
    const QByteArray content = source.readAll();
    if (source.error() != QFileDevice::NoError) {
        file.state = State::Unreadable;
        return file;
    }
    QTemporaryFile copy;
    const bool isCopied = copy.open() && copy.write(content) == content.size() && copy.flush();
    // Where there is no room for a copy the file itself is better than nothing.
    const QSettings settings(isCopied ? copy.fileName() : name, QSettings::IniFormat);
    // Sections are parsed when they are asked for; only then is their damage known.
    const QStringList keys = settings.allKeys();
    if (!isIni(content) || settings.status() != QSettings::NoError) {
        file.state = State::Damaged;
        return file;
    }
    file.state = State::Read;
    for (const QString &key : keys) {
        file.values.insert(settingKey(key), asText(settings.value(key)));
    }
    return file;
}
