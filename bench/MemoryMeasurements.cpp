#include "GuardedHeap.h"
#include "QelDisplay64t.h"
#include "Quantities.h"
#include "TestWindow.h"

/// Memory that the module allocates for an attached display, without OpenGL's own.

namespace qel::bench {

namespace {

constexpr int kWidth = 1920;
constexpr int kHeight = 1080;

/// Bytes that the module holds after a display was attached and has finished a frame.
double bytesOfADisplay() {
    const test::TestWindow window(kWidth, kHeight);
    const test::GuardedHeap counted;
    const std::size_t before = test::GuardedHeap::liveBytes();
    ref_ptr<IQelDisplay> display = adopt(newScreenDisplay());
    display->attachWindow(static_cast<std::int32_t>(window.hwnd()), false);
    display->setViewSize(kWidth, kHeight);
    display->beginFrame(0);
    display->beginDraw();
    display->updateView();
    display->endDraw();
    display->finishFrame();
    const std::size_t after = test::GuardedHeap::liveBytes();
    display.reset();
    return static_cast<double>(after - before);
}

Quantity bytesBeside() {
    constexpr double kCopies = kBytesOfAPixel * kWidth * kHeight;
    return {"memory of an attached display at 1920 x 1080, besides 24 bytes per pixel", "bytes",
            bytesOfADisplay() - kCopies, kBytesOfADisplay};
}

}  // namespace

void addMemoryMeasurements(Measurements& all) {
    all.push_back({"memory: bytes besides the copies", bytesBeside});
}

}  // namespace qel::bench
