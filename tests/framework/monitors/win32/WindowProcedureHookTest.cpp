// The window-procedure hook with real windows and real messages: a program of its own, built for
// Windows, that prints what fails and gives the number of failures as its exit code.
#include "framework/monitors/win32/WindowProcedureHook.h"

#ifndef UNICODE
#define UNICODE
#endif
#include <windows.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {

using Command = WindowProcedureHook::Command;

int failures = 0;
/// What the windows' own procedure has received, of the messages that are looked at.
std::vector<WPARAM> systemCommands;
std::wstring characters;

void check(bool right, const char *what)
{
    if (!right) {
        ++failures;
        std::printf("FAIL: %s\n", what);
    }
}

LRESULT CALLBACK ownProcedure(HWND window, UINT message, WPARAM first, LPARAM second)
{
    if (message == WM_SYSCOMMAND) {
        systemCommands.push_back(first);
        return 7;
    }
    if (message == WM_CHAR) {
        characters.push_back(static_cast<wchar_t>(first));
        return 0;
    }
    return DefWindowProcW(window, message, first, second);
}

HWND makeWindow()
{
    return CreateWindowExW(0, L"MovaraHookTest", L"test", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 20,
        300, 200, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
}

struct Log
{
    std::vector<Command> commands;
    HWND destroyed = nullptr;
};

void receive(void *context, Command command)
{
    auto *const log = static_cast<Log *>(context);
    log->commands.push_back(command);
    if (log->destroyed != nullptr) {
        DestroyWindow(log->destroyed);
    }
}

WNDPROC procedureOf(HWND window)
{
    return reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC));
}

void commandsGoToTheReceiver()
{
    const HWND window = makeWindow();
    const HWND other = makeWindow();
    Log log;
    WindowProcedureHook::install(window, receive, &log);
    WindowProcedureHook::install(window, receive, &log);
    systemCommands.clear();
    // The four low bits are the system's: a double click on the title bar sets 2.
    check(SendMessageW(window, WM_SYSCOMMAND, SC_MAXIMIZE | 2, 0) == 0, "maximise gives 0");
    check(SendMessageW(window, WM_SYSCOMMAND, SC_MINIMIZE, 0) == 0, "minimise gives 0");
    check(SendMessageW(window, WM_SYSCOMMAND, SC_RESTORE, 0) == 0, "restore gives 0");
    check(log.commands
            == std::vector<Command>{Command::Maximize, Command::Minimize, Command::Restore},
        "three commands");
    check(systemCommands.empty(), "the window's procedure sees none of them");
    check(SendMessageW(window, WM_SYSCOMMAND, SC_SCREENSAVE, 0) == 7, "others go on");
    check(SendMessageW(other, WM_SYSCOMMAND, SC_MAXIMIZE, 0) == 7, "other windows' go on");
    check(systemCommands.size() == 2, "the window's procedure sees the others");

    WindowProcedureHook::deinstall(window);
    check(procedureOf(window) == ownProcedure, "deinstalled");
    check(SendMessageW(window, WM_SYSCOMMAND, SC_MINIMIZE, 0) == 7, "deinstalled, goes on");
    check(log.commands.size() == 3, "deinstalled, not told");
    DestroyWindow(window);
    DestroyWindow(other);
}

void charactersStayWhole()
{
    const HWND window = makeWindow();
    Log log;
    WindowProcedureHook::install(window, receive, &log);
    check(IsWindowUnicode(window) != FALSE, "the window stays a wide one");
    const std::wstring text = L"\x65E5\x0416\xD55C\x00DF";
    for (const wchar_t letter : text) {
        PostMessageW(window, WM_CHAR, letter, 1);
    }
    MSG message;
    while (PeekMessageW(&message, window, 0, 0, PM_REMOVE) != 0) {
        DispatchMessageW(&message);
    }
    check(characters == text, "Japanese, Russian, Korean and German characters arrive");
    WindowProcedureHook::deinstall(window);
    DestroyWindow(window);
}

void stylesAndOrder()
{
    const HWND window = makeWindow();
    const HWND above = makeWindow();
    const LONG_PTR style = GetWindowLongPtrW(window, GWL_STYLE);
    const int saved = WindowProcedureHook::makeRestorable(window);
    check(saved == static_cast<int>(style), "the style that it had");
    // The system itself keeps top-level windows from drawing over one another.
    check((GetWindowLongPtrW(window, GWL_STYLE) & ~LONG_PTR{WS_CLIPSIBLINGS}) == 0x120B0000,
        "the style of a minimised window");
    WindowProcedureHook::setStyle(window, saved);
    check(GetWindowLongPtrW(window, GWL_STYLE) == style, "the style put back");

    RECT before;
    GetWindowRect(window, &before);
    WindowProcedureHook::raiseAndRelease(window);
    RECT after;
    GetWindowRect(window, &after);
    check(EqualRect(&before, &after) != FALSE, "place and size stay");
    check((GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_TOPMOST) == 0, "released");
    bool isBelow = false;
    for (HWND at = window; at != nullptr; at = GetWindow(at, GW_HWNDNEXT)) {
        isBelow = isBelow || at == above;
    }
    check(isBelow, "raised above the other");
    DestroyWindow(window);
    DestroyWindow(above);
}

void windowsThatGo()
{
    Log log;
    const HWND window = makeWindow();
    WindowProcedureHook::install(window, receive, &log);
    log.destroyed = window;
    check(SendMessageW(window, WM_SYSCOMMAND, SC_RESTORE, 0) == 0, "gone in its own command");
    check(log.commands.size() == 1, "told once");
    check(IsWindow(window) == FALSE, "it is gone");
}

} // namespace

int main()
{
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = ownProcedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = L"MovaraHookTest";
    if (RegisterClassW(&windowClass) == 0) {
        std::printf("FAIL: no window class\n");
        return 1;
    }
    commandsGoToTheReceiver();
    charactersStayWhole();
    stylesAndOrder();
    windowsThatGo();
    std::printf("%d failures\n", failures);
    return failures;
}
