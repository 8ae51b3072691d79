#include "ProbeProcessWindows.h"

namespace qel::test {

namespace {

std::wstring probe() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::wstring program(path);
    return program.substr(0, program.find_last_of(L"\\/") + 1) + L"qel_load_probe.exe";
}

/// What lies in the pipe. Does not wait for its end: services that the process started may hold the other
/// side open.
std::string linesIn(HANDLE pipe) {
    DWORD count = 0;
    PeekNamedPipe(pipe, nullptr, 0, nullptr, &count, nullptr);
    std::string text(count, '\0');
    if (count > 0) {
        ReadFile(pipe, text.data(), count, &count, nullptr);
    }
    // The C runtime ends the lines of a text stream with two characters.
    std::erase(text, '\r');
    return text;
}

/// Starts the probe. A busy system may refuse a process for a moment, which says nothing about the module.
BOOL start(std::wstring command, STARTUPINFOW& startup, PROCESS_INFORMATION& process) {
    constexpr int kAttempts = 5;
    constexpr DWORD kMillisecondsBetween = 200;
    BOOL started = FALSE;
    for (int attempt = 0; attempt < kAttempts && started == FALSE; ++attempt) {
        Sleep(attempt == 0 ? 0 : kMillisecondsBetween);
        started = CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                                 &startup, &process);
    }
    return started;
}

}  // namespace

Played play(const std::wstring& scene, DWORD longest) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    HANDLE reading = nullptr;
    HANDLE writing = nullptr;
    constexpr DWORD kMoreThanAnySceneSays = 65536;
    CreatePipe(&reading, &writing, &inherited, kMoreThanAnySceneSays);
    SetHandleInformation(reading, HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = writing;
    startup.hStdError = writing;
    PROCESS_INFORMATION process{};
    const BOOL started = start(L"\"" + probe() + L"\" " + scene, startup, process);
    const DWORD error = GetLastError();
    CloseHandle(writing);
    Played result;
    if (started == FALSE) {
        result.output = "the probe did not start: error " + std::to_string(error);
    } else {
        if (WaitForSingleObject(process.hProcess, longest) != WAIT_OBJECT_0) {
            TerminateProcess(process.hProcess, STILL_ACTIVE);
        }
        result.output = linesIn(reading);
        GetExitCodeProcess(process.hProcess, &result.exitCode);
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    }
    CloseHandle(reading);
    return result;
}

}  // namespace qel::test
