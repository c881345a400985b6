#pragma once

/// What a tool is called and looks like, in English; its translations are looked up in the context
/// "Tools" when they are shown, so mark the texts with QT_TRANSLATE_NOOP("Tools", ...). A plain
/// value; texts are literals that live for ever, and any but key and text may be null.
struct ToolDecoration
{
    const char *key = nullptr; ///< the tool's name, e.g. "View.Invert"
    const char *category = nullptr; ///< what it is listed under, e.g. "View"
    const char *text = nullptr; ///< in menus; an ampersand marks its letter
    const char *textWhenActive = nullptr; ///< instead of text while the tool is active
    const char *toolTip = nullptr; ///< one line
    const char *description = nullptr; ///< for the help, one or two sentences more
    /// One of the client's icons by its name; or the resource file of a drawing, e.g.
    /// ":/mine/cross.svg".
    const char *icon = nullptr;
    const char *shortCut = nullptr; ///< in text form, e.g. "Ctrl+O"
};
