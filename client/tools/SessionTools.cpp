#include "client/app/WorkSession.h"
#include "client/application/WorkstationApplication.h"
#include "client/session/SessionFile.h"
#include "client/session/WorkstationSessions.h"
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

class SaveSession final : public ApplicationCommand
{
public:
    using ApplicationCommand::ApplicationCommand;

protected:
    void run(WorkSession &session) override
    {
        const QString time
            = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss"));
        QString file
            = QFileDialog::getSaveFileName(WorkstationApplication::instance().dialogParent(),
                Texts::tr("Save session"), folder() % QLatin1Char('/') % time % suffix(), filter());
        WorkstationSessions *const sessions = WorkstationSessions::instancePointer();
        if (file.isEmpty() || sessions == nullptr) {
            return;
        }
        if (!file.endsWith(suffix())) {
            file += suffix();
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
    void run(WorkSession & /*session*/) override
    {
        const QString file
            = QFileDialog::getOpenFileName(WorkstationApplication::instance().dialogParent(),
                Texts::tr("Open session"), folder(), filter());
        WorkstationSessions *const sessions = WorkstationSessions::instancePointer();
        if (file.isEmpty() || sessions == nullptr || !mayLoseUnsaved()) {
            return;
        }
        const QString problem = sessions->open(file);
        if (!problem.isEmpty()) {
            ExMessageBox::error(problem);
        }
    }

private:
    static bool mayLoseUnsaved()
    {
        const QStringList unsaved = WorkstationSessions::unsaved();
        return unsaved.isEmpty()
            || ExMessageBox::question(Texts::tr("Not saved in a session: %1. Open another session "
                                                "all the same, and lose it?")
                                          .arg(unsaved.join(QStringLiteral(", "))),
                   QMessageBox::Yes | QMessageBox::No, QMessageBox::No)
            == QMessageBox::Yes;
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
