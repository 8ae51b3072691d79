// qel_watch PROGRAM: starts a program with a window, waits until something is drawn in the middle of the
// window, closes the window and tells how the program ended. Exit code 0 if it drew and ended with 0.

#include <windows.h>

#include <cstdio>
#include <string>

namespace {

constexpr DWORD kLongestWait = 20000;
constexpr DWORD kPause = 50;

struct Wanted {
    DWORD process = 0;
    HWND window = nullptr;
};

BOOL CALLBACK keepWindowOf(HWND window, LPARAM parameter) {
    Wanted& wanted = *reinterpret_cast<Wanted*>(parameter);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != wanted.process || IsWindowVisible(window) == FALSE) {
        return TRUE;
    }
    wanted.window = window;
    return FALSE;
}

HWND windowOf(DWORD process) {
    Wanted wanted{process, nullptr};
    EnumWindows(&keepWindowOf, reinterpret_cast<LPARAM>(&wanted));
    return wanted.window;
}

/// What the screen shows in the middle of the window; black before anything is drawn, and outside the screen.
COLORREF middleOf(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    POINT middle{area.right / 2, area.bottom / 2};
    ClientToScreen(window, &middle);
    HDC const screen = GetDC(nullptr);
    const COLORREF color = GetPixel(screen, middle.x, middle.y);
    ReleaseDC(nullptr, screen);
    return color == CLR_INVALID ? 0 : color;
}

/// The window once its middle is neither black nor white, the two colours of windows in which nothing is
/// drawn; null if that never happens.
HWND waitForDrawing(DWORD process) {
    constexpr COLORREF kWhite = RGB(255, 255, 255);
    const DWORD start = GetTickCount();
    while (GetTickCount() - start < kLongestWait) {
        HWND const window = windowOf(process);
        const COLORREF color = window != nullptr ? middleOf(window) : 0;
        if (color != 0 && color != kWhite) {
            std::printf("middle %06lx\n", color);
            return window;
        }
        Sleep(kPause);
    }
    return nullptr;
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::fprintf(stderr, "qel_watch PROGRAM\n");
        return 2;
    }
    std::string command = '"' + std::string(arguments[1]) + '"';
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    if (CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                       &started) == FALSE) {
        std::printf("does not start: error %lu\n", GetLastError());
        return 1;
    }
    HWND const window = waitForDrawing(started.dwProcessId);
    if (window != nullptr) {
        PostMessageW(window, WM_CLOSE, 0, 0);
    }
    DWORD code = STILL_ACTIVE;
    if (WaitForSingleObject(started.hProcess, window != nullptr ? kLongestWait : 0) == WAIT_TIMEOUT) {
        TerminateProcess(started.hProcess, 1);
    } else {
        GetExitCodeProcess(started.hProcess, &code);
    }
    std::printf("drawn %d, exit code %ld\n", window != nullptr ? 1 : 0, static_cast<long>(code));
    return window != nullptr && code == 0 ? 0 : 1;
}
