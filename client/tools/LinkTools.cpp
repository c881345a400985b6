#include "client/links/LinkType.h"
#include "client/links/ViewerLinks.h"
#include "client/tools/WorkstationTools.h"
#include "client/viewers/WorkstationViewer.h"
#include "framework/tools/ToolModule.h"
#include "framework/viewers/ExViewerDB.h"

namespace {

/// In the order of LinkType::all().
constexpr const char *keys[]
    = {"Link.Scrolling", "Link.Zoom", "Link.Pan", "Link.Window", "Link.Phase", "Link.Rotation"};

/// Whether the active viewer follows its linked viewers.
class AttachTool final : public ViewerSwitch
{
public:
    using ViewerSwitch::ViewerSwitch;

protected:
    [[nodiscard]] bool isOn(const WorkstationViewer &viewer) const override
    {
        return ViewerLinks::isAttached(viewer);
    }
    void set(WorkstationViewer &viewer, bool on) override { ViewerLinks::setAttached(viewer, on); }
};

/// Switches one way of linking viewers for all of them.
class LinkTool final : public ApplicationSwitch
{
public:
    explicit LinkTool(int type)
        : ApplicationSwitch(keys[type])
        , m_group(LinkType::all()[static_cast<std::size_t>(type)].group)
    { }

protected:
    [[nodiscard]] bool isOn() const override { return ExViewerDB::groupEnabled(m_group); }
    void set(bool on) override { ViewerLinks::setEnabled(m_group, on); }

private:
    const std::string &m_group;
};

const ToolModule attach(
    {
        .key = "Link.Attach",
        .category = QT_TRANSLATE_NOOP("Tools", "Link"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Attached to linked viewers"),
        .toolTip
        = QT_TRANSLATE_NOOP("Tools", "Whether the active viewer follows its linked viewers"),
        .description = QT_TRANSLATE_NOOP(
            "Tools", "The badge in the corner of a viewer shows it, and switches it by a click."),
        .icon = "link",
        .shortCut = "L",
    },
    [](int) -> ExTool * { return new AttachTool("Link.Attach"); });

ExTool *makeLinkTool(int type)
{
    return new LinkTool(type);
}

const ToolModule scrolling(
    {
        .key = keys[0],
        .category = QT_TRANSLATE_NOOP("Tools", "Link"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Scrolling"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Viewers in parallel planes are scrolled together"),
        .icon = "link-scroll",
    },
    &makeLinkTool, 0);

const ToolModule zoom(
    {
        .key = keys[1],
        .category = QT_TRANSLATE_NOOP("Tools", "Link"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Zoom"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Viewers are enlarged together"),
        .icon = "link-zoom",
    },
    &makeLinkTool, 1);

const ToolModule pan(
    {
        .key = keys[2],
        .category = QT_TRANSLATE_NOOP("Tools", "Link"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Pan"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Images are moved together"),
        .icon = "link-pan",
    },
    &makeLinkTool, 2);

const ToolModule window(
    {
        .key = keys[3],
        .category = QT_TRANSLATE_NOOP("Tools", "Link"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Window level"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Viewers of one modality share their window"),
        .icon = "link-window",
    },
    &makeLinkTool, 3);

const ToolModule phase(
    {
        .key = keys[4],
        .category = QT_TRANSLATE_NOOP("Tools", "Link"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Time phase"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Viewers show the same time phase"),
        .icon = "link-phase",
    },
    &makeLinkTool, 4);

const ToolModule rotation(
    {
        .key = keys[5],
        .category = QT_TRANSLATE_NOOP("Tools", "Link"),
        .text = QT_TRANSLATE_NOOP("Tools", "3D &rotation"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "3D views are turned together"),
        .icon = "link-rotate",
    },
    &makeLinkTool, 5);

} // namespace
