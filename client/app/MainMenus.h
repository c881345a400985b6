#pragma once

#include <QStringList>

class QMenuBar;

/// The workstation's menus, made of the actions of tools. Tools that the user may not use, and
/// menus without any other, are left out.
namespace MainMenus {

/// Fills a menu bar. Menu tools that no menu names come together in the menu "Tools".
void build(QMenuBar &bar);
/// The tools of the menu that a viewer opens by a right click.
QStringList viewerMenuKeys();

} // namespace MainMenus
