#include "client/links/LinkedActions.h"
#include "client/tools/WorkstationTools.h"
#include "client/viewers/SliceViewer.h"
#include "framework/tools/ToolModule.h"

namespace {

/// Switches something of a slice viewer.
class SliceSwitch : public ViewerSwitch
{
public:
    using ViewerSwitch::ViewerSwitch;

protected:
    [[nodiscard]] bool supports(Ex::ViewerType type) const override
    {
        return WorkstationViewer::isSliceType(type);
    }
    [[nodiscard]] bool isOn(const WorkstationViewer &viewer) const override
    {
        const auto *const slice = dynamic_cast<const SliceViewer *>(&viewer);
        return slice != nullptr && isSet(*slice);
    }
    void set(WorkstationViewer &viewer, bool on) override
    {
        change(static_cast<SliceViewer &>(viewer), on);
    }

    [[nodiscard]] virtual bool isSet(const SliceViewer &viewer) const = 0;
    virtual void change(SliceViewer &viewer, bool on) = 0;
};

class Invert final : public SliceSwitch
{
public:
    using SliceSwitch::SliceSwitch;

    [[nodiscard]] bool supportsViewer(const ExBaseViewer *viewer) const override
    {
        return SliceSwitch::supportsViewer(viewer) && viewer->volume(0) != nullptr
            && viewer->volume(0)->components() == 1;
    }

protected:
    [[nodiscard]] bool isSet(const SliceViewer &viewer) const override
    {
        return viewer.isInverted();
    }
    void change(SliceViewer &viewer, bool on) override { LinkedActions::setInverted(viewer, on); }
};

class Flip final : public SliceSwitch
{
public:
    Flip(const char *key, Qt::Orientation orientation)
        : SliceSwitch(key)
        , m_orientation(orientation)
    { }

protected:
    [[nodiscard]] bool isSet(const SliceViewer &viewer) const override
    {
        return viewer.isFlipped(m_orientation);
    }
    void change(SliceViewer &viewer, bool on) override { viewer.setFlipped(m_orientation, on); }

private:
    Qt::Orientation m_orientation;
};

const ToolModule invert(
    {
        .key = "View.Invert",
        .category = QT_TRANSLATE_NOOP("Tools", "View"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Invert"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Exchange dark and bright"),
        .description
        = QT_TRANSLATE_NOOP("Tools", "Viewers that share their window are inverted together."),
        .icon = "invert",
        .shortCut = "I",
    },
    [](int) -> ExTool * { return new Invert("View.Invert"); });

const ToolModule flipHorizontal(
    {
        .key = "View.FlipHorizontal",
        .category = QT_TRANSLATE_NOOP("Tools", "View"),
        .text = QT_TRANSLATE_NOOP("Tools", "Flip &horizontally"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Exchange left and right of the image"),
        .description = QT_TRANSLATE_NOOP("Tools",
            "The letters at the edges follow, and the viewer says that its image is mirrored."),
        .icon = "flip-horizontal",
        .shortCut = "H",
    },
    [](int) -> ExTool * { return new Flip("View.FlipHorizontal", Qt::Horizontal); });

const ToolModule flipVertical(
    {
        .key = "View.FlipVertical",
        .category = QT_TRANSLATE_NOOP("Tools", "View"),
        .text = QT_TRANSLATE_NOOP("Tools", "Flip &vertically"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Exchange top and bottom of the image"),
        .description = QT_TRANSLATE_NOOP("Tools",
            "The letters at the edges follow, and the viewer says that its image is mirrored."),
        .icon = "flip-vertical",
        .shortCut = "V",
    },
    [](int) -> ExTool * { return new Flip("View.FlipVertical", Qt::Vertical); });

} // namespace
