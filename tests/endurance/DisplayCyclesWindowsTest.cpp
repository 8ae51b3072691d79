#include "Endurance.h"
#include "display/CaptureFixture.h"
#include "kit/GuardedHeap.h"

namespace qel::test {
namespace {

/// A display in a hidden window, from its making to its end: a frame, and a bitmap of it in a file.
void liveOnce(const TestWindow& window, const CaptureFile& file) {
    const HeldDisplay display;
    display.attach(window);
    display->beginFrame(0);
    display->beginDraw();
    display->updateView();
    getPubSymbol()->drawCross({0.0, 0.0, 0.0}, 5.0, 1.0F, {1.0F, 1.0F, 0.0F}, false, false);
    display->printText("%d", 7);
    display->endDraw();
    display->finishFrame();
    Enve2d extent(0.0, 0.0, 16.0, 16.0);
    ASSERT_EQ(display->beginCapture(16, 16, &extent, file.name()), 0);
    getPubSymbol()->drawCross({0.0, 0.0, 0.0}, 5.0, 1.0F, {1.0F, 1.0F, 0.0F}, false, false);
    ASSERT_EQ(display->saveBitmap(), 0);
}

TEST(DisplayCycles, OfAttachDrawCaptureAndReleaseLeaveHandlesAndMemoryFlat) {
    const int cycles = shortOrLong(12, 10'000);
    const TestWindow window(16, 16);
    const CaptureFile file;
    censusAfterFirstUse();
    // What the system and its driver keep of the first ones.
    for (int warm = 0; warm < 10; ++warm) {
        liveOnce(window, file);
    }
    const HeldBefore before;
    for (int cycle = 0; cycle < cycles && !::testing::Test::HasFailure(); ++cycle) {
        liveOnce(window, file);
    }
    before.expectStillHeld(cycles);
    EXPECT_EQ(file.size(), kBitmapHeader + std::uint64_t{16} * 16 * 3);
}

TEST(DisplayCycles, LeaveNoBlockOfTheModulesOwn) {
    const int cycles = shortOrLong(12, 400);
    const TestWindow window(16, 16);
    const CaptureFile file;
    const GuardedHeap heap;
    liveOnce(window, file);
    const std::size_t blocks = GuardedHeap::liveBlocks();
    const std::size_t bytes = GuardedHeap::liveBytes();
    for (int cycle = 0; cycle < cycles; ++cycle) {
        liveOnce(window, file);
    }
    EXPECT_GT(heap.servedBlocks(), static_cast<std::size_t>(cycles));
    const std::size_t blocksAfter = GuardedHeap::liveBlocks();
    EXPECT_EQ(blocksAfter, blocks);
    EXPECT_EQ(GuardedHeap::liveBytes(), bytes);
    RecordProperty("cycles", cycles);
    RecordProperty("blocks_before", std::to_string(blocks));
    RecordProperty("blocks_after", std::to_string(blocksAfter));
}

}  // namespace
}  // namespace qel::test
