#include "framework/monitors/win32/WindowProcedureHook.h"

// Wide calls throughout: a window that is subclassed by an ANSI call gets its characters converted
// to the code page of the system, and loses what is not in it.
#ifndef UNICODE
#define UNICODE
#endif
#include <windows.h>

#include <map>

namespace {

struct Target
{
    WindowProcedureHook::Receiver receiver = nullptr;
    void *context = nullptr;
};

/// One value for all windows: they are of one class and have one procedure.
WNDPROC previousProcedure = nullptr;

std::map<HWND, Target> &targets()
{
    static std::map<HWND, Target> map;
    return map;
}

WNDPROC procedureOf(HWND window)
{
    return reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC));
}

void setProcedure(HWND window, WNDPROC procedure)
{
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
}

/// Whether a system command is one that the receiver carries out.
bool commandFrom(WPARAM parameter, WindowProcedureHook::Command &command)
{
    // The four low bits are the system's own.
    switch (parameter & 0xFFF0U) {
    case SC_MAXIMIZE:
        command = WindowProcedureHook::Command::Maximize;
        return true;
    case SC_MINIMIZE:
        command = WindowProcedureHook::Command::Minimize;
        return true;
    case SC_RESTORE:
        command = WindowProcedureHook::Command::Restore;
        return true;
    default:
        return false;
    }
}

LRESULT CALLBACK hook(HWND window, UINT message, WPARAM first, LPARAM second)
{
    const auto found = targets().find(window);
    WindowProcedureHook::Command command{};
    if (message == WM_SYSCOMMAND && found != targets().end() && commandFrom(first, command)) {
        // Copied: the command makes a new native window, which changes the map.
        const Target target = found->second;
        target.receiver(target.context, command);
        return 0;
    }
    const WNDPROC previous = previousProcedure;
    if (message == WM_NCDESTROY && found != targets().end()) {
        // The handle may be given to another window.
        targets().erase(found);
    }
    return CallWindowProcW(previous, window, message, first, second);
}

} // namespace

void WindowProcedureHook::install(void *window, Receiver receiver, void *context)
{
    const auto handle = static_cast<HWND>(window);
    const WNDPROC current = procedureOf(handle);
    if (current != hook) {
        previousProcedure = current;
        setProcedure(handle, hook);
    }
    targets()[handle] = {receiver, context};
}

void WindowProcedureHook::deinstall(void *window)
{
    const auto handle = static_cast<HWND>(window);
    targets().erase(handle);
    if (previousProcedure != nullptr && procedureOf(handle) != previousProcedure) {
        setProcedure(handle, previousProcedure);
    }
}

int WindowProcedureHook::makeRestorable(void *window)
{
    const auto handle = static_cast<HWND>(window);
    const auto style = static_cast<int>(GetWindowLongPtrW(handle, GWL_STYLE));
    setStyle(window,
        static_cast<int>(
            WS_VISIBLE | WS_CLIPCHILDREN | WS_SYSMENU | WS_MINIMIZEBOX | WS_MAXIMIZEBOX));
    return style;
}

void WindowProcedureHook::setStyle(void *window, int style)
{
    SetWindowLongPtrW(static_cast<HWND>(window), GWL_STYLE, static_cast<LONG_PTR>(style));
}

void WindowProcedureHook::raiseAndRelease(void *window)
{
    const auto handle = static_cast<HWND>(window);
    constexpr UINT stays = SWP_NOMOVE | SWP_NOSIZE;
    SetWindowPos(handle, HWND_TOPMOST, 0, 0, 0, 0, stays);
    SetWindowPos(handle, HWND_NOTOPMOST, 0, 0, 0, 0, stays);
}
