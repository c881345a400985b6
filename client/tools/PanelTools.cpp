#include "client/app/WorkSession.h"
#include "client/application/WorkstationApplication.h"
#include "client/editors/PanelPlaces.h"
#include "client/tools/WorkstationTools.h"
#include "framework/editors/ExEditor.h"
#include "framework/tools/ToolModule.h"
#include "platform/rights/UserFunctionPermissions.h"

#include <deque>
#include <string>

namespace {

/// On while the user sees the panel: switched on it comes to the front wherever it is, switched off
/// it is closed.
class PanelSwitch final : public ApplicationSwitch
{
public:
    PanelSwitch(const char *key, const char *panel)
        : ApplicationSwitch(key)
        , m_panel(QString::fromUtf8(panel))
    { }

    [[nodiscard]] bool supportsViewer(const ExBaseViewer * /*viewer*/) const override
    {
        return Zel::UserFunctionPermissions::instance().haveEditorPermission(
            m_panel.toLocal8Bit().constData(), false);
    }

protected:
    [[nodiscard]] bool isOn() const override
    {
        WorkSession *const session = WorkstationApplication::instance().workSession();
        return session != nullptr && session->panels().isSeen(m_panel);
    }

    void set(bool on) override
    {
        WorkSession *const session = WorkstationApplication::instance().workSession();
        if (session == nullptr || isOn() == on) {
            return;
        }
        on ? session->panels().show(m_panel) : session->panels().close(m_panel);
    }

private:
    QString m_panel;
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

/// A panel that is not the workstation's own.
struct OtherPanel
{
    std::string name;
    std::string key;
};

/// Kept until the process ends, as the texts of decorations must be.
std::deque<OtherPanel> &otherPanels()
{
    static auto *const panels = new std::deque<OtherPanel>;
    return *panels;
}

void addSwitch(const QString &name)
{
    const std::string key = "Panel." + name.toStdString();
    if (ToolModule::decoration(key.c_str()) != nullptr) {
        return; // It has one already.
    }
    const int index = static_cast<int>(otherPanels().size());
    const OtherPanel &panel = otherPanels().emplace_back(OtherPanel{name.toStdString(), key});
    ToolModule(
        {
            .key = panel.key.c_str(),
            .category = QT_TRANSLATE_NOOP("Tools", "Panels"),
            .text = panel.name.c_str(),
            .toolTip = QT_TRANSLATE_NOOP("Tools", "Show the panel, or close it"),
            .icon = "panel",
        },
        [](int number) -> ExTool * {
            const OtherPanel &shown = otherPanels()[static_cast<std::size_t>(number)];
            return new PanelSwitch(shown.key.c_str(), shown.name.c_str());
        },
        index);
}

void addSwitches()
{
    QStringList names;
    ExEditor::getEditorList(names);
    for (const QString &name : names) {
        addSwitch(name);
    }
}

/// Plug-ins were loaded after this; what they do at the start comes before the switches so.
const bool areOthersAdded
    = ExEditor::addInitCallback([] { ExEditor::addInitCallback(&addSwitches); });

} // namespace
