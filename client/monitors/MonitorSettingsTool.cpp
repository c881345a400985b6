#include "client/application/WorkstationApplication.h"
#include "client/monitors/MonitorSettingsPage.h"
#include "client/tools/WorkstationTools.h"
#include "framework/tools/ExHotKeys.h"
#include "framework/tools/ToolModule.h"
#include "platform/properties/KxSiteSettings.h"

#include <QPointer>

namespace {

class MonitorSettings final : public ApplicationCommand
{
public:
    using ApplicationCommand::ApplicationCommand;

protected:
    void run(WorkSession & /*session*/) override
    {
        if (m_page == nullptr) {
            m_page = new MonitorSettingsPage(KxSiteSettings::instance().fileName(),
                WorkstationApplication::instance().dialogParent());
            m_page->setAttribute(Qt::WA_DeleteOnClose);
            ExHotKeys::addTo(*m_page);
        }
        m_page->show();
        m_page->raise();
        m_page->activateWindow();
    }

private:
    QPointer<MonitorSettingsPage> m_page;
};

const ToolModule module(
    {
        .key = "Edit.MonitorSettings",
        .category = QT_TRANSLATE_NOOP("Tools", "Edit"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Monitor settings…"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Split displays, and choose sizes for monitors"),
        .description = QT_TRANSLATE_NOOP("Tools",
            "Fonts and thumbnails are as large as is right for the size of their monitor."),
        .icon = "monitor-settings",
    },
    [](int) -> ExTool * { return new MonitorSettings("Edit.MonitorSettings"); });

} // namespace
