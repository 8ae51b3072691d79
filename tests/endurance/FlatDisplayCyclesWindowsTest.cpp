#include "Endurance.h"
#include "gdi/GdiFixtureWindows.h"
#include "kit/GuardedHeap.h"

namespace qel::test {
namespace {

/// A display of GDI from its making to its end.
void liveFlatOnce(const TestWindow& window) {
    const HeldGdiDisplay display;
    display->attachWindow(number32(window.hwnd()));
    display->setFullExtent({0.0, 0.0, 16.0, 16.0});
    display->zoomToFull();
    display->beginDraw();
    display->drawRect({1.0, 1.0, 9.0, 9.0}, false);
    display->setPenWidth(2);
    display->drawLineSeg({{0.0, 0.0, 0.0}, {16.0, 16.0, 0.0}});
    display->endDraw();
}

TEST(FlatDisplayCycles, OfAttachDrawAndReleaseLeaveHandlesAndMemoryFlat) {
    const int cycles = shortOrLong(500, 10'000);
    const TestWindow window(16, 16);
    liveFlatOnce(window);
    const HeldBefore before;
    for (int cycle = 0; cycle < cycles; ++cycle) {
        liveFlatOnce(window);
    }
    before.expectStillHeld(cycles);
}

TEST(FlatDisplayCycles, LeaveNoBlockOfTheModulesOwn) {
    const int cycles = shortOrLong(100, 1'000);
    const TestWindow window(16, 16);
    const GuardedHeap heap;
    liveFlatOnce(window);
    const std::size_t blocks = GuardedHeap::liveBlocks();
    for (int cycle = 0; cycle < cycles; ++cycle) {
        liveFlatOnce(window);
    }
    EXPECT_GE(heap.servedBlocks(), static_cast<std::size_t>(cycles));
    EXPECT_EQ(GuardedHeap::liveBlocks(), blocks);
    RecordProperty("cycles", cycles);
}

}  // namespace
}  // namespace qel::test
