#include <gtest/gtest.h>

#include <QString>
#include <filesystem>
#include <new>

#include "IQelTrackBall.h"
#include "display/DisplayFixtureWindows.h"
#include "host/HostGeometries.h"
#include "kit/GuardedHeap.h"
#include "kit/LongRun.h"

namespace qel::test {
namespace {

const QString& captureName() {
    static const QString name =
        QString::fromStdWString((std::filesystem::temp_directory_path() / "qel-no-memory.bmp").wstring());
    return name;
}

/// What a host draws; made before the memory runs out.
struct HostsModel {
    ref_ptr<HostCurve> curve{new HostCurve({{-10.0, -10.0, 0.0}, {10.0, 5.0, 3.0}, {0.0, 10.0, -3.0}})};
    ref_ptr<HostBall> ball{new HostBall({0.0, 0.0, 0.0}, 5.0)};
};

void drawFrame(IQelDisplay& display, const HostsModel& model) {
    display.beginFrame(0);
    display.beginDraw();
    display.updateView();
    if (const ref_ptr<IQelSymbol> symbol = newQelSymbol()) {
        symbol->drawGeometry(model.curve.get());
        symbol->drawGeometry(model.ball.get());
        symbol->drawCross({1.0, 2.0, 3.0}, 2.0, 1.0F, {1.0F, 0.0F, 0.0F}, false, true);
    }
    display.printText("%d %s", 7, "seven");
    display.endDraw();
    display.finishFrame();
}

void useCamera(IQelTrackBall& camera) {
    camera.setExtent({-10.0, 10.0, -10.0, 10.0, -10.0, 10.0}, true);
    for (const std::int32_t button : {2, 1, 3}) {
        camera.onButtonDown(button, 20, 20);
        camera.onMouseMove(40, 30);
        camera.drawTrackBall();
        camera.onButtonUp();
    }
    const double motion[] = {1.0, 2.0, 3.0, 4.0, 5.0, 6.0};
    camera.applyMotion(motion);
    camera.setStandardView(6);
    camera.zoomToModel(true);
    camera.pickModelPnt(30.0, 30.0);
    camera.drawLabel(0.0, 0.0, 0.0, 1.0, 1.0, "%s", "label");
}

/// All that a host does in a day, in short.
void sessionOf(IQelDisplay& display, const TestWindow& window, const HostsModel& model) {
    display.attachWindow(number32(window.hwnd()), false);
    display.setViewSize(window.width(), window.height());
    useCamera(*display.getTrackBall());
    drawFrame(display, model);
    display.restoreCache();
    display.endFrame();
    Enve2d extent(0.0, 0.0, 100.0, 80.0);
    if (display.beginCapture(20, 10, &extent, captureName()) == 0) {
        drawFrame(display, model);
        display.saveBitmap();
    }
}

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
    const std::size_t step = shortOrLong<std::size_t>(allocations / 60 + 1, 1);
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
