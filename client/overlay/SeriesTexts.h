#pragma once

#include <QStringList>

class WorkstationViewer;

/// The lines of text that all viewers show of their series, the outermost first.
namespace SeriesTexts {

/// Patient's name, identifier, birth date.
QStringList patient(const WorkstationViewer &viewer);
/// Study and series. @param view the name of what the viewer shows of it.
QStringList study(const WorkstationViewer &viewer, const QString &view);
/// The phase shown; empty when the series has only one.
QString phase(const WorkstationViewer &viewer);
/// The tool that the user has chosen for the left button, where it is of use on the viewer and that
/// is the active one; else empty.
QString tool(const WorkstationViewer &viewer);
/// What is odd about the images, and whether they are a quick picture only.
QStringList warnings(const WorkstationViewer &viewer);
/// What to say where there is no image; empty when there is one.
QString emptyState(const WorkstationViewer &viewer);

} // namespace SeriesTexts
