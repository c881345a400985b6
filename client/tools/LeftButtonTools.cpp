#include "client/tools/LeftButtonTools.h"

#include "framework/tools/ExModal.h"
#include "framework/tools/ExToolGroup.h"

#include <algorithm>

namespace LeftButtonTools {

namespace {

constexpr char standardKey[] = "Tool.WindowLevel";

ExToolGroup &group()
{
    // Tools are used until the process ends.
    static ExToolGroup *const tools = [] {
        auto *const made = new ExToolGroup;
        made->setExclusive(true);
        return made;
    }();
    return *tools;
}

bool isAnotherOn(const ExTool *tool)
{
    const auto &tools = group().getTools();
    return std::any_of(tools.begin(), tools.end(),
        [tool](const McHandle<ExTool> &each) { return each.get() != tool && each->isActive(); });
}

} // namespace

void add(ExModal &tool)
{
    group().appendTool(&tool, true);
}

bool replace(ExTool &tool)
{
    if (isAnotherOn(&tool)) {
        return false;
    }
    ExTool *const standard = ExTool::getToolByDecorationKey(standardKey, true);
    if (standard == &tool) {
        tool.updateUI(nullptr); // Its button stays pressed.
    } else if (standard != nullptr) {
        standard->setActive(true);
    }
    return standard != nullptr;
}

void start()
{
    ExTool *const standard = ExTool::getToolByDecorationKey(standardKey, true);
    if (standard != nullptr && !isAnotherOn(standard)) {
        standard->setActive(true);
    }
}

} // namespace LeftButtonTools
