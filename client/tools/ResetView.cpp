#include "client/links/LinkedActions.h"
#include "client/tools/WorkstationTools.h"
#include "client/viewers/SliceViewer.h"
#include "client/viewers/VolumeViewer.h"
#include "framework/tools/ToolModule.h"

namespace {

class ResetView final : public ViewerCommand
{
public:
    using ViewerCommand::ViewerCommand;

protected:
    void run(WorkstationViewer &viewer) override
    {
        if (auto *const slice = dynamic_cast<SliceViewer *>(&viewer)) {
            LinkedActions::reset(*slice);
        } else {
            static_cast<VolumeViewer &>(viewer).reset();
        }
    }
};

const ToolModule module(
    {
        .key = "View.Reset",
        .category = QT_TRANSLATE_NOOP("Tools", "View"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Reset view"),
        .toolTip
        = QT_TRANSLATE_NOOP("Tools", "Show the whole image in its own plane and first window"),
        .description = QT_TRANSLATE_NOOP("Tools",
            "Linked viewers follow, but for the plane. The slice stays, turned back to "
            "the viewer's plane; inverting and flipping end."),
        .icon = "reset",
        .shortCut = "R",
    },
    [](int) -> ExTool * { return new ResetView("View.Reset"); });

} // namespace
