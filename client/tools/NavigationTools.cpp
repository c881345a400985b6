#include "client/links/LinkedActions.h"
#include "client/links/ViewerLinks.h"
#include "client/tools/DragTool.h"
#include "client/tools/LeftButtonTools.h"
#include "client/viewers/SliceViewer.h"
#include "client/viewers/ViewerRenderWidget.h"
#include "client/viewers/VolumeViewer.h"
#include "framework/tools/ToolModule.h"
#include "framework/viewers/ExViewerDB.h"

#include <algorithm>
#include <cmath>

namespace {

/// So many pixels of a drag change a window by its own width, enlarge by Euler's number.
constexpr double windowPixels = 300;
constexpr double zoomPixels = 200;
constexpr double turnRadiansPerPixel = 0.005;
/// Pixels for a slice: a stack takes a viewer's height, but within these bounds.
constexpr double leastScrollPixels = 2;
constexpr double mostScrollPixels = 12;

/// A wide window is changed in larger steps than a narrow one.
KxVolume::Window changed(const KxVolume::Window &window, const QPoint &moved)
{
    const double step = std::max(window.width, 1.0) / windowPixels;
    return {window.center + moved.y() * step, window.width + moved.x() * step};
}

/// To the right widens the window, downwards raises its level.
class WindowTool final : public DragTool
{
public:
    explicit WindowTool(const char *key)
        : DragTool(key, Kx::MoveCursor)
    { }

protected:
    void drag(WorkstationViewer &viewer, const QPoint &moved) override
    {
        auto &slice = static_cast<SliceViewer &>(viewer);
        LinkedActions::setWindow(slice, changed(slice.window(), moved));
    }
};

/// The same for the values that are seen in 3D.
class VolumeWindowTool final : public DragTool
{
public:
    explicit VolumeWindowTool(unsigned state)
        : DragTool(state, Kx::MoveCursor)
    { }

protected:
    [[nodiscard]] bool supports(Ex::ViewerType type) const override
    {
        return WorkstationViewer::isVolumeType(type);
    }
    void drag(WorkstationViewer &viewer, const QPoint &moved) override
    {
        auto &volume = static_cast<VolumeViewer &>(viewer);
        volume.setWindow(changed(volume.window(), moved));
    }
};

/// Downwards goes on through the slices.
class ScrollTool final : public DragTool
{
public:
    explicit ScrollTool(const char *key)
        : DragTool(key, Kx::VerticalCursor)
    { }

protected:
    void begin(WorkstationViewer & /*viewer*/) override { m_remainder = 0; }
    void drag(WorkstationViewer &viewer, const QPoint &moved) override
    {
        auto &slice = static_cast<SliceViewer &>(viewer);
        const double pixels
            = std::clamp(static_cast<double>(viewer.widget()->height()) / slice.stack().count(),
                leastScrollPixels, mostScrollPixels);
        m_remainder += moved.y() / pixels;
        const int planes = static_cast<int>(std::trunc(m_remainder));
        m_remainder -= planes;
        if (planes != 0) {
            LinkedActions::scroll(slice, planes);
        }
    }

private:
    double m_remainder = 0;
};

/// Upwards enlarges.
class ZoomTool final : public DragTool
{
public:
    explicit ZoomTool(const char *key)
        : DragTool(key, Kx::RisingDiagonalCursor)
    { }
    explicit ZoomTool(unsigned state)
        : DragTool(state, Kx::RisingDiagonalCursor)
    { }

protected:
    [[nodiscard]] bool supports(Ex::ViewerType /*type*/) const override { return true; }
    void drag(WorkstationViewer &viewer, const QPoint &moved) override
    {
        const double factor = std::exp(-moved.y() / zoomPixels);
        if (auto *const volume = dynamic_cast<VolumeViewer *>(&viewer)) {
            volume->setZoom(volume->zoom() * factor);
        } else {
            LinkedActions::zoom(static_cast<SliceViewer &>(viewer), factor);
        }
    }
};

/// The picture follows the pointer.
class PanTool final : public DragTool
{
public:
    explicit PanTool(const char *key)
        : DragTool(key, Kx::OpenHandCursor)
    { }
    explicit PanTool(unsigned state)
        : DragTool(state, Kx::ClosedHandCursor)
    { }

protected:
    void drag(WorkstationViewer &viewer, const QPoint &moved) override
    {
        auto &slice = static_cast<SliceViewer &>(viewer);
        const KxSlice &shown = slice.shownSlice();
        const McVec3d shift = shown.right() * moved.x() + shown.down() * moved.y();
        LinkedActions::pan(slice, shift * (-1 / slice.zoom()));
    }
};

/// Turns the volume in 3D; of a slice viewer the plane, to the right about its vertical and
/// downwards about its horizontal axis.
class RotateTool final : public DragTool
{
public:
    explicit RotateTool(const char *key)
        : DragTool(key, Kx::PointingHandCursor)
    { }
    explicit RotateTool(unsigned state, bool isForSlices)
        : DragTool(state, Kx::PointingHandCursor)
        , m_isForSlices(isForSlices)
    { }

protected:
    [[nodiscard]] bool supports(Ex::ViewerType type) const override
    {
        return m_isForSlices || WorkstationViewer::isVolumeType(type);
    }
    void drag(WorkstationViewer &viewer, const QPoint &moved) override
    {
        if (auto *const slice = dynamic_cast<SliceViewer *>(&viewer)) {
            slice->rotate(slice->shownSlice().down(), -moved.x() * turnRadiansPerPixel);
            slice->rotate(slice->shownSlice().right(), moved.y() * turnRadiansPerPixel);
        } else {
            turn(static_cast<VolumeViewer &>(viewer), moved);
        }
    }

private:
    static void turn(VolumeViewer &viewer, const QPoint &moved)
    {
        viewer.rotate(moved.x(), moved.y());
        for (WorkstationViewer *each : ViewerLinks::followers(ExViewerDB::ROTATION_GROUP, viewer)) {
            static_cast<VolumeViewer *>(each)->setView(viewer.viewDirection(), viewer.up());
        }
    }

