#include "client/app/CommandLine.h"
#include "client/app/DisplayCheck.h"
#include "client/app/FontPreload.h"
#include "client/app/Plugins.h"
#include "client/app/ScreenshotRun.h"
#include "client/app/ScrollBenchmark.h"
#include "client/app/StartBenchmark.h"
#include "client/app/WorkSession.h"
#include "client/application/SettingsKeeper.h"
#include "client/application/WorkstationApplication.h"
#include "client/desktop/Desktop.h"
#include "client/session/WorkstationSessions.h"
#include "framework/dialogs/ExMessageBox.h"
#include "framework/monitors/ExMonitorManager.h"
#include "platform/toolkit/QxApplication.h"
#include "platform/toolkit/QxStyleFactory.h"

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

/// What is not restored is told: to the user, or, when there is none, to the shell.
void tellOfSessions(WorkstationSessions &sessions, bool isAttended)
{
    const auto tell = [isAttended](bool isRestored, const QString &message) {
        if (isAttended && !message.isEmpty()) {
            ExMessageBox::warning(message);
        } else if (!message.isEmpty()) {
            std::fprintf(stderr, "%s\n", qUtf8Printable(message));
        }
        if (!isAttended && !isRestored) {
            QCoreApplication::exit(1);
        }
    };
    QObject::connect(
        &sessions, &WorkstationSessions::finished, &sessions, tell, Qt::QueuedConnection);
}

/// Opens what was asked for: a session, folders, or, without either, the sample study. A session
/// that was left by a crash is offered before the latter two.
void openFirst(
    WorkSession &work, WorkstationSessions &sessions, const CommandLine &command, bool isAttended)
{
    const auto openPaths = [&work, paths = command.paths] {
        paths.isEmpty() ? work.openSample() : work.open(paths);
    };
    if (!command.session.isEmpty()) {
        const QString problem = sessions.open(command.session);
        if (!problem.isEmpty()) {
            Q_EMIT sessions.finished(false, problem);
        }
    }
    if (isAttended) {
        sessions.startAutosave(
            AutosaveSlot::defaultFolder(),
            command.session.isEmpty() ? std::function<void()>(openPaths) : [] {});
    } else if (command.session.isEmpty()) {
        openPaths();
    }
}

int runWindow(const CommandLine &command)
{
    const SettingsKeeper settings;
    const QStringList refused = Plugins::load();
    WorkstationApplication application(command.language);
    ExMonitorManager::installAutomaticFontAndDialogAdjustment();
    WorkSession session;
    QObject::connect(&settings, &SettingsKeeper::told, &session, &WorkSession::showMessage);
    application.setDefaultStyle(); // Only now: each widget would be styled anew in each new parent.
    Desktop &desktop = session.desktop();
    if (command.size.isValid()) {
        desktop.startWithSize(command.size);
    }
    // Runs that end by themselves leave the user's windows where they were.
    const bool isRun = !command.benchmark.isEmpty() || !command.screenshot.isEmpty();
    desktop.setRemembering(!isRun && !command.size.isValid());
    session.workstation().layouts().applyToAll(*LayoutTable::find(command.layout));
    session.workstation().gate().setUnattended(isRun);
    std::unique_ptr<QObject> run;
    const bool isStartOnly = command.benchmark == QLatin1String("start");
    if (isStartOnly) {
        run = std::make_unique<StartBenchmark>(*desktop.viewersWindow());
    }
    desktop.show();
    if (command.screenshot.isEmpty()) {
        Plugins::tell(refused);
    }
    WorkstationSessions sessions(session.workstation());
    tellOfSessions(sessions, !isRun);
    QObject::connect(
        &sessions, &WorkstationSessions::autosaveFailed, &session, &WorkSession::showMessage);
    if (command.benchmark == QLatin1String("scroll")) {
        run = std::make_unique<ScrollBenchmark>(session, command.paths);
    } else if (!isStartOnly) {
        openFirst(session, sessions, command, !isRun);
        if (!command.screenshot.isEmpty()) {
            run = std::make_unique<ScreenshotRun>(session, command.screenshot);
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
    const FontPreload fonts;
    QxApplication application(argc, argv);
    QxStyleFactory::instance().prepare();
    // What message boxes are titled with.
    QCoreApplication::setApplicationName(QStringLiteral("Movara"));
    QCoreApplication::setApplicationVersion(QStringLiteral(MOVARA_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("movara-workstation"));
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/movara/movara-workstation.svg")));
    return runWindow(command);
}
