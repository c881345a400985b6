#include "client/app/MainWindow.h"
#include "client/application/ToolModule.h"
#include "client/application/WorkstationApplication.h"
#include "client/tools/WorkstationTools.h"
#include "platform/properties/KxPropertyPool.h"

namespace {

class Settings final : public ApplicationCommand
{
public:
    using ApplicationCommand::ApplicationCommand;

protected:
    void run(MainWindow & /*window*/) override
    {
        WorkstationApplication::instance().propertyBrowser(
            KxPropertyPool::instance().properties(), {}, hiddenSettings(), false);
    }

private:
    /// What the program keeps for itself.
    static QList<QRegularExpression> hiddenSettings()
    {
        return {QRegularExpression(QStringLiteral("^Hidden\\.")),
            QRegularExpression(QStringLiteral("^UI\\.DialogPositionSize\\."))};
    }
};

const ToolModule settings(
    {
        .key = "Edit.Settings",
        .category = QT_TRANSLATE_NOOP("Tools", "Edit"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Settings…"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Look at the settings and change them"),
        .icon = "settings",
        .shortCut = "Ctrl+,",
    },
    [](int) -> ExTool * { return new Settings("Edit.Settings"); });

} // namespace
