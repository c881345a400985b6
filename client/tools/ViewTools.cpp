#include "client/app/Workstation.h"
#include "client/application/WorkstationApplication.h"
#include "client/overlay/OverlaySettings.h"
#include "client/tools/WorkstationTools.h"
#include "client/viewers/ViewerRenderWidget.h"
#include "client/viewers/WorkstationViewer.h"
#include "framework/tools/ToolModule.h"

namespace {

/// Shows the active viewer alone.
class OneUp final : public ViewerSwitch
{
public:
    using ViewerSwitch::ViewerSwitch;

    /// Viewers without an image too.
    [[nodiscard]] bool supportsViewer(const ExBaseViewer *viewer) const override
    {
        return viewer != nullptr;
    }

protected:
    [[nodiscard]] bool isOn(const WorkstationViewer &viewer) const override
    {
        Workstation *const workstation = WorkstationApplication::instance().workstation();
        return workstation != nullptr && workstation->layouts().isFullscreen(viewer);
    }
    void set(WorkstationViewer &viewer, bool on) override
    {
        if (Workstation *const workstation = WorkstationApplication::instance().workstation()) {
            workstation->layouts().setFullscreen(viewer, on);
        }
    }
};

class ReferenceLines final : public ApplicationSwitch
{
public:
    using ApplicationSwitch::ApplicationSwitch;

protected:
    [[nodiscard]] bool isOn() const override { return OverlaySettings::referenceLines(); }
    void set(bool on) override { OverlaySettings::setReferenceLines(on); }
};

class CornerTexts final : public ApplicationSwitch
{
public:
    using ApplicationSwitch::ApplicationSwitch;

protected:
    [[nodiscard]] bool isOn() const override { return OverlaySettings::cornerTexts(); }
    void set(bool on) override { OverlaySettings::setCornerTexts(on); }
};

const ToolModule oneUp(
    {
        .key = "View.OneUp",
        .category = QT_TRANSLATE_NOOP("Tools", "View"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Full-screen viewer"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Show the active viewer alone, or all again"),
        .description = QT_TRANSLATE_NOOP("Tools", "A double click on a viewer does the same."),
        .icon = "one-up",
        .shortCut = "F",
    },
    [](int) -> ExTool * { return new OneUp("View.OneUp"); });

const ToolModule referenceLines(
    {
        .key = "View.ReferenceLines",
        .category = QT_TRANSLATE_NOOP("Tools", "View"),
        .text = QT_TRANSLATE_NOOP("Tools", "Reference &lines"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Show where the other viewers' planes are"),
        .icon = "reference-lines",
        .shortCut = "Ctrl+L",
    },
    [](int) -> ExTool * { return new ReferenceLines("View.ReferenceLines"); });

const ToolModule cornerTexts(
    {
        .key = "View.CornerTexts",
        .category = QT_TRANSLATE_NOOP("Tools", "View"),
        .text = QT_TRANSLATE_NOOP("Tools", "Corner &texts"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Show patient, series, position and window"),
        .icon = "corner-texts",
        .shortCut = "Ctrl+T",
    },
    [](int) -> ExTool * { return new CornerTexts("View.CornerTexts"); });

} // namespace
