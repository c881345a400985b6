#pragma once

#include <QCoreApplication>
#include <QProcess>
#include <QProcessEnvironment>

#include <utility>

/// Names and values of environment variables; a null value takes one away.
using Variables = QList<std::pair<const char *, QString>>;

/// The environment of this process, changed.
inline QProcessEnvironment environmentWith(const Variables &variables)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const auto &[name, value] : variables) {
        if (value.isNull()) {
            environment.remove(QLatin1String(name));
        } else {
            environment.insert(QLatin1String(name), value);
        }
    }
    return environment;
}

/// A program that has come to its end; ends this one when it does not.
struct Run
{
    Run(const QString &program, const QStringList &arguments, const Variables &variables = {})
    {
        QProcess process;
        process.setProcessEnvironment(environmentWith(variables));
        process.start(program, arguments);
        if (!process.waitForFinished()) {
            qFatal("%s does not end", qPrintable(program));
        }
        exitCode = process.exitStatus() == QProcess::CrashExit ? -1 : process.exitCode();
        output = QString::fromUtf8(process.readAllStandardOutput());
        errors = QString::fromUtf8(process.readAllStandardError());
    }

    int exitCode = -1; ///< negative after a crash
    QString output;
    QString errors;
};

/// What this test program prints when it is called again with one argument.
inline QString answerTo(const char *argument, const Variables &variables = {})
{
    return Run(QCoreApplication::applicationFilePath(), {QLatin1String(argument)}, variables)
        .output;
}
