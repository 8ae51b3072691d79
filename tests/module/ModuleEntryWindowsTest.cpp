#include <gtest/gtest.h>

#include "ProbeProcessWindows.h"
#include "kit/LongRun.h"

namespace qel::test {
namespace {

struct Scene {
    const char* behaviour;
    const wchar_t* name;
    DWORD exitCode;
    const char* output;
};

class ModuleEntryInAProcess : public ::testing::TestWithParam<Scene> {};

TEST_P(ModuleEntryInAProcess, Behaves) {
    const Played played = play(GetParam().name);
    EXPECT_EQ(played.output, GetParam().output);
    EXPECT_EQ(played.exitCode, GetParam().exitCode);
}

const Scene kScenes[] = {
    {"KeepsTheLibraryWhileItsThreadSleepsAndLetsItGoThen", L"load-and-unload", 21,
     "still loaded after FreeLibrary: 1\nleft after its sleep: 1\nthreads less: 1\n"},
    {"RefusesTheLoadWhenThePathOfTheProgramCannotBeHad", L"load-without-path", 23,
     // Said at the attach, and again at the detach that follows a refusal.
     "GetModuleFileName failed (5)\nGetModuleFileName failed (5)\nloaded: 0, error 1114, threads more: "
     "0\nloaded later: 1\n"},
    {"EndsTheProcessWithZeroWhenNoThreadCanBeStarted", L"load-without-thread", 0, "loading\n"},
    {"StartsNoThreadWhenItCannotHoldTheLibrary", L"load-without-hold", 28,
     "loaded: 1\nthreads started: 0\nleft the process at once: 1\n"},
    {"StartsOneThreadThatSleepsFor5500Milliseconds", L"watch-thread", 25,
     "thread with stack 0 and argument 0000000000000000\nthreads started: 1\nleft the process: 1\n"
     "slept for 5500 ms\n"},
    {"LetsTheProcessEndWithDisplaysAlive", L"end-with-displays", 26, "alive\n"},
    {"LetsTheProcessEndWhileThreadsAskForTheSymbol", L"end-while-threads-ask", 27, "asking: 1\n"},
};

TEST(ModuleEntry, LeavesNothingBehindWhenLoadedAndUnloadedAgainAndAgain) {
    const std::wstring rounds = std::to_wstring(shortOrLong(8, 2'000));
#if defined(__MINGW32__)
    // The second is the load entry alone on the universal C runtime, whose threads hold their library
    // themselves.
    const wchar_t* const libraries[] = {L"QelDisplay64t.dll", L"qel_entry_ucrt.dll"};
#else
    const wchar_t* const libraries[] = {L"QelDisplay64t.dll"};
#endif
    for (const wchar_t* const library : libraries) {
        constexpr DWORD kLongest = 400'000;
        const Played played = play(L"reload " + std::wstring(library) + L" " + rounds, kLongest);
        EXPECT_EQ(played.output, "failures: 0\nhandles more: 0\n");
        EXPECT_EQ(played.exitCode, 22U);
    }
}

INSTANTIATE_TEST_SUITE_P(, ModuleEntryInAProcess, ::testing::ValuesIn(kScenes),
                         [](const auto& tested) { return std::string(tested.param.behaviour); });

}  // namespace
}  // namespace qel::test
