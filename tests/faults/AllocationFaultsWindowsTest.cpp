#include <gtest/gtest.h>

#include <new>

#include "HostSessionWindows.h"
#include "kit/GuardedHeap.h"
#include "kit/LongRun.h"

namespace qel::test {
namespace {

/// True if the session came to its end, or found no memory; the display goes in either case.
bool wholeSession(const TestWindow& window, const HostsModel& model) {
    IQelDisplay* display = nullptr;
    try {
        display = newScreenDisplay();
        sessionOf(*display, window, model);
        display->Release();
        return true;
    } catch (const std::bad_alloc&) {
        if (display != nullptr) {
            display->Release();
        }
        return false;
    }
}

TEST(AllocationFaults, OfEachAllocationOfASessionEndInAnExceptionOrARefusalAndLeaveNothingBehind) {
    censusAfterFirstUse();
    const TestWindow window(100, 80);
    const HostsModel model;
    GuardedHeap heap;
    // What is made once and kept: names, the first context's tables, what the first exception of a thread
    // takes.
    ASSERT_TRUE(wholeSession(window, model));
    heap.refuse(1);
    ASSERT_FALSE(wholeSession(window, model));
    heap.refuse(0);
    const std::size_t servedBefore = heap.servedBlocks();
    ASSERT_TRUE(wholeSession(window, model));
    const std::size_t allocations = heap.servedBlocks() - servedBefore;
    // The display and its camera, their copies of a frame, a symbol for each frame, a capture and its file.
    ASSERT_GT(allocations, 10U);
    const int handles = Census::now().gdiHandles;
    // The full form tries each of them, the short one some of every kind.
    const std::size_t step = shortOrLong<std::size_t>(allocations / 15 + 1, 1);
    std::size_t ended = 0;
    std::size_t faults = 0;
    for (std::size_t nth = 1; nth <= allocations; nth += step) {
        // A table of the test's own may grow once in a while; what is lost is lost each time.
        const auto losesMemory = [&] {
            const std::size_t before = GuardedHeap::liveBlocks();
            heap.refuse(nth);
            ++faults;
            ended += wholeSession(window, model) ? 0U : 1U;
            EXPECT_TRUE(heap.hasRefused()) << nth;
            heap.refuse(0);
            return GuardedHeap::liveBlocks() > before;
        };
        ASSERT_FALSE(losesMemory() && losesMemory()) << nth << " of " << allocations;
        ASSERT_EQ(Census::now().gdiHandles, handles) << nth << " of " << allocations;
        // Nothing of the failure is left in the process: the next display works.
        ASSERT_TRUE(wholeSession(window, model)) << nth;
    }
    RecordProperty("allocations", static_cast<int>(allocations));
    RecordProperty("faults", static_cast<int>(faults));
    RecordProperty("sessions_ended_by_an_exception", static_cast<int>(ended));
    RecordProperty("handles_before", handles);
    RecordProperty("handles_after", Census::now().gdiHandles);
    EXPECT_GT(ended, 0U);
}

TEST(AllocationFaults, InTheMiddleOfAFrameLeaveADisplayThatDrawsTheNextOne) {
    const TestWindow window(100, 80);
    const HostsModel model;
    HeldDisplay display;
    display.attach(window);
    GuardedHeap heap;
    drawFrame(*display, model);
    int faults = 0;
    for (int size = 60; size < 160; size += 20) {
        // A view that grows takes new memory for its copies: first the depth's, then the colour's, then the
        // camera's.
        for (std::size_t nth = 1; nth <= 4; ++nth) {
            display->setViewSize(size, size + static_cast<int>(nth));
            heap.refuse(nth);
            try {
                drawFrame(*display, model);
            } catch (const std::bad_alloc&) {
                EXPECT_TRUE(heap.hasRefused());
            }
            faults += heap.hasRefused() ? 1 : 0;
            heap.refuse(0);
            drawFrame(*display, model);
            EXPECT_EQ(display->restoreCache(), 1);
            EXPECT_EQ(display->endDraw(), 0);
        }
    }
    RecordProperty("faults", faults);
    EXPECT_GT(faults, 0);
}

}  // namespace
}  // namespace qel::test
