#include "client/app/CommandLine.h"
#include "client/app/DisplayCheck.h"
#include "client/app/MainWindow.h"
#include "client/app/Plugins.h"
#include "client/app/ScreenshotRun.h"
#include "client/app/ScrollBenchmark.h"
#include "client/application/WorkstationApplication.h"
#include "platform/toolkit/QxApplication.h"

#include <QIcon>
#include <QTimer>

#include <cstdio>
#include <memory>

namespace {

QStringList argumentList(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        arguments += QString::fromLocal8Bit(argv[i]);
    }
    return arguments;
}

int runWindow(const CommandLine &command)
{
    const QStringList refused = Plugins::load();
    WorkstationApplication application(command.language);
    MainWindow window;
    application.setDefaultStyle();
    if (command.size.isValid()) {
        window.resize(command.size);
    }
    window.workstation().gate().setUnattended(
        !command.screenshot.isEmpty() || !command.benchmark.isEmpty());
    window.setLayoutByName(command.layout);
    window.show();
    if (command.screenshot.isEmpty()) {
        Plugins::tell(refused);
    }
    std::unique_ptr<QObject> run;
    if (!command.benchmark.isEmpty()) {
        run = std::make_unique<ScrollBenchmark>(window, command.paths);
    } else {
        command.paths.isEmpty() ? window.openSample() : window.open(command.paths);
        if (!command.screenshot.isEmpty()) {
            run = std::make_unique<ScreenshotRun>(window, command.screenshot);
        }
    }
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    CommandLine command;
    if (const auto end = CommandLine::parse(argumentList(argc, argv), command)) {
        std::fprintf(end->exitCode == 0 ? stdout : stderr, "%s\n", qUtf8Printable(end->text));
        return end->exitCode;
    }
    if (const QString problem = displayProblem(argc, argv); !problem.isEmpty()) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(problem));
        return 1;
    }
    QxApplication application(argc, argv);
    // What message boxes are titled with.
    QCoreApplication::setApplicationName(QStringLiteral("Movara"));
    QCoreApplication::setApplicationVersion(QStringLiteral(MOVARA_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("movara-workstation"));
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/movara/movara-workstation.svg")));
    return runWindow(command);
}
