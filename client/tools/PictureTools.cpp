#include "client/app/WorkSession.h"
#include "client/application/WorkstationApplication.h"
#include "client/tools/NewFileDialog.h"
#include "client/tools/WorkstationTools.h"
#include "client/viewers/ViewerRenderWidget.h"
#include "client/viewers/WorkstationViewer.h"
#include "framework/dialogs/ExMessageBox.h"
#include "framework/tools/ToolModule.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFileInfo>
#include <QPixmap>
#include <QSaveFile>
#include <QStandardPaths>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(PictureTools)
};

/// The folder of pictures or, from the second time on, where the last picture went.
QString &folder()
{
    static QString name = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    return name;
}

/// A name that sorts by time.
QString defaultName()
{
    const QString time = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss"));
    return folder() % QLatin1String("/movara-") % time % QLatin1String(".png");
}

/// The picture is made before the user is asked, so that it shows what was to be seen then.
void save(const QPixmap &picture, WorkSession &session)
{
    const QString name = NewFileDialog::ask(Texts::tr("Save a picture"), defaultName(),
        Texts::tr("Pictures (*.png *.jpg)"), QStringLiteral("png"));
    if (name.isEmpty()) {
        return;
    }
    QSaveFile file(name);
    const QByteArray format = QFileInfo(name).suffix().toLatin1();
    const bool isSaved = file.open(QIODevice::WriteOnly) && picture.save(&file, format.constData())
        && file.commit();
    if (isSaved) {
        folder() = QFileInfo(name).absolutePath();
        session.showMessage(Texts::tr("Saved: %1").arg(name));
    } else {
        ExMessageBox::error(
            Texts::tr("The picture cannot be written to %1: %2")
                .arg(name,
                    file.error() == QFileDevice::NoError ? Texts::tr("unknown kind of picture")
                                                         : file.errorString()));
    }
}

class SaveViewer final : public ViewerCommand
{
public:
    using ViewerCommand::ViewerCommand;

protected:
    void run(WorkstationViewer &viewer) override
    {
        if (WorkSession *const session = WorkstationApplication::instance().workSession()) {
            save(viewer.widget()->grab(), *session);
        }
    }
};

class SaveWindow final : public ApplicationCommand
{
public:
    using ApplicationCommand::ApplicationCommand;

protected:
    void run(WorkSession &session) override
    {
        save(WorkstationApplication::instance().dialogParent()->grab(), session);
    }
};

const ToolModule saveViewer(
    {
        .key = "File.SaveViewer",
        .category = QT_TRANSLATE_NOOP("Tools", "File"),
        .text = QT_TRANSLATE_NOOP("Tools", "Save &picture of viewer…"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Save what the active viewer shows to a file"),
        .description = QT_TRANSLATE_NOOP("Tools",
            "With the texts in its corners: switch them off where the patient is to stay unknown."),
        .icon = "save-viewer",
        .shortCut = "Ctrl+S",
    },
    [](int) -> ExTool * { return new SaveViewer("File.SaveViewer"); });

const ToolModule saveWindow(
    {
        .key = "File.SaveWindow",
        .category = QT_TRANSLATE_NOOP("Tools", "File"),
        .text = QT_TRANSLATE_NOOP("Tools", "Save picture of &window…"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Save what the active window shows to a file"),
        .icon = "save-window",
        .shortCut = "Ctrl+Shift+S",
    },
    [](int) -> ExTool * { return new SaveWindow("File.SaveWindow"); });

} // namespace
