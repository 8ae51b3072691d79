#include "Endurance.h"
#include "IQelTrackBall.h"
#include "display/DisplayFixtureWindows.h"
#include "host/HostGeometries.h"
#include "kit/Picture.h"

namespace qel::test {
namespace {

/// A display in a small window and what a host draws in it.
class Frames : public ::testing::Test {
  protected:
    static constexpr int kSide = 16;

    Frames() {
        display.attach(window);
        display->getTrackBall()->setExtent({-10.0, 10.0, -10.0, 10.0, -10.0, 10.0}, true);
    }

    /// One frame, ended in one of the two ways; the camera moves a little in each.
    void drawFrame(int number) {
        IQelTrackBall& camera = *display->getTrackBall();
        display->beginFrame(0);
        display->beginDraw();
        camera.onButtonDown(DragRotate, 4, 4);
        camera.onMouseMove(4 + number % 7, 5);
        camera.updateView();
        symbol->drawGeometry(curve.get());
        symbol->drawPoint(1.0, 2.0, 3.0, 2.0F, {1.0F, 0.0F, 0.0F}, false, true);
        symbol->drawBox({-5.0, 5.0, -5.0, 5.0, -5.0, 5.0}, 1.0, {0.0F, 1.0F, 0.0F}, false, true);
        glRasterPos3d(0.0, 0.0, 0.0);
        display->printText("%d", number % 10);
        if (number % 2 == 0) {
            display->endFrame();
            camera.onButtonUp();
        } else {
            display->endDraw();
            display->finishFrame();
            camera.onButtonUp();
            display->restoreCache();
            display->endDraw();
        }
    }

    const TestWindow window{kSide, kSide};
    const HeldDisplay display;
    const ref_ptr<IQelSymbol> symbol{newQelSymbol()};
    const ref_ptr<HostCurve> curve{new HostCurve({{-10.0, -10.0, 0.0}, {10.0, 5.0, 3.0}, {0.0, 10.0, -3.0}})};
};

TEST_F(Frames, LeaveHandlesAndMemoryFlatAndThePictureAsItWas) {
    const int frames = shortOrLong(800, 1'000'000);
    // The camera turns a little further in each round of seven frames: pictures are compared from the front.
    const auto frontView = [this] {
        display->getTrackBall()->setStandardView(ViewTop);
        display->getTrackBall()->zoomToModel(true);
        display->beginFrame(0);
        display->updateView();
        symbol->drawGeometry(curve.get());
        return Picture::ofFrame();
    };
    for (int warm = 0; warm < 500; ++warm) {
        drawFrame(warm);
    }
    const Picture first = frontView();
    const HeldBefore before;
    const Stopwatch watch;
    for (int number = 0; number < frames; ++number) {
        drawFrame(number);
    }
    RecordProperty("frames_per_second", static_cast<int>(frames / watch.seconds()));
    before.expectStillHeld(frames);
    EXPECT_EQ(pendingError(), static_cast<GLenum>(GL_NO_ERROR));
    EXPECT_TRUE(frontView() == first);
}

}  // namespace
}  // namespace qel::test
