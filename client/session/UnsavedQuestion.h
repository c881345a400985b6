#pragma once

#include <QString>

/// Asks the user before what is in no session file goes.
namespace UnsavedQuestion {

/// @param askToSave,askToLose the question, with %1 for what would be lost: where the user may
/// save it, and where not. Not asked when there is nothing to lose.
/// @return whether it may go: the user does not want it, or has saved all of it now.
[[nodiscard]] bool mayGo(const QString &askToSave, const QString &askToLose);

} // namespace UnsavedQuestion
