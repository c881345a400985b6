#pragma once

class QMenu;
class ViewerLayouts;
class WorkstationViewer;

/// The menu that a right click on a viewer opens. Made anew for each time; the caller shows it.
/// @param layouts must outlive the menu; the viewer may go while it is open.
QMenu *makeViewerMenu(WorkstationViewer &viewer, ViewerLayouts &layouts);
