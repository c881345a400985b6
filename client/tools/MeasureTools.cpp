#include "client/application/WorkstationApplication.h"
#include "client/tools/MeasureTool.h"
#include "client/tools/WorkstationTools.h"
#include "framework/tools/ToolModule.h"

#include <QCoreApplication>

#include <array>

namespace {

constexpr char regionKey[] = "Measure.Region";
constexpr std::array formKeys{"Measure.Ellipse", "Measure.Rectangle", "Measure.Polygon"};
constexpr std::array formKinds{
    Measurement::Kind::Ellipse, Measurement::Kind::Rectangle, Measurement::Kind::Polygon};

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(MeasureTools)
};

class DistanceTool final : public MeasureTool
{
public:
    explicit DistanceTool(const char *key)
        : MeasureTool(key)
    {
        addCommands();
    }

protected:
    [[nodiscard]] Measurement::Kind kind() const override { return Measurement::Kind::Distance; }
    [[nodiscard]] QString hint() const override
    {
        return Texts::tr("Click the two ends,\nor drag across");
    }
};

class AngleTool final : public MeasureTool
{
public:
    explicit AngleTool(const char *key)
        : MeasureTool(key)
    {
        addCommands();
    }

protected:
    [[nodiscard]] Measurement::Kind kind() const override { return Measurement::Kind::Angle; }
    [[nodiscard]] QString hint() const override
    {
        return Texts::tr("Click one leg,\nthe apex and\nthe other leg");
    }
};

class RegionTool final : public MeasureTool
{
public:
    explicit RegionTool(const char *key)
        : MeasureTool(key)
    {
        for (const char *each : formKeys) {
            addSubTool(each);
        }
        addCommands();
    }

    void setForm(Measurement::Kind form)
    {
        giveUp();
        m_form = form;
        updateDisplayHint();
    }
    [[nodiscard]] Measurement::Kind kind() const override { return m_form; }

protected:
    [[nodiscard]] QString hint() const override
    {
        return m_form == Measurement::Kind::Polygon
            ? Texts::tr("Click the corners, double-click the last,\nor draw around")
            : Texts::tr("Drag from corner to corner,\nor click both corners");
    }

private:
    Measurement::Kind m_form = Measurement::Kind::Ellipse;
};

/// Which form the next region gets.
class RegionForm final : public ApplicationSwitch
{
public:
    explicit RegionForm(int form)
        : ApplicationSwitch(formKeys.at(static_cast<std::size_t>(form)))
        , m_form(formKinds.at(static_cast<std::size_t>(form)))
    { }

    [[nodiscard]] bool isStandard() const override { return true; }

protected:
    [[nodiscard]] bool isOn() const override
    {
        const RegionTool *const tool = region();
        return tool != nullptr && tool->kind() == m_form;
    }
    void set(bool on) override
    {
        if (RegionTool *const tool = region(); tool != nullptr && on) {
            tool->setForm(m_form);
            WorkstationApplication::instance().refreshTools();
        }
    }

private:
    /// The live one: it makes the forms itself.
    static RegionTool *region()
    {
        return static_cast<RegionTool *>(ExTool::getToolByDecorationKey(regionKey, false));
    }

    Measurement::Kind m_form;
};

ExTool *makeForm(int form)
{
    return new RegionForm(form);
}

const ToolModule distance(
    {
        .key = "Measure.Distance",
        .category = QT_TRANSLATE_NOOP("Tools", "Measuring"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Distance"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Left button: measure a distance"),
        .description = QT_TRANSLATE_NOOP("Tools",
            "Click the two ends, or drag from one to the other. Shapes and their handles can be "
            "dragged; Del removes the picked one. Of the one being drawn Backspace takes the last "
            "point back, and Esc gives it up."),
        .icon = "measure-distance",
        .shortCut = "D",
    },
    [](int) -> ExTool * { return new DistanceTool("Measure.Distance"); });

const ToolModule angle(
    {
        .key = "Measure.Angle",
        .category = QT_TRANSLATE_NOOP("Tools", "Measuring"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Angle"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Left button: measure an angle"),
        .description = QT_TRANSLATE_NOOP(
            "Tools", "Click the end of one leg, the apex, and the end of the other leg."),
        .icon = "measure-angle",
        .shortCut = "A",
    },
    [](int) -> ExTool * { return new AngleTool("Measure.Angle"); });

const ToolModule region(
    {
        .key = regionKey,
        .category = QT_TRANSLATE_NOOP("Tools", "Measuring"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Region"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Left button: measure area and values of a region"),
        .description = QT_TRANSLATE_NOOP("Tools",
            "Tells the area, and mean, standard deviation, least and greatest value in it. On a "
            "plane across the acquired images the values are interpolated."),
        .icon = "measure-region",
        .shortCut = "E",
    },
    [](int) -> ExTool * { return new RegionTool(regionKey); });

const ToolModule ellipse(
    {
        .key = formKeys[0],
        .category = QT_TRANSLATE_NOOP("Tools", "Measuring"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Ellipse"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Regions are ellipses"),
        .icon = "measure-region",
    },
    &makeForm, 0, ToolModule::Place::ElsewhereOnly);

const ToolModule rectangle(
    {
        .key = formKeys[1],
        .category = QT_TRANSLATE_NOOP("Tools", "Measuring"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Rectangle"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Regions are rectangles"),
        .icon = "measure-rectangle",
    },
    &makeForm, 1, ToolModule::Place::ElsewhereOnly);

const ToolModule polygon(
    {
        .key = formKeys[2],
        .category = QT_TRANSLATE_NOOP("Tools", "Measuring"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Polygon"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Regions are drawn freely, or by their corners"),
        .icon = "measure-polygon",
    },
    &makeForm, 2, ToolModule::Place::ElsewhereOnly);

} // namespace
