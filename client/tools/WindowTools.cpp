#include "client/app/WorkSession.h"
#include "client/application/WorkstationApplication.h"
#include "client/desktop/Desktop.h"
#include "client/desktop/PlacementDialog.h"
#include "client/tools/WorkstationTools.h"
#include "framework/monitors/ExMonitorManager.h"
#include "framework/tools/ToolModule.h"

namespace {

/// The active window fills its monitors.
class FullScreen final : public ApplicationSwitch
{
public:
    using ApplicationSwitch::ApplicationSwitch;

protected:
    [[nodiscard]] bool isOn() const override
    {
        const ExMonitorWidget *const window = ExMonitorManager::instance().activeMonitorWidget();
        return window != nullptr && window->isFullScreen();
    }

    void set(bool on) override
    {
        ExMonitorWidget *const window = ExMonitorManager::instance().activeMonitorWidget();
        if (window == nullptr || window->isFullScreen() == on) {
            return;
        }
        if (on) {
            window->showFullScreen();
        } else {
            window->restoreWidget();
        }
        window->activateWindow();
    }
};

/// Shows the tool bars beside the viewers. The menu that a right click on a tool bar opens asks for
/// the right to this tool, too.
class ShowToolBars final : public ApplicationSwitch
{
public:
    using ApplicationSwitch::ApplicationSwitch;

protected:
    [[nodiscard]] bool isOn() const override
    {
        ExMonitorWidget *const window = viewersWindow();
        return window != nullptr && !ExMonitorManager::instance().areToolBarsHidden(window);
    }

    void set(bool on) override
    {
        ExMonitorWidget *const window = viewersWindow();
        if (window != nullptr && isOn() != on) {
            ExMonitorManager::instance().toggleToolBars(window);
        }
    }

private:
    static ExMonitorWidget *viewersWindow()
    {
        WorkSession *const session = WorkstationApplication::instance().workSession();
        return session == nullptr ? nullptr : session->desktop().viewersWindow();
    }
};

class Monitors final : public ApplicationCommand
{
public:
    using ApplicationCommand::ApplicationCommand;

protected:
    void run(WorkSession &session) override
    {
        auto *const dialog = new PlacementDialog(
            session.desktop(), WorkstationApplication::instance().dialogParent());
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->open();
    }
};

const ToolModule fullScreen(
    {
        .key = "Window.FullScreen",
        .category = QT_TRANSLATE_NOOP("Tools", "Window"),
        .text = QT_TRANSLATE_NOOP("Tools", "Full &screen"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Let the window fill its monitors, without a frame"),
        .icon = "window-full-screen",
        .shortCut = "F11",
    },
    [](int) -> ExTool * { return new FullScreen("Window.FullScreen"); });

const ToolModule showToolBars(
    {
        .key = "View.ShowToolBars",
        .category = QT_TRANSLATE_NOOP("Tools", "Window"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Tool bars"),
        .toolTip
        = QT_TRANSLATE_NOOP("Tools", "Show the tool bars, or leave their room to the viewers"),
        .icon = "tool-bars",
        .shortCut = "Ctrl+F11",
    },
    [](int) -> ExTool * { return new ShowToolBars("View.ShowToolBars"); });

const ToolModule monitors(
    {
        .key = "Window.Monitors",
        .category = QT_TRANSLATE_NOOP("Tools", "Window"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Monitors…"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Choose what each monitor shows"),
        .description = QT_TRANSLATE_NOOP("Tools",
            "Viewers can be on several monitors; the list of studies stands beside them or has a "
            "window of its own."),
        .icon = "monitors",
        .shortCut = "Shift+F11",
    },
    [](int) -> ExTool * { return new Monitors("Window.Monitors"); });

} // namespace
