#include "client/app/WorkSession.h"
#include "client/application/WorkstationApplication.h"
#include "client/tools/WorkstationTools.h"
#include "framework/tools/ExActionUI.h"
#include "framework/tools/ToolModule.h"

namespace {

class Manual final : public ApplicationCommand
{
public:
    using ApplicationCommand::ApplicationCommand;

protected:
    void run(WorkSession & /*session*/) override
    {
        WorkstationApplication::instance().showHelp({});
    }
};

class ShortCuts final : public ApplicationCommand
{
public:
    using ApplicationCommand::ApplicationCommand;

protected:
    void run(WorkSession & /*session*/) override { ExActionUI::showShortCutList(); }
};

class About final : public ApplicationCommand
{
public:
    using ApplicationCommand::ApplicationCommand;

protected:
    void run(WorkSession &session) override { session.showAbout(); }
};

const ToolModule manual(
    {
        .key = "Help.Manual",
        .category = QT_TRANSLATE_NOOP("Tools", "Help"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Manual"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "How the workstation is used"),
        .icon = "help",
        .shortCut = "F1",
    },
    [](int) -> ExTool * { return new Manual("Help.Manual"); });

const ToolModule shortCuts(
    {
        .key = "Help.ShortCuts",
        .category = QT_TRANSLATE_NOOP("Tools", "Help"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Keyboard shortcuts"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "List all keyboard shortcuts"),
        .icon = "keyboard",
        .shortCut = "Shift+F1",
    },
    [](int) -> ExTool * { return new ShortCuts("Help.ShortCuts"); });

const ToolModule about(
    {
        .key = "Help.About",
        .category = QT_TRANSLATE_NOOP("Tools", "Help"),
        .text = QT_TRANSLATE_NOOP("Tools", "&About Movara"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "The version of this program"),
        .icon = "about",
    },
    [](int) -> ExTool * { return new About("Help.About"); });

} // namespace
