#include "framework/tools/ExToolUI.h"

#include "framework/notification/ExNotifiables.h"
#include "framework/tools/ActiveViewer.h"
#include "framework/tools/ExTool.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array relevantTypes{ExNotification::VIEWER_GROUP_DISABLED,
    ExNotification::PROTOCOL_LOADED, ExNotification::VIEWER_TYPE_CHANGED};

} // namespace

ExToolUI::ExToolUI() = default;

ExToolUI::~ExToolUI()
{
    m_self.reset();
    if (m_tool) {
        m_tool->removeUI(this);
    }
}

void ExToolUI::addNotifications()
{
    for (const ExNotification::Type type : relevantTypes) {
        ExNotifiables::getInstance().addNotification(this, type);
    }
}

void ExToolUI::notified(const ExNotification &notification)
{
    const bool isRelevant
        = std::find(relevantTypes.begin(), relevantTypes.end(), notification.type())
        != relevantTypes.end();
    if (isRelevant && m_tool && notification.viewer() == activeViewer()) {
        update(notification.viewer());
    }
}

void ExToolUI::setTool(ExTool *tool)
{
    if (tool == m_tool.get()) {
        return;
    }
    if (m_tool) {
        m_tool->removeUI(this);
    }
    m_tool = tool;
    if (m_tool) {
        m_tool->appendUI(this);
    }
}
