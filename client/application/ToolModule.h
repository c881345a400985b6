#pragma once

#include "framework/tools/ExTool.h"

#include <map>
#include <string>

/// What a tool is called and looks like, in English; its translations are looked up in the context
/// "Tools" when they are shown, so mark the texts with QT_TRANSLATE_NOOP("Tools", ...). A plain
/// value; texts are literals that live for ever, and any but key and text may be null.
struct ToolDecoration
{
    const char *key; ///< the tool's name, e.g. "View.Invert"
    const char *category; ///< what it is listed under, e.g. "View"
    const char *text; ///< in menus; an ampersand marks its letter
    const char *textWhenActive = nullptr; ///< instead of text while the tool is active
    const char *toolTip; ///< one line
    const char *description = nullptr; ///< for the help, one or two sentences more
    const char *icon; ///< file of client/icons without its ending
    const char *shortCut = nullptr; ///< in text form, e.g. "Ctrl+O"
};

/// Makes a tool known, as a static object beside its class: decoration, factory, and, if there is
/// anything to be done at start-up, a callback that runs once the application object is there.
class ToolModule
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
