#include "client/app/WorkSession.h"
#include "client/tools/WorkstationTools.h"
#include "framework/tools/ToolModule.h"

namespace {

class OpenFolder final : public ApplicationCommand
{
public:
    using ApplicationCommand::ApplicationCommand;

protected:
    void run(WorkSession &session) override { session.askForFolder(); }
};

class CloseStudies final : public ApplicationCommand
{
public:
    using ApplicationCommand::ApplicationCommand;

protected:
    void run(WorkSession &session) override { session.workstation().session().close(); }
};

class Quit final : public ApplicationCommand
{
public:
    using ApplicationCommand::ApplicationCommand;

protected:
    void run(WorkSession &session) override { session.quit(); }
};

const ToolModule openFolder(
    {
        .key = "File.OpenFolder",
        .category = QT_TRANSLATE_NOOP("Tools", "File"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Open folder…"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Look for DICOM files in a folder"),
        .description = QT_TRANSLATE_NOOP("Tools",
            "Subfolders are looked through too. The largest series found is shown in all viewers."),
        .icon = "open-folder",
        .shortCut = "Ctrl+O",
    },
    [](int) -> ExTool * { return new OpenFolder("File.OpenFolder"); });

const ToolModule closeStudies(
    {
        .key = "File.Close",
        .category = QT_TRANSLATE_NOOP("Tools", "File"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Close"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Close all studies"),
        .icon = "close",
        .shortCut = "Ctrl+W",
    },
    [](int) -> ExTool * { return new CloseStudies("File.Close"); });

const ToolModule quit(
    {
        .key = "File.Quit",
        .category = QT_TRANSLATE_NOOP("Tools", "File"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Quit"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "End the workstation"),
        .icon = "quit",
        .shortCut = "Ctrl+Q",
    },
    [](int) -> ExTool * { return new Quit("File.Quit"); });

} // namespace
