#include "SliceView.h"
#include "framework/tools/ExTrigger.h"
#include "framework/tools/ToolModule.h"
#include "framework/viewers/ExViewerManager.h"

#include <QObject>

namespace {

/// Shows low values bright. The state is the view's, not the tool's.
class InvertTool final : public ExTrigger
{
public:
    InvertTool()
        : ExTrigger("View.Invert")
    { }
    [[nodiscard]] bool isActive() const override
    {
        const auto *const view
            = static_cast<SliceView *>(ExViewerManager::getInstance().activeViewer());
        return view != nullptr && view->isInverted();
    }
    bool process(ExBaseViewer *viewer, bool on) override
    {
        if (!isEnabled(viewer)) {
            return false;
        }
        static_cast<SliceView *>(viewer)->setInverted(on);
        return true;
    }
};

const ToolModule module(
    {
        .key = "View.Invert",
        .category = QT_TRANSLATE_NOOP("Tools", "View"),
        .text = QT_TRANSLATE_NOOP("Tools", "Invert"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Show low values bright"),
        .shortCut = "I",
    },
    [](int) -> ExTool * { return new InvertTool; });

} // namespace
