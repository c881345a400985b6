#include "client/app/Workstation.h"
#include "client/application/WorkstationApplication.h"
#include "client/layout/LayoutTable.h"
#include "client/tools/WorkstationTools.h"
#include "framework/tools/ExMenuTrigger.h"
#include "framework/tools/ToolModule.h"

namespace {

constexpr const char *keys[] = {"Layout.1x1", "Layout.2x2", "Layout.1+3"};
constexpr const char *menuKey = "Layout.Menu";

/// Chooses one layout; on while that is the one shown.
class LayoutTool final : public ApplicationSwitch
{
public:
    explicit LayoutTool(const char *key)
        : ApplicationSwitch(key)
        , m_layout(QString::fromLatin1(key).section(QLatin1Char('.'), 1))
    { }

    [[nodiscard]] bool isStandard() const override { return true; }

protected:
    [[nodiscard]] bool isOn() const override
    {
        Workstation *const shown = WorkstationApplication::instance().workstation();
        return shown != nullptr && shown->layouts().current() == m_layout;
    }

    void set(bool on) override
    {
        Workstation *const shown = WorkstationApplication::instance().workstation();
        if (on && shown != nullptr) {
            shown->layouts().apply(*LayoutTable::find(m_layout));
        }
    }

private:
    QString m_layout;
};

QStringList allKeys()
{
    QStringList all;
    for (const char *key : keys) {
        all += QString::fromLatin1(key);
    }
    return all;
}

ExTool *makeLayoutTool(int index)
{
    return new LayoutTool(keys[index]);
}

const ToolModule oneViewer(
    {
        .key = keys[0],
        .category = QT_TRANSLATE_NOOP("Tools", "Layout"),
        .text = QT_TRANSLATE_NOOP("Tools", "&One viewer"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "The active viewer alone, with what it shows"),
        .icon = "layout-1x1",
        .shortCut = "Ctrl+1",
    },
    &makeLayoutTool, 0);

const ToolModule fourViewers(
    {
        .key = keys[1],
        .category = QT_TRANSLATE_NOOP("Tools", "Layout"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Four viewers"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Axial, sagittal, coronal and 3D"),
        .icon = "layout-2x2",
        .shortCut = "Ctrl+2",
    },
    &makeLayoutTool, 1);

const ToolModule oneAndThree(
    {
        .key = keys[2],
        .category = QT_TRANSLATE_NOOP("Tools", "Layout"),
        .text = QT_TRANSLATE_NOOP("Tools", "One &large viewer"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "One large viewer and three small ones"),
        .icon = "layout-1-3",
        .shortCut = "Ctrl+3",
    },
    &makeLayoutTool, 2);

const ToolModule menu(
    {
        .key = menuKey,
        .category = QT_TRANSLATE_NOOP("Tools", "Layout"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Layout"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Choose how the viewers share the screen"),
        .icon = "layout-2x2",
    },
    [](int) -> ExTool * { return new ExMenuTrigger(menuKey, allKeys(), nullptr, nullptr); });

} // namespace
