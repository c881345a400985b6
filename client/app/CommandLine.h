#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

#include <optional>

/// What the workstation was called with. A plain value.
struct CommandLine
{
    QStringList paths;
    QString layout = QStringLiteral("2x2");
    QString language; ///< e.g. "de"; empty for that of the settings
    QString session; ///< file to open; empty for none
    QString screenshot; ///< file to write; empty for none
    QString benchmark; ///< empty for none
    QSize size; ///< of the window with the viewers; not valid for its own

    /// What ends the program at once: a text to print and the exit code.
    struct End
    {
        QString text;
        int exitCode = 0;
    };

    /// @param arguments the program's name first. @param command filled on success.
    /// @return what to end with: help, version, or a mistake in the arguments (exit code 2).
    static std::optional<End> parse(const QStringList &arguments, CommandLine &command);
};