    bool m_isForSlices = true;
};

/// What each button does whatever has been chosen. Asked last, so that in 3D the left button turns
/// where the chosen tool is for slices.
void startUp()
{
    static const std::vector<McHandle<ExModal>> always{
        new RotateTool(Kx::LeftButton, false),
        new VolumeWindowTool(Kx::LeftButton | Kx::ShiftModifier),
        new RotateTool(Kx::LeftButton | Kx::ControlModifier, true),
        new PanTool(Kx::LeftButton | Kx::ShiftModifier),
        new PanTool(Kx::MiddleButton),
        new ZoomTool(Kx::RightButton),
    };
    for (const McHandle<ExModal> &tool : always) {
        tool->setActive(true);
    }
    LeftButtonTools::start();
}

const ToolModule windowLevel(
    {
        .key = "Tool.WindowLevel",
        .category = QT_TRANSLATE_NOOP("Tools", "Mouse"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Window level"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Left button: change the window of values"),
        .description = QT_TRANSLATE_NOOP("Tools",
            "To the right widens the window, downwards raises its level. In 3D, Shift and the "
            "left button do so."),
        .icon = "link-window",
        .shortCut = "W",
    },
    [](int) -> ExTool * { return new WindowTool("Tool.WindowLevel"); }, 0,
    ToolModule::Place::InMenus, &startUp);

const ToolModule scroll(
    {
        .key = "Tool.Scroll",
        .category = QT_TRANSLATE_NOOP("Tools", "Mouse"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Scroll"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Left button: go through the slices"),
        .description = QT_TRANSLATE_NOOP(
            "Tools", "The wheel, and the arrow and page keys, do so whatever tool is chosen."),
        .icon = "link-scroll",
        .shortCut = "S",
    },
    [](int) -> ExTool * { return new ScrollTool("Tool.Scroll"); });

const ToolModule zoom(
    {
        .key = "Tool.Zoom",
        .category = QT_TRANSLATE_NOOP("Tools", "Mouse"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Zoom"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Left button: enlarge or make smaller"),
        .description = QT_TRANSLATE_NOOP(
            "Tools", "The right button, and the wheel with Ctrl, do so whatever tool is chosen."),
        .icon = "link-zoom",
        .shortCut = "Z",
    },
    [](int) -> ExTool * { return new ZoomTool("Tool.Zoom"); });

const ToolModule pan(
    {
        .key = "Tool.Pan",
        .category = QT_TRANSLATE_NOOP("Tools", "Mouse"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Pan"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Left button: move the image"),
        .description = QT_TRANSLATE_NOOP("Tools",
            "The middle button, and Shift with the left one, do so whatever tool is chosen."),
        .icon = "link-pan",
        .shortCut = "P",
    },
    [](int) -> ExTool * { return new PanTool("Tool.Pan"); });

const ToolModule rotate(
    {
        .key = "Tool.Rotate",
        .category = QT_TRANSLATE_NOOP("Tools", "Mouse"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Turn"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Left button: turn the plane, or the volume in 3D"),
        .description
        = QT_TRANSLATE_NOOP("Tools", "Ctrl and the left button do so whatever tool is chosen."),
        .icon = "link-rotate",
        .shortCut = "O",
    },
    [](int) -> ExTool * { return new RotateTool("Tool.Rotate"); });

} // namespace
