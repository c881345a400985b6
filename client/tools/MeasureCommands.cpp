#include "client/application/ToolModule.h"
#include "client/measurements/MeasurementList.h"
#include "client/measurements/MeasurementTexts.h"
#include "client/measurements/MeasurementView.h"
#include "client/tools/WorkstationTools.h"
#include "client/viewers/SliceViewer.h"

#include <QClipboard>
#include <QGuiApplication>

#include <algorithm>

namespace {

/// The measurements that can be seen on the images of a viewer.
std::vector<int> measurementsOf(const WorkstationViewer &viewer)
{
    std::vector<int> ids;
    const MeasurementList *const list = MeasurementList::instancePointer();
    if (list != nullptr && viewer.series() != nullptr) {
        for (const Measurement &each : list->all()) {
            if (MeasurementGeometry::isOf(each, *viewer.series())) {
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
        for (const int id : measurementsOf(viewer)) {
            MeasurementList::instancePointer()->remove(id);
        }
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

class DeletePicked final : public ViewerCommand
{
public:
    using ViewerCommand::ViewerCommand;

    [[nodiscard]] bool isEnabled(const ExBaseViewer *viewer) const override
    {
        const MeasurementList *const list = MeasurementList::instancePointer();
        return ViewerCommand::isEnabled(viewer) && list != nullptr && list->picked() != 0;
    }

protected:
    /// What cannot be seen is not to be lost by a click.
    void run(WorkstationViewer &viewer) override
    {
        MeasurementList &list = *MeasurementList::instancePointer();
        const auto *const slice = dynamic_cast<const SliceViewer *>(&viewer);
        if (slice != nullptr && MeasurementView::isShown(*list.find(list.picked()), *slice)) {
            list.remove(list.picked());
        }
    }
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

} // namespace
