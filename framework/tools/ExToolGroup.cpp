#include "framework/tools/ExToolGroup.h"

#include "framework/tools/ExTool.h"
#include "framework/tools/ExToolUI.h"

#include <algorithm>
#include <map>

class ExToolGroupPrivate
{
public:
    [[nodiscard]] auto find(const ExTool *tool)
    {
        return std::find_if(tools.begin(), tools.end(),
            [tool](const McHandle<ExTool> &handle) { return handle.get() == tool; });
    }

    /// Takes an address of the group away. When it is the one that the tools know, the next takes
    /// its place; with the last one the tools are let go.
    void leave(ExToolGroup *group)
    {
        const bool isKnown = group == addresses.front();
        std::erase(addresses, group);
        for (std::size_t i = tools.size(); isKnown && i-- > 0;) {
            ExToolGroup::forget(*tools[i], group);
            if (addresses.empty()) {
                tools.pop_back();
            } else {
                ExToolGroup::know(*tools[i], addresses.front());
            }
        }
    }

    /// The groups that share this, that is the group and its copies. Tools know the first one.
    std::vector<ExToolGroup *> addresses;
    std::weak_ptr<ExToolUI> groupUI;
    std::vector<McHandle<ExTool>> tools;
    std::map<const ExTool *, bool> toolBarFixed;
    bool bringUp = false;
    bool exclusive = false;
    bool useInstantPopup = false;
};

ExToolGroup::ExToolGroup()
    : d(std::make_shared<ExToolGroupPrivate>())
{
    d->addresses.push_back(this);
}

ExToolGroup::ExToolGroup(const ExToolGroup &other)
    : d(other.d)
{
    d->addresses.push_back(this);
}

// NOLINTNEXTLINE(bugprone-unhandled-self-assignment): copies share d, so does a group with itself
ExToolGroup &ExToolGroup::operator=(const ExToolGroup &other)
{
    if (d != other.d) {
        d->leave(this);
        d = other.d;
        d->addresses.push_back(this);
    }
    return *this;
}

ExToolGroup::~ExToolGroup()
{
    d->leave(this);
}

void ExToolGroup::know(ExTool &tool, ExToolGroup *group)
{
    tool.appendGroup(group);
}

void ExToolGroup::forget(ExTool &tool, ExToolGroup *group)
{
    tool.removeGroup(group);
}

void ExToolGroup::appendTool(ExTool *tool, bool toolBarFixed)
{
    if (tool == nullptr || d->find(tool) != d->tools.end()) {
        return;
    }
    d->tools.emplace_back(tool);
    tool->appendGroup(d->addresses.front());
    d->toolBarFixed[tool] = toolBarFixed;
}

void ExToolGroup::removeTool(ExTool *tool)
{
    const auto found = d->find(tool);
    if (tool == nullptr || found == d->tools.end()) {
        return;
    }
    const McHandle<ExTool> held = *found;
    tool->removeGroup(d->addresses.front());
    d->tools.erase(found);
}

const std::vector<McHandle<ExTool>> &ExToolGroup::getTools() const
{
    return d->tools;
}

McHandle<ExTool> ExToolGroup::getActiveTool() const
{
    const auto found = std::find_if(d->tools.begin(), d->tools.end(),
        [](const McHandle<ExTool> &tool) { return tool->isActive(); });
    return found == d->tools.end() ? McHandle<ExTool>() : *found;
}

bool ExToolGroup::getToolBarFixed(const ExTool &tool) const
{
    const auto found = d->toolBarFixed.find(&tool);
    return found != d->toolBarFixed.end() && found->second;
}

void ExToolGroup::setToolBarFixed(const ExTool &tool, bool fixed)
{
    d->toolBarFixed[&tool] = fixed;
}

void ExToolGroup::setExclusive(bool exclusive)
{
    d->exclusive = exclusive;
}

bool ExToolGroup::getExclusive() const
{
    return d->exclusive;
}

void ExToolGroup::setBringUp(bool bringUp)
{
    d->bringUp = bringUp;
}

bool ExToolGroup::getBringUp() const
{
    return d->bringUp;
}

void ExToolGroup::setUseInstantPopup(bool instant)
{
    d->useInstantPopup = instant;
}

bool ExToolGroup::getUseInstantPopup() const
{
    return d->useInstantPopup;
}

void ExToolGroup::setGroupUI(ExToolUI *ui)
{
    if (ui != nullptr && !ui->m_self) {
        ui->m_self = std::shared_ptr<ExToolUI>(ui, [](ExToolUI *) {});
    }
    d->groupUI = ui == nullptr ? nullptr : ui->m_self;
}

ExToolUI *ExToolGroup::getGroupUI() const
{
    return d->groupUI.lock().get();
}
