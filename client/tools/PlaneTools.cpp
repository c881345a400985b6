#include "client/tools/WorkstationTools.h"
#include "client/viewers/SliceViewer.h"
#include "framework/tools/ToolModule.h"

namespace {

/// In the order of PlaneKind.
constexpr const char *keys[] = {"Plane.Axial", "Plane.Sagittal", "Plane.Coronal", "Plane.Original"};

/// Shows the active viewer's volume in one plane; on while it does.
class PlaneTool final : public ViewerSwitch
{
public:
    explicit PlaneTool(int plane)
        : ViewerSwitch(keys[plane])
        , m_plane(static_cast<PlaneKind>(plane))
    { }

    [[nodiscard]] bool isStandard() const override { return true; }

protected:
    [[nodiscard]] bool supports(Ex::ViewerType type) const override
    {
        return WorkstationViewer::isSliceType(type);
    }
    [[nodiscard]] bool isOn(const WorkstationViewer &viewer) const override
    {
        const auto *const slice = dynamic_cast<const SliceViewer *>(&viewer);
        return slice != nullptr && slice->plane() == m_plane;
    }
    void set(WorkstationViewer &viewer, bool on) override
    {
        if (on) {
            static_cast<SliceViewer &>(viewer).setPlane(m_plane);
        }
    }

private:
    PlaneKind m_plane;
};

ExTool *makePlaneTool(int plane)
{
    return new PlaneTool(plane);
}

const ToolModule axial(
    {
        .key = keys[0],
        .category = QT_TRANSLATE_NOOP("Tools", "Plane"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Axial"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Show the axial plane"),
        .icon = "plane-axial",
        .shortCut = "1",
    },
    &makePlaneTool, 0);

const ToolModule sagittal(
    {
        .key = keys[1],
        .category = QT_TRANSLATE_NOOP("Tools", "Plane"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Sagittal"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Show the sagittal plane"),
        .icon = "plane-sagittal",
        .shortCut = "2",
    },
    &makePlaneTool, 1);

const ToolModule coronal(
    {
        .key = keys[2],
        .category = QT_TRANSLATE_NOOP("Tools", "Plane"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Coronal"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Show the coronal plane"),
        .icon = "plane-coronal",
        .shortCut = "3",
    },
    &makePlaneTool, 2);

const ToolModule original(
    {
        .key = keys[3],
        .category = QT_TRANSLATE_NOOP("Tools", "Plane"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Original"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Show the plane in which the images were acquired"),
        .icon = "plane-original",
        .shortCut = "4",
    },
    &makePlaneTool, 3);

} // namespace
