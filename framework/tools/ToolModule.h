#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "framework/tools/ExTool.h"
#include "framework/tools/ToolDecoration.h"

#include <map>
#include <string>

/// Makes a tool known, as a static object beside its class: decoration, factory, and, if there is
/// anything to be done at start-up, a callback that runs once the application object is there. For
/// modules of the client and for plug-ins; the client's ExDecoration looks the decorations up.
class MOVARA_FRAMEWORK_EXPORT ToolModule
{
public:
    /// Whether a tool is offered in menus: one that no menu names appears in the menu "Tools".
    enum class Place { InMenus, ElsewhereOnly };

    /// @param argument handed to the factory. @param callback may be null.
    ToolModule(const ToolDecoration &decoration, ExTool::Factory factory, int argument = 0,
        Place place = Place::InMenus, void (*callback)() = nullptr);

    /// The decorations of all modules by their keys.
    static const std::map<std::string, ToolDecoration> &decorations();
    /// Null for a key that no module has.
    static const ToolDecoration *decoration(const char *key);
};
