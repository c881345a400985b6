#pragma once

/// The window procedures of top-level windows on Windows, so that the title bar, the system menu
/// and the task bar go through the application's own states. Knows windows only by their native
/// handles, and includes nothing of the toolkit. Thread of the windows only.
namespace WindowProcedureHook {

enum class Command { Maximize, Minimize, Restore };

/// Told of a command in place of the window's own procedure.
using Receiver = void (*)(void *context, Command command);

/// Puts the hook before the window's procedure. Again for a window that has it: only receiver and
/// context are replaced.
void install(void *window, Receiver receiver, void *context);
/// Puts the window's own procedure back.
void deinstall(void *window);
/// Gives a window the style of a framed one that the task bar can restore: visible, clipping its
/// children, with system menu, minimise and maximise box. @return the style that it had.
int makeRestorable(void *window);
void setStyle(void *window, int style);
/// Brings a window above all others and makes it an ordinary one again; place and size stay.
void raiseAndRelease(void *window);

} // namespace WindowProcedureHook
