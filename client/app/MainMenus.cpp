#include "client/app/MainMenus.h"

#include "client/application/WorkstationApplication.h"
#include "framework/tools/ExActionUI.h"
#include "framework/tools/ExTool.h"

#include <QCoreApplication>
#include <QMenu>
#include <QMenuBar>

#include <algorithm>

namespace MainMenus {

namespace {

constexpr char separator[] = "separator";
constexpr char firstAfterPanels[] = "Panel.Reset";

struct MenuRow
{
    const char *title;
    std::vector<const char *> keys;
};

const std::vector<MenuRow> &menus()
{
    static const std::vector<MenuRow> rows{
        {QT_TRANSLATE_NOOP("MainMenus", "&File"),
            {"File.OpenFolder", "File.Close", "File.LockPatient", separator, "File.OpenSession",
                "File.SaveSession", separator, "File.SaveViewer", "File.SaveWindow", separator,
                "File.Quit"}},
        {QT_TRANSLATE_NOOP("MainMenus", "&Edit"),
            {"Edit.Undo", separator, "Edit.ToolBars", separator, "Edit.Settings"}},
        {QT_TRANSLATE_NOOP("MainMenus", "&View"),
            {"Layout.Menu", "View.OneUp", separator, "Plane.Axial", "Plane.Sagittal",
                "Plane.Coronal", "Plane.Original", separator, "View.Reset", "View.Invert",
                "View.FlipHorizontal", "View.FlipVertical", separator, "Phase.Previous",
                "Phase.Next", "Phase.Cine", separator, "View.ReferenceLines", "View.CornerTexts"}},
        {QT_TRANSLATE_NOOP("MainMenus", "&Link"),
            {"Link.Attach", separator, "Link.Scrolling", "Link.Zoom", "Link.Pan", "Link.Window",
                "Link.Phase", "Link.Rotation"}},
        {QT_TRANSLATE_NOOP("MainMenus", "&Window"),
            {"Window.FullScreen", "View.ShowToolBars", separator, "Panel.Studies",
                "Panel.Measurements", "Panel.Links", "Panel.Properties", "Panel.Log",
                firstAfterPanels, separator, "Window.Monitors"}},
        {QT_TRANSLATE_NOOP("MainMenus", "&Help"),
            {"Help.Manual", "Help.ShortCuts", separator, "Help.About"}},
    };
    return rows;
}

/// Other tools are offered before the windows and the help.
constexpr std::size_t placeOfTools = 4;

QStringList toStrings(const std::vector<const char *> &keys)
{
    QStringList strings;
    for (const char *key : keys) {
        strings += QString::fromLatin1(key);
    }
    return strings;
}

bool isPanel(const std::string &key)
{
    return key.rfind("Panel.", 0) == 0;
}

bool isInTable(const std::string &key)
{
    return std::any_of(menus().begin(), menus().end(), [&key](const MenuRow &row) {
        return std::find(row.keys.begin(), row.keys.end(), key) != row.keys.end();
    });
}

bool isPlaced(const std::string &key)
{
    return key.rfind("Layout.", 0) == 0 // In a menu of their own.
        || isPanel(key) || isInTable(key);
}

/// Those of plug-ins stand with the workstation's own.
QStringList withOtherPanels(QStringList keys)
{
    std::vector<std::string> all;
    ExTool::getDecorationKeyList(all, false);
    qsizetype position = keys.indexOf(QLatin1String(firstAfterPanels));
    for (const std::string &key : all) {
        if (position >= 0 && isPanel(key) && !isInTable(key) && ExTool::isMenuTool(key.c_str())) {
            keys.insert(position++, QString::fromStdString(key));
        }
    }
    return keys;
}

/// By category, with lines between the categories.
QStringList otherKeys()
{
    std::vector<std::string> all;
    ExTool::getDecorationKeyList(all, false);
    std::erase_if(all,
        [](const std::string &key) { return isPlaced(key) || !ExTool::isMenuTool(key.c_str()); });
    const auto category = [](const std::string &key) {
        return WorkstationApplication::instance().decoration(key.c_str())->category(key.c_str());
    };
    std::stable_sort(all.begin(), all.end(),
        [&](const std::string &a, const std::string &b) { return category(a) < category(b); });
    QStringList keys;
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (i > 0 && category(all[i]) != category(all[i - 1])) {
            keys += QLatin1String(separator);
        }
        keys += QString::fromStdString(all[i]);
    }
    return keys;
}

void addMenu(QMenuBar &bar, const char *title, const QStringList &keys)
{
    QMenu *const menu
        = ExActionUI::createMenu(QCoreApplication::translate("MainMenus", title), keys, &bar);
    if (menu != nullptr) {
        menu->setToolTipsVisible(true);
        menu->setSeparatorsCollapsible(true);
        bar.addMenu(menu);
    }
}

} // namespace

void build(QMenuBar &bar)
{
    for (std::size_t i = 0; i < menus().size(); ++i) {
        if (i == placeOfTools) {
            addMenu(bar, QT_TRANSLATE_NOOP("MainMenus", "&Tools"), otherKeys());
        }
        addMenu(bar, menus()[i].title, withOtherPanels(toStrings(menus()[i].keys)));
    }
}

QStringList viewerMenuKeys()
{
    return toStrings({"Plane.Axial", "Plane.Sagittal", "Plane.Coronal", "Plane.Original", separator,
        "View.OneUp", "View.Reset", separator, "View.Invert", "View.FlipHorizontal",
        "View.FlipVertical", separator, "Link.Attach", separator, "File.SaveViewer"});
}

} // namespace MainMenus
