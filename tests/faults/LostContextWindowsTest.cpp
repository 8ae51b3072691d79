#include <cmath>
#include <vector>

#include "IQelTrackBall.h"
#include "display/CaptureFixture.h"
#include "host/HostGeometries.h"

namespace qel::test {
namespace {

constexpr int kWidth = 60;
constexpr int kHeight = 40;

/// A way in which the context is no longer there in the middle of a frame.
struct Loss {
    const char* name;
    void (*happens)(CallTrace& trace);
    /// Whether the next frame works by itself, or only after the window was attached again.
    bool comesBackByItself;
};

const Loss kLosses[] = {
    {"MakingCurrentFails", [](CallTrace& trace) { trace.answer("wglMakeCurrent", 0); }, true},
    {"AnotherPartOfTheHostLetsGoOfIt",
     [](CallTrace&) {
         const CallTrace::Pause unrecorded;
         wglMakeCurrent(nullptr, nullptr);
     },
     true},
    {"ItIsLetGoAndCannotBeMadeCurrentAgain",
     [](CallTrace& trace) {
         trace.answer("wglMakeCurrent", 0);
         const CallTrace::Pause unrecorded;
         wglMakeCurrent(nullptr, nullptr);
     },
     true},
    {"ItIsDeleted",
     [](CallTrace&) {
         const CallTrace::Pause unrecorded;
         HGLRC const context = wglGetCurrentContext();
         wglMakeCurrent(nullptr, nullptr);
         wglDeleteContext(context);
     },
     false},
    {"ItIsNotTold",
     [](CallTrace& trace) {
         trace.answer("wglGetCurrentContext", 0);
         trace.answer("wglGetCurrentDC", 0);
     },
     true},
    {"BuffersAreNotSwapped", [](CallTrace& trace) { trace.answer("SwapBuffers", 0); }, true},
    {"NothingIsReadBack", [](CallTrace& trace) { trace.answer("glReadPixels", 0); }, true},
    {"MatricesAndViewportAreNotTold",
     [](CallTrace& trace) {
         trace.answer("glGetIntegerv", 0);
         trace.answer("glGetDoublev", 0);
     },
     true},
};

/// The steps of a host's frame, with what each answers.
struct Step {
    const char* name;
    std::int32_t (*call)(IQelDisplay& display);
    std::int32_t answers;
};

constexpr Step kFrame[] = {
    {"beginFrame", [](IQelDisplay& d) { return d.beginFrame(0); }, 0},
    {"beginDraw", [](IQelDisplay& d) { return d.beginDraw(); }, 1},
    {"updateView", [](IQelDisplay& d) { return d.updateView(); }, 0},
    {"drawGeometry",
     [](IQelDisplay&) {
         const ref_ptr<HostBall> ball(new HostBall({0.0, 0.0, 0.0}, 5.0));
         return getPubSymbol()->drawGeometry(ball.get());
     },
     0},
    {"pick",
     [](IQelDisplay& d) {
         d.getTrackBall()->pickModelPnt(20.0, 20.0);
         return 0;
     },
     0},
    {"printText",
     [](IQelDisplay& d) {
         glColor3f(1.0F, 1.0F, 0.0F);
         glRasterPos3d(-10.0, -10.0, 0.0);
         return d.printText("text");
     },
     0},
    {"setOrtho2D", [](IQelDisplay& d) { return d.setOrtho2D(); }, 0},
    {"endDraw", [](IQelDisplay& d) { return d.endDraw(); }, 0},
    {"finishFrame", [](IQelDisplay& d) { return d.finishFrame(); }, 0},
    {"restoreCache", [](IQelDisplay& d) { return d.restoreCache(); }, 1},
    {"endFrame", [](IQelDisplay& d) { return d.endFrame(); }, 0},
    {"present", [](IQelDisplay& d) { return d.present(); }, 0},
};

/// A frame that shows the back colour, a ball and text, as it is before it is swapped.
Picture healthyFrame(IQelDisplay& display) {
    display.setBackColor({0.0F, 0.0F, 1.0F});
    Picture shown;
    for (const Step& step : kFrame) {
        if (std::string(step.name) == "endDraw") {
            shown = Picture::ofFrame({0, 0, kWidth, kHeight}, GL_BACK);
        }
        step.call(display);
    }
    return shown;
}

class LostContext : public ::testing::TestWithParam<Loss> {
  protected:
    static Picture attachedAndHealthy(const HeldDisplay& display, const TestWindow& window) {
        display.attach(window);
        // Lights are placed in the view that was loaded before: from the second frame on they stay.
        healthyFrame(*display);
        return healthyFrame(*display);
    }

    /// A frame whose context goes before one of its steps, and one after it.
    static void loseBefore(std::size_t step, const HeldDisplay& display, const TestWindow& window,
                           const Picture& healthy) {
        {
            CallTrace trace;
            for (std::size_t number = 0; number < std::size(kFrame); ++number) {
                if (number == step) {
                    GetParam().happens(trace);
                }
                EXPECT_EQ(kFrame[number].call(*display), kFrame[number].answers) << kFrame[number].name;
            }
            const XPnt3d eye = display->getTrackBall()->getEye();
            EXPECT_TRUE(std::isfinite(eye.x) && std::isfinite(eye.y) && std::isfinite(eye.z));
        }
        if (!GetParam().comesBackByItself) {
            display.attach(window);
        }
        healthyFrame(*display);
        EXPECT_TRUE(healthyFrame(*display) == healthy);
    }

    const TestWindow window{kWidth, kHeight};
};

TEST_P(LostContext, InAFrameLeavesEachStepItsAnswerAndTheNextFrameItsPicture) {
    const HeldDisplay display;
    const Picture healthy = attachedAndHealthy(display, window);
    ASSERT_GT(healthy.countOtherThan({0, 0, 255, 255}), 20U);
    for (std::size_t step = 0; step < std::size(kFrame); ++step) {
        SCOPED_TRACE(std::string("before ") + kFrame[step].name);
        loseBefore(step, display, window, healthy);
    }
    RecordProperty("faults", static_cast<int>(std::size(kFrame)));
}

TEST_P(LostContext, LeavesNothingBehind) {
    censusAfterFirstUse();
    const auto once = [this] {
        const HeldDisplay display;
        const Picture healthy = attachedAndHealthy(display, window);
        loseBefore(3, display, window, healthy);
        loseBefore(8, display, window, healthy);
    };
    once();
    const Census before = Census::now();
    once();
    once();
    EXPECT_EQ(Census::now(), before);
}

TEST_P(LostContext, InACaptureIsOverWithTheCapture) {
    const CaptureFile file;
    const HeldDisplay display;
    const Picture healthy = attachedAndHealthy(display, window);
    HGLRC const ofWindow = currentContext();
    Enve2d extent(0.0, 0.0, kWidth, kHeight);
    ASSERT_EQ(display->beginCapture(16, 8, &extent, file.name()), 0);
    ASSERT_NE(currentContext(), ofWindow);
    {
        CallTrace trace;
        GetParam().happens(trace);
        healthyFrame(*display);
        EXPECT_EQ(display->saveBitmap(), 0);
    }
    EXPECT_EQ(file.size(), kBitmapHeader + std::uint64_t{16} * 8 * 3);
    // The context that went was the bitmap's.
    display->makeCurrent();
    EXPECT_EQ(currentContext(), ofWindow);
    healthyFrame(*display);
    EXPECT_TRUE(healthyFrame(*display) == healthy);
}

INSTANTIATE_TEST_SUITE_P(When, LostContext, ::testing::ValuesIn(kLosses),
                         [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
}  // namespace qel::test
