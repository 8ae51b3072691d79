#include <gtest/gtest.h>

#include "kit/LongRun.h"
#include "module/ProbeProcessWindows.h"

namespace qel::test {
namespace {

struct End {
    const char* behaviour;
    const wchar_t* way;
    DWORD exitCode;
    int timesInAFullRun;
    bool takesSeconds = false;
};

class ProcessEnd : public ::testing::TestWithParam<End> {};

TEST_P(ProcessEnd, WithDisplaysAliveHasItsExitCode) {
    if (GetParam().takesSeconds && !isLongRun()) {
        GTEST_SKIP() << "waits for seconds: in the full length only";
    }
    const int times = shortOrLong(1, GetParam().timesInAFullRun);
    for (int time = 0; time < times && !HasFailure(); ++time) {
        const Played played = play(std::wstring(L"end ") + GetParam().way);
        EXPECT_EQ(played.exitCode, GetParam().exitCode) << played.output;
        EXPECT_EQ(played.output, "");
    }
    RecordProperty("cycles", times);
}

const End kEnds[] = {
    {"ByReturn", L"by-return", 41, 20},
    {"ByExitProcess", L"by-exit-process", 42, 20},
    {"ByExit", L"by-exit", 43, 20},
    {"FromAnotherThread", L"from-another-thread", 44, 20},
    {"ByExitFromAnotherThread", L"by-exit-from-another-thread", 45, 20},
    {"FromAnotherThreadWhileFramesAreDrawn", L"from-another-thread-while-frames-are-drawn", 46, 100},
    {"ByReturnWhileAnotherThreadDraws", L"by-return-while-another-thread-draws", 47, 100},
    {"InTheMiddleOfACapture", L"in-the-middle-of-a-capture", 48, 20},
    {"AfterTheSleep", L"after-the-sleep", 49, 2, true},
};

INSTANTIATE_TEST_SUITE_P(, ProcessEnd, ::testing::ValuesIn(kEnds),
                         [](const auto& tested) { return std::string(tested.param.behaviour); });

}  // namespace
}  // namespace qel::test
