#include "client/links/LinkedActions.h"
#include "client/tools/WorkstationTools.h"
#include "client/viewers/WorkstationViewer.h"
#include "framework/tools/ToolModule.h"

namespace {

/// Goes some phases on or back.
class StepPhase final : public ViewerCommand
{
public:
    StepPhase(const char *key, int steps)
        : ViewerCommand(key)
        , m_steps(steps)
    { }

    [[nodiscard]] bool supportsViewer(const ExBaseViewer *viewer) const override
    {
        return ViewerCommand::supportsViewer(viewer)
            && static_cast<const WorkstationViewer *>(viewer)->numPhases() > 1;
    }

protected:
    void run(WorkstationViewer &viewer) override { LinkedActions::stepPhase(viewer, m_steps); }

private:
    int m_steps;
};

const ToolModule next(
    {
        .key = "Phase.Next",
        .category = QT_TRANSLATE_NOOP("Tools", "Time phase"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Next phase"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Show the next time phase"),
        .icon = "phase-next",
        .shortCut = ".",
    },
    [](int) -> ExTool * { return new StepPhase("Phase.Next", 1); });

const ToolModule previous(
    {
        .key = "Phase.Previous",
        .category = QT_TRANSLATE_NOOP("Tools", "Time phase"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Previous phase"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Show the previous time phase"),
        .icon = "phase-previous",
        .shortCut = ",",
    },
    [](int) -> ExTool * { return new StepPhase("Phase.Previous", -1); });

} // namespace
