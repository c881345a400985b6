#pragma once

#include <string>
#include <vector>

class QMenu;
class WorkstationViewer;

/// What can be done with viewers that are linked, or could be, in one way.
namespace LinkMenu {

/// @param type of the viewer database; must outlive the menu. @param chosen at least one; those
/// that are gone when an entry is chosen are left out.
void fill(QMenu &menu, const std::string &type, const std::vector<WorkstationViewer *> &chosen);

} // namespace LinkMenu
