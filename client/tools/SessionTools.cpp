#include "client/app/WorkSession.h"
#include "client/application/WorkstationApplication.h"
#include "client/session/SessionFile.h"
#include "client/session/UnsavedQuestion.h"
#include "client/session/WorkstationSessions.h"
#include "client/tools/NewFileDialog.h"
#include "client/tools/WorkstationTools.h"
#include "framework/dialogs/ExMessageBox.h"
#include "framework/tools/ToolModule.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFileDialog>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(SessionTools)
};

QString suffix()
{
    return QLatin1Char('.') % QLatin1String(SessionFile::suffix);
}

QString filter()
{
    return Texts::tr("Sessions (*%1)").arg(suffix());
}

/// Made when it is first wanted, for its owner only.
QString folder()
{
    QString name = WorkstationSessions::defaultFolder();
    if (QDir().mkpath(name)) {
        QFile::setPermissions(
            name, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    }
    return name;
}

/// The dialog has added the suffix only to a name without any dot.
QString askForNewFile()
{
    const QString time = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss"));
    const QString file = NewFileDialog::ask(Texts::tr("Save session"),
        folder() % QLatin1Char('/') % time % suffix(), filter(),
        QLatin1String(SessionFile::suffix));
    if (file.isEmpty() || file.endsWith(suffix())) {
        return file;
    }
    QString whole = file % suffix();
    return !QFile::exists(whole) || ExMessageBox::overwriteConfirmation(whole) ? whole : QString();
}

class SaveSession final : public ApplicationCommand
{
public:
    using ApplicationCommand::ApplicationCommand;

protected:
    void run(WorkSession &session) override
    {
        const QString file = askForNewFile();
        WorkstationSessions *const sessions = WorkstationSessions::instancePointer();
        if (file.isEmpty() || sessions == nullptr) {
            return;
        }
        const QString problem = sessions->save(file);
        if (problem.isEmpty()) {
            session.showMessage(Texts::tr("Saved: %1").arg(file));
        } else {
            ExMessageBox::error(problem);
        }
    }
};

class OpenSession final : public ApplicationCommand
{
public:
    using ApplicationCommand::ApplicationCommand;

protected:
    void run(WorkSession &session) override
    {
        const QString file
            = QFileDialog::getOpenFileName(WorkstationApplication::instance().dialogParent(),
                Texts::tr("Open session"), folder(), filter());
        WorkstationSessions *const sessions = WorkstationSessions::instancePointer();
        if (file.isEmpty() || sessions == nullptr || !mayLoseUnsaved()) {
            return;
        }
        const QString problem = sessions->open(file);
        if (problem.isEmpty()) {
            session.giveUpSample();
        } else {
            ExMessageBox::error(problem);
        }
    }

private:
    static bool mayLoseUnsaved()
    {
        return UnsavedQuestion::mayGo(
            Texts::tr("Not saved in a session: %1. Save before another session is opened?"),
            Texts::tr("Not saved in a session: %1. Open another session all the same, and lose "
                      "it?"));
    }
};

const ToolModule openSession(
    {
        .key = "File.OpenSession",
        .category = QT_TRANSLATE_NOOP("Tools", "File"),
        .text = QT_TRANSLATE_NOOP("Tools", "Open &session…"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Open images in the views in which they were saved"),
        .description = QT_TRANSLATE_NOOP("Tools",
            "The same series in the same viewers, with their windows, links and measurements."),
        .icon = "open-folder",
        .shortCut = "Ctrl+Shift+O",
    },
    [](int) -> ExTool * { return new OpenSession("File.OpenSession"); });

const ToolModule saveSession(
    {
        .key = "File.SaveSession",
        .category = QT_TRANSLATE_NOOP("Tools", "File"),
        .text = QT_TRANSLATE_NOOP("Tools", "Sa&ve session…"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Save what is open, and how, to a file"),
        .description = QT_TRANSLATE_NOOP(
            "Tools", "Images are not copied: the file tells where they are. Only you can read it."),
        .icon = "save-window",
        .shortCut = "Ctrl+Alt+S",
    },
    [](int) -> ExTool * { return new SaveSession("File.SaveSession"); });

} // namespace
