#pragma once

class QMenu;
class WorkstationViewer;

/// The menu that a right click on a viewer opens: tools for the active viewer, which it is by then,
/// its phases and its links. Made anew for each time; the caller shows it. The viewer may go while
/// it is open.
QMenu *makeViewerMenu(WorkstationViewer &viewer);
