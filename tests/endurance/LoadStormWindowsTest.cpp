#include <cstdio>

#include "Endurance.h"
#include "kit/LongRun.h"
#include "module/ProbeProcessWindows.h"

namespace qel::test {
namespace {

/// The numbers that the storm of the probe prints.
struct Said {
    int loads = 0;
    int reloads = 0;
    int failures = 0;
    int handlesBefore = 0;
    int handlesAfter = 0;
    long blocksBefore = 0;
    long blocksAfter = 0;
};

bool understood(const std::string& line, Said& said) {
    return std::sscanf(line.c_str(), "loads %d, reloads %d, failures %d, handles %d to %d, blocks %ld to %ld",
                       &said.loads, &said.reloads, &said.failures, &said.handlesBefore, &said.handlesAfter,
                       &said.blocksBefore, &said.blocksAfter) == 7;
}

TEST(LoadStorm, OfCopiesOfTheLibraryThatComeAndGoAtRandomMomentsLeavesNothingBehind) {
    constexpr DWORD kExitCode = 28;
    constexpr DWORD kLongest = 400'000;
    const int cycles = shortOrLong(48, 2'000);
    const int copies = shortOrLong(12, 64);
    // The library's thread sleeps for seconds: shortened every day, whole in the full length.
    const int hurry = shortOrLong(10, 1);
    const Chance chance;
    const Stopwatch watch;
    const Played played = play(L"load-storm " + std::to_wstring(cycles) + L" " + std::to_wstring(copies) +
                                   L" " + std::to_wstring(enduranceSeed()) + L" " + std::to_wstring(hurry),
                               kLongest);
    EXPECT_EQ(played.exitCode, kExitCode) << played.output;
    Said said;
    ASSERT_TRUE(understood(played.output, said)) << played.output;
    EXPECT_EQ(said.loads, cycles);
    EXPECT_GT(said.reloads, cycles / 10);
    EXPECT_LT(said.reloads, cycles * 9 / 10);
    EXPECT_EQ(said.failures, 0);
    EXPECT_GT(said.handlesBefore, 0);
    EXPECT_LE(said.handlesAfter, said.handlesBefore + 2);
    EXPECT_LE(said.blocksAfter, said.blocksBefore + 40 + cycles / 20) << played.output;
    RecordProperty("cycles", said.loads);
    RecordProperty("reloads", said.reloads);
    RecordProperty("handles_before", said.handlesBefore);
    RecordProperty("handles_after", said.handlesAfter);
    RecordProperty("blocks_before", static_cast<int>(said.blocksBefore));
    RecordProperty("blocks_after", static_cast<int>(said.blocksAfter));
    RecordProperty("seconds", static_cast<int>(watch.seconds()));
}

}  // namespace
}  // namespace qel::test
