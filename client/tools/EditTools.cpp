#include "client/app/WorkSession.h"
#include "client/application/WorkstationApplication.h"
#include "client/panels/PropertiesPanel.h"
#include "client/toolbars/ToolBars.h"
#include "client/tools/WorkstationTools.h"
#include "framework/dialogs/ExMessageBox.h"
#include "framework/tools/ToolModule.h"
#include "platform/properties/KxPropertyPool.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QUrl>

namespace {

class Settings final : public ApplicationCommand
{
public:
    using ApplicationCommand::ApplicationCommand;

protected:
    void run(WorkSession & /*session*/) override
    {
        WorkstationApplication::instance().propertyBrowser(KxPropertyPool::instance().properties(),
            {}, PropertiesPanel::internalSettings(), false);
    }
};

/// Opens the user's file of the tool bars, which is made first when it is not there.
class EditToolBars final : public ApplicationCommand
{
public:
    using ApplicationCommand::ApplicationCommand;

protected:
    void run(WorkSession & /*session*/) override
    {
        const QString problem = ToolBars::createUserFile();
        if (!problem.isEmpty()) {
            ExMessageBox::error(problem);
            return;
        }
        QDesktopServices::openUrl(QUrl::fromLocalFile(ToolBars::userFile()));
        ExMessageBox::info(QCoreApplication::translate("EditTools",
            "The tool bars are described in this file. It is read when the workstation "
            "starts.\n\n%1")
                               .arg(ToolBars::userFile()));
    }
};

const ToolModule toolBars(
    {
        .key = "Edit.ToolBars",
        .category = QT_TRANSLATE_NOOP("Tools", "Edit"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Edit tool bars…"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Put the tool bars together"),
        .description = QT_TRANSLATE_NOOP(
            "Tools", "They are described in a file of yours, which is read at the next start."),
        .icon = "tool-bars",
    },
    [](int) -> ExTool * { return new EditToolBars("Edit.ToolBars"); });

const ToolModule settings(
    {
        .key = "Edit.Settings",
        .category = QT_TRANSLATE_NOOP("Tools", "Edit"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Settings…"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Look at the settings and change them"),
        .icon = "settings",
        .shortCut = "Ctrl+,",
    },
    [](int) -> ExTool * { return new Settings("Edit.Settings"); });

} // namespace
