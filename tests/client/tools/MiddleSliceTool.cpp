#include "client/links/LinkedActions.h"
#include "client/tools/WorkstationTools.h"
#include "client/viewers/SliceViewer.h"
#include "framework/tools/ToolModule.h"

namespace {

class MiddleSliceTool final : public ViewerCommand
{
public:
    using ViewerCommand::ViewerCommand;

protected:
    bool supports(Ex::ViewerType type) const override
    {
        return type == Ex::ViewerType(WorkstationViewer::SliceType);
    }

    void run(WorkstationViewer &viewer) override
    {
        auto &slices = static_cast<SliceViewer &>(viewer);
        const int middle = slices.stack().count() / 2;
        LinkedActions::scroll(slices, middle - slices.sliceIndex());
    }
};

const ToolModule module(
    {
        .key = "View.MiddleSlice",
        .category = QT_TRANSLATE_NOOP("Tools", "View"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Middle slice"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Scroll to the middle of the images"),
        .description = QT_TRANSLATE_NOOP("Tools", "Linked viewers follow."),
        .icon = "link-scroll",
        .shortCut = "M",
    },
    [](int) -> ExTool * { return new MiddleSliceTool("View.MiddleSlice"); });

} // namespace
