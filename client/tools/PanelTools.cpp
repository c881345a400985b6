#include "client/app/WorkSession.h"
#include "client/application/WorkstationApplication.h"
#include "client/editors/PanelPlaces.h"
#include "client/tools/WorkstationTools.h"
#include "framework/tools/ToolModule.h"
#include "platform/rights/UserFunctionPermissions.h"

namespace {

/// On while the user sees the panel: switched on it comes to the front wherever it is, switched off
/// it is closed.
class PanelSwitch final : public ApplicationSwitch
{
public:
    PanelSwitch(const char *key, const char *panel)
        : ApplicationSwitch(key)
        , m_panel(panel)
    { }

    [[nodiscard]] bool supportsViewer(const ExBaseViewer * /*viewer*/) const override
    {
        return Zel::UserFunctionPermissions::instance().haveEditorPermission(m_panel, false);
    }

protected:
    [[nodiscard]] bool isOn() const override
    {
        WorkSession *const session = WorkstationApplication::instance().workSession();
        return session != nullptr && session->panels().isSeen(QString::fromLatin1(m_panel));
    }

    void set(bool on) override
    {
        WorkSession *const session = WorkstationApplication::instance().workSession();
        if (session == nullptr || isOn() == on) {
            return;
        }
        const QString name = QString::fromLatin1(m_panel);
        on ? session->panels().show(name) : session->panels().close(name);
    }

private:
    const char *m_panel;
};

class ResetPanels final : public ApplicationCommand
{
public:
    using ApplicationCommand::ApplicationCommand;

protected:
    void run(WorkSession &session) override { session.panels().reset(); }
};

const ToolModule studies(
    {
        .key = "Panel.Studies",
        .category = QT_TRANSLATE_NOOP("Tools", "Panels"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Studies"),
        .toolTip
        = QT_TRANSLATE_NOOP("Tools", "Show the list of studies, or leave its room to the viewers"),
        .icon = "panel-studies",
        .shortCut = "F2",
    },
    [](int) -> ExTool * { return new PanelSwitch("Panel.Studies", "Studies"); });

const ToolModule measurements(
    {
        .key = "Panel.Measurements",
        .category = QT_TRANSLATE_NOOP("Tools", "Panels"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Measurements"),
        .toolTip = QT_TRANSLATE_NOOP(
            "Tools", "Show all measurements with their values, or close their panel"),
        .icon = "panel-measurements",
        .shortCut = "F3",
    },
    [](int) -> ExTool * { return new PanelSwitch("Panel.Measurements", "Measurements"); });

const ToolModule links(
    {
        .key = "Panel.Links",
        .category = QT_TRANSLATE_NOOP("Tools", "Panels"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Links"),
        .toolTip
        = QT_TRANSLATE_NOOP("Tools", "Show how the viewers are linked, or close the panel"),
        .icon = "panel-links",
        .shortCut = "F4",
    },
    [](int) -> ExTool * { return new PanelSwitch("Panel.Links", "Links"); });

const ToolModule properties(
    {
        .key = "Panel.Properties",
        .category = QT_TRANSLATE_NOOP("Tools", "Panels"),
        .text = QT_TRANSLATE_NOOP("Tools", "S&ettings panel"),
        .toolTip
        = QT_TRANSLATE_NOOP("Tools", "Show the settings beside the viewers, or close their panel"),
        .icon = "panel-settings",
        .shortCut = "F7",
    },
    [](int) -> ExTool * { return new PanelSwitch("Panel.Properties", "Properties"); });

const ToolModule log(
    {
        .key = "Panel.Log",
        .category = QT_TRANSLATE_NOOP("Tools", "Panels"),
        .text = QT_TRANSLATE_NOOP("Tools", "L&og"),
        .toolTip
        = QT_TRANSLATE_NOOP("Tools", "Show what the program has logged, or close the panel"),
        .icon = "panel-log",
        .shortCut = "F8",
    },
    [](int) -> ExTool * { return new PanelSwitch("Panel.Log", "Log"); });

const ToolModule reset(
    {
        .key = "Panel.Reset",
        .category = QT_TRANSLATE_NOOP("Tools", "Panels"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Reset panels"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Close all panels but the list of studies"),
        .icon = "panel-reset",
    },
    [](int) -> ExTool * { return new ResetPanels("Panel.Reset"); });

} // namespace
