#include "framework/tools/ToolModule.h"

namespace {

std::map<std::string, ToolDecoration> &table()
{
    // Filled by static objects of other sources.
    static auto *const decorations = new std::map<std::string, ToolDecoration>;
    return *decorations;
}

} // namespace

ToolModule::ToolModule(const ToolDecoration &decoration, ExTool::Factory factory, int argument,
    Place place, void (*callback)())
{
    table().insert_or_assign(decoration.key, decoration);
    ExTool::registerTool(decoration.key, factory, argument, place == Place::InMenus);
    if (callback != nullptr) {
        ExTool::addInitCallback(callback);
    }
}

const std::map<std::string, ToolDecoration> &ToolModule::decorations()
{
    return table();
}

const ToolDecoration *ToolModule::decoration(const char *key)
{
    const auto found = key == nullptr ? table().end() : table().find(key);
    return found == table().end() ? nullptr : &found->second;
}
