#pragma once

#include <QString>

/// Lets the user choose the name of a file that is to be written.
namespace NewFileDialog {

/// Asks over the application's dialog parent, also whether a file that is there may be replaced.
/// @param proposed folder and name. @param suffix without its dot, for names without any dot.
/// @return empty when the user has thought better of it.
[[nodiscard]] QString ask(
    const QString &title, const QString &proposed, const QString &filter, const QString &suffix);

} // namespace NewFileDialog
