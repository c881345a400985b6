#include "client/measurements/MeasurementList.h"
#include "client/measurements/MeasurementTexts.h"
#include "client/measurements/MeasurementView.h"
#include "client/tools/WorkstationTools.h"
#include "client/viewers/SliceViewer.h"
#include "framework/notification/ExNotifiables.h"
#include "framework/tools/ToolModule.h"

#include <QClipboard>
#include <QGuiApplication>

#include <algorithm>

namespace {

/// The finished measurements that can be seen on the images of a viewer.
std::vector<int> measurementsOf(const WorkstationViewer &viewer)
{
    std::vector<int> ids;
    const MeasurementList *const list = MeasurementList::instancePointer();
    if (list != nullptr && viewer.series() != nullptr) {
        for (const Measurement &each : list->all()) {
            if (each.isComplete && MeasurementGeometry::isOf(each, *viewer.series())) {
                ids.push_back(each.id);
            }
        }
    }
    return ids;
}

/// A command on measurements; it can be used while the active viewer's images have some.
class MeasurementsCommand : public ViewerCommand
{
public:
    using ViewerCommand::ViewerCommand;

    [[nodiscard]] bool isEnabled(const ExBaseViewer *viewer) const override
    {
        return ViewerCommand::isEnabled(viewer)
            && !measurementsOf(static_cast<const WorkstationViewer &>(*viewer)).empty();
    }
};

class DeleteAll final : public MeasurementsCommand
{
public:
    using MeasurementsCommand::MeasurementsCommand;

protected:
    void run(WorkstationViewer &viewer) override
    {
        MeasurementList::instancePointer()->removeByUser(measurementsOf(viewer));
    }
};

class CopyResults final : public MeasurementsCommand
{
public:
    using MeasurementsCommand::MeasurementsCommand;

protected:
    void run(WorkstationViewer &viewer) override
    {
        QGuiApplication::clipboard()->setText(MeasurementTexts::table(
            *MeasurementList::instancePointer(), *viewer.series(), viewer.phase()));
    }
};

/// Can be used while the picked one is seen in the active viewer: what cannot be seen is not to be
/// lost by a click.
class DeletePicked final : public ViewerCommand
{
public:
    using ViewerCommand::ViewerCommand;

    [[nodiscard]] bool isEnabled(const ExBaseViewer *viewer) const override
    {
        const auto *const slice = dynamic_cast<const SliceViewer *>(viewer);
        const Measurement *const picked = pickedOne();
        return ViewerCommand::isEnabled(viewer) && slice != nullptr && picked != nullptr
            && MeasurementView::isShown(*picked, *slice);
    }
    /// Scrolling may bring it out of sight.
    void notified(const ExNotification & /*notification*/) override
    {
        if (pickedOne() != nullptr) {
            updateUI(nullptr);
        }
    }
    void addNotifications() override
    {
        ExNotifiables::getInstance().addNotifications(
            this, ExNotification::SLICE_CHANGED, ExNotification::NONE);
    }

protected:
    void run(WorkstationViewer & /*viewer*/) override
    {
        MeasurementList::instancePointer()->removeByUser({pickedOne()->id});
    }

private:
    static const Measurement *pickedOne()
    {
        const MeasurementList *const list = MeasurementList::instancePointer();
        return list == nullptr ? nullptr : list->find(list->picked());
    }
};

/// Takes back what the user has deleted or changed last.
class Undo final : public ApplicationCommand
{
public:
    using ApplicationCommand::ApplicationCommand;

    [[nodiscard]] bool isEnabled(const ExBaseViewer * /*viewer*/) const override
    {
        const MeasurementList *const list = MeasurementList::instancePointer();
        return list != nullptr && list->canUndo();
    }

protected:
    void run(WorkSession & /*session*/) override { MeasurementList::instancePointer()->undo(); }
};

const ToolModule copyResults(
    {
        .key = "Measure.Copy",
        .category = QT_TRANSLATE_NOOP("Tools", "Measuring"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Copy results"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Copy the results of these images as text"),
        .icon = "copy",
        .shortCut = "Ctrl+Shift+C",
    },
    [](int) -> ExTool * { return new CopyResults("Measure.Copy"); });

const ToolModule deletePicked(
    {
        .key = "Measure.Delete",
        .category = QT_TRANSLATE_NOOP("Tools", "Measuring"),
        .text = QT_TRANSLATE_NOOP("Tools", "D&elete measurement"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Delete the picked measurement (Del)"),
        .icon = "delete",
    },
    [](int) -> ExTool * { return new DeletePicked("Measure.Delete"); });

const ToolModule deleteAll(
    {
        .key = "Measure.DeleteAll",
        .category = QT_TRANSLATE_NOOP("Tools", "Measuring"),
        .text = QT_TRANSLATE_NOOP("Tools", "Delete a&ll measurements"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Delete all measurements of these images"),
        .icon = "delete-all",
    },
    [](int) -> ExTool * { return new DeleteAll("Measure.DeleteAll"); });

const ToolModule undo(
    {
        .key = "Edit.Undo",
        .category = QT_TRANSLATE_NOOP("Tools", "Edit"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Undo"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Bring back deleted or moved measurements"),
        .description = QT_TRANSLATE_NOOP("Tools",
            "Takes back, one after the other, what was deleted of the measurements or changed by "
            "dragging them."),
        .icon = "undo",
        .shortCut = "Ctrl+Z",
    },
    [](int) -> ExTool * { return new Undo("Edit.Undo"); });

} // namespace
