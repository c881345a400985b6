#pragma once

#include <QStringList>

/// The workstation's plug-ins: those installed beside it, in lib/movara/plugins, and those in the
/// folders that the environment variable MOVARA_PLUGINS names, divided by colons.
namespace Plugins {

/// Loads them; to be called before the application object is made. @return a line for each that was
/// refused, for the user; these are in the log, too.
QStringList load();
/// Tells the user about the refused ones, in a window that waits for nobody; nothing for an empty
/// list.
void tell(const QStringList &refused);

} // namespace Plugins
