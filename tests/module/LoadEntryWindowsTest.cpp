#include <gtest/gtest.h>
#include <windows.h>

#include <string>

namespace qel::test {
namespace {

struct Played {
    DWORD exitCode = 0;
    std::string output;
};

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

/// Runs a scene of the probe in a process of its own; 259 (still active) if it does not end.
Played play(const wchar_t* scene) {
    constexpr DWORD kLongest = 60000;
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
    std::wstring command = L"\"" + probe() + L"\" " + scene;
    const BOOL started = CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                                        &startup, &process);
    CloseHandle(writing);
    Played result;
    if (started == FALSE) {
        result.output = "the probe did not start";
    } else {
        if (WaitForSingleObject(process.hProcess, kLongest) != WAIT_OBJECT_0) {
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

struct Scene {
    const char* behaviour;
    const wchar_t* name;
    DWORD exitCode;
    const char* output;
};

class LoadEntryInAProcess : public ::testing::TestWithParam<Scene> {};

TEST_P(LoadEntryInAProcess, Behaves) {
    const Played played = play(GetParam().name);
    EXPECT_EQ(played.output, GetParam().output);
    EXPECT_EQ(played.exitCode, GetParam().exitCode);
}

const Scene kScenes[] = {
    {"KeepsTheLibraryWhileItsThreadSleepsAndLetsItGoThen", L"load-and-unload", 21,
     "still loaded after FreeLibrary: 1\nleft after its sleep: 1\nthreads less: 1\n"},
    {"LeavesNothingBehindWhenLoadedAndUnloadedAgainAndAgain", L"reload", 22,
     "failures: 0\nhandles more: 0\n"},
    {"RefusesTheLoadWhenThePathOfTheProgramCannotBeHad", L"load-without-path", 23,
     // Said at the attach, and again at the detach that follows a refusal.
     "GetModuleFileName failed (5)\nGetModuleFileName failed (5)\nloaded: 0, error 1114, threads more: "
     "0\nloaded later: 1\n"},
    {"EndsTheProcessWithZeroWhenNoThreadCanBeStarted", L"load-without-thread", 0, "loading\n"},
    {"StartsOneThreadThatSleepsFor5500Milliseconds", L"watch-thread", 25,
     "thread with stack 0 and argument 0000000000000000\nthreads started: 1\nleft the process: 1\n"
     "slept for 5500 ms\n"},
    {"LetsTheProcessEndWithDisplaysAlive", L"end-with-displays", 26, "alive\n"},
    {"LetsTheProcessEndWhileThreadsAskForTheSymbol", L"end-while-threads-ask", 27, "asking: 1\n"},
};

INSTANTIATE_TEST_SUITE_P(, LoadEntryInAProcess, ::testing::ValuesIn(kScenes),
                         [](const auto& tested) { return std::string(tested.param.behaviour); });

}  // namespace
}  // namespace qel::test
