
#include "CaptureFixture.h"
#include "ExtremeNumbers.h"
#include "kit/GlSurface.h"

namespace qel::test {
namespace {
constexpr std::uint32_t kLargestSigned = 0x7FFFFFFFU;
constexpr std::uint32_t kLargest = 0xFFFFFFFFU;

using ScreenCaptureArguments = Capture;

GLint viewportAt(int index) {
    GLint viewport[4] = {};
    const CallTrace::Pause unrecorded;
    glGetIntegerv(GL_VIEWPORT, viewport);
    return viewport[index];
}

TEST_F(ScreenCaptureArguments, WhoseFileWouldNotFit32BitsAreRefusedWithoutACall) {
    const std::pair<std::uint32_t, std::uint32_t> sizes[] = {{46341, 46341},
                                                             {65536, 65536},
                                                             {kLargestSigned, 1},
                                                             {1, kLargestSigned},
                                                             {kLargest, 1},
                                                             {1, kLargest},
                                                             {kLargest, kLargest},
                                                             {kLargestSigned, kLargestSigned},
                                                             {0, 10},
                                                             {10, 0},
                                                             {0, 0},
                                                             {0x80000000U, 2},
                                                             {37838, 37838},
                                                             {1, 1431655748U},
                                                             {1431655748U, 1},
                                                             {0x55555556U, 0xC0000000U},
                                                             {65536, 21846}};
    for (const auto& [width, height] : sizes) {
        const CallTrace trace;
        EXPECT_EQ(begin(width, height), -1) << width << " x " << height;
        EXPECT_TRUE(callsMatch(trace.calls(), {}));
    }
    EXPECT_EQ(currentContext(), context);
    EXPECT_EQ(viewportAt(2), kWidth);
    EXPECT_EQ(display->saveBitmap(), 0);
    EXPECT_FALSE(file.exists());
}

TEST_F(ScreenCaptureArguments, BeyondTheLargestViewportAreRefusedBeforeAnythingChanges) {
    GLint largest[2] = {};
    glGetIntegerv(GL_MAX_VIEWPORT_DIMS, largest);
    ASSERT_GE(largest[0], 1024);
    const auto width = static_cast<std::uint32_t>(largest[0]);
    const auto height = static_cast<std::uint32_t>(largest[1]);
    const GlSurface ofTheHost;
    const std::string toTheHost = call("wglMakeCurrent", reinterpret_cast<HDC>(ofTheHost.dc()),
                                       reinterpret_cast<HGLRC>(ofTheHost.rc()));
    const std::pair<std::uint32_t, std::uint32_t> sizes[] = {{width + 4, 4}, {4, height + 1}};
    for (const auto& [tooWide, tooHigh] : sizes) {
        const CallTrace trace;
        EXPECT_EQ(begin(tooWide, tooHigh), -1) << tooWide << " x " << tooHigh;
        EXPECT_TRUE(
            callsMatch(trace.calls(), {call("wglGetCurrentContext"), call("wglGetCurrentDC"), makesCurrent(),
                                       call("glGetIntegerv", GL_MAX_VIEWPORT_DIMS, out), toTheHost}));
    }
    EXPECT_EQ(begin(width, 4), 0);
    const HGLRC running = currentContext();
    EXPECT_EQ(begin(width + 4, 4), -1);
    EXPECT_EQ(currentContext(), running);
    display->saveBitmap();
    EXPECT_EQ(file.size(), 54U + std::uint64_t{width} * 4 * 3);
}

TEST_F(ScreenCaptureArguments, WithoutAnExtentThatHasASizeAreRefusedWithoutACall) {
    const Enve2d extents[] = {{0, 0, 0, 0},
                              {5, 5, 5, 50},
                              {5, 5, 50, 5},
                              {kNaN, 0, 10, 10},
                              {0, kNaN, 10, 10},
                              {0, 0, kNaN, 1},
                              {0, 0, 1, kNaN},
                              {0, 0, kInfinity, 10},
                              {-kInfinity, 0, 1, 1},
                              {0, -kInfinity, 1, 1},
                              {0, 0, 1, kInfinity},
                              // Invalid, and so small that the view is more pixels than there are integers.
                              {160, 120, 0, 0},
                              {160, 0, 0, 120},
                              {0, 120, 160, 0},
                              {0, 0, 1e-300, 120},
                              {0, 0, 160, 1e-7},
                              {1e9, 0, 1e9 + 1, 120},
                              {0, -1e9, 160, 1 - 1e9}};
    for (Enve2d extent : extents) {
        SCOPED_TRACE(std::to_string(extent.xmin) + ' ' + std::to_string(extent.ymin) + ' ' +
                     std::to_string(extent.xmax) + ' ' + std::to_string(extent.ymax));
        const CallTrace trace;
        EXPECT_EQ(display->beginCapture(8, 8, &extent, file.name()), -1);
        EXPECT_TRUE(callsMatch(trace.calls(), {}));
    }
    const CallTrace trace;
    EXPECT_EQ(display->beginCapture(8, 8, nullptr, file.name()), -1);
    EXPECT_TRUE(callsMatch(trace.calls(), {}));
}

TEST_F(ScreenCaptureArguments, ThatAreRefusedLeaveARunningCaptureAlone) {
    ASSERT_EQ(begin(8, 4), 0);
    const HGLRC running = currentContext();
    EXPECT_EQ(begin(0, 0), -1);
    EXPECT_EQ(display->beginCapture(8, 8, nullptr, QString("elsewhere.bmp")), -1);
    EXPECT_EQ(currentContext(), running);
    display->saveBitmap();
    EXPECT_EQ(file.size(), 54U + 8 * 4 * 3);
}

struct Mapping {
    Enve2d extent;
    std::uint32_t width;
    std::uint32_t height;
    int viewport[4];
};

TEST_F(ScreenCaptureArguments, MapTheExtentOntoTheBitmap) {
    // Of a view of 160 x 120 pixels; broken pixels are cut toward zero.
    const Mapping mappings[] = {
        {{0, 0, 160, 120}, 160, 120, {0, 0, 160, 120}},       {{0, 0, 160, 120}, 320, 60, {0, 0, 320, 60}},
        {{40, 30, 120, 90}, 200, 100, {-100, -50, 400, 200}}, {{1, 1, 4, 4}, 10, 10, {-3, -3, 533, 400}},
        {{-40, -30, 280, 210}, 100, 100, {12, 12, 50, 50}},   {{0, 0, 160.5, 119.5}, 7, 5, {0, 0, 6, 5}},
        {{1e300, 0, 2e300, 120}, 10, 10, {-10, 0, 0, 10}},
    };
    for (const Mapping& mapping : mappings) {
        Enve2d extent = mapping.extent;
        const int* const v = mapping.viewport;
        const CallTrace trace;
        EXPECT_EQ(display->beginCapture(mapping.width, mapping.height, &extent, file.name()), 0);
        EXPECT_TRUE(callsMatch(trace.callsOf("glViewport"), {call("glViewport", v[0], v[1], v[2], v[3])}));
        display->saveBitmap();
    }
    EXPECT_EQ(viewportAt(2), kWidth);
    EXPECT_EQ(viewportAt(3), kHeight);
}

TEST_F(ScreenCaptureArguments, OfAPartOfTheViewShowThatPartEnlarged) {
    const Picture whole = windowFrame();
    Enve2d extent(40, 30, 120, 90);
    ASSERT_EQ(display->beginCapture(80, 60, &extent, file.name()), 0);
    drawHostsScene();
    display->saveBitmap();
    const Picture part = pictureOf(file);
    std::size_t wrong = 0;
    for (int y = 0; y < 60; ++y) {
        for (int x = 0; x < 80; ++x) {
            wrong += difference(part.at(x, y), whole.at(40 + x, 30 + y)) <= 2 ? 0U : 1U;
        }
    }
    EXPECT_EQ(wrong, 0U);
}

TEST(ScreenCaptureArgumentsWithoutASize, IsTheBackColour) {
    const TestWindow window;
    const HeldDisplay display;
    display->attachWindow(number32(window.hwnd()), false);
    display->setViewSize(0, 0);
    display->setBackColor({0, 1, 0});
    const CaptureFile file;
    Enve2d extent(0, 0, 10, 10);
    ASSERT_EQ(display->beginCapture(8, 8, &extent, file.name()), 0);
    EXPECT_EQ(display->saveBitmap(), 0);
    EXPECT_EQ(pictureOf(file).countOf({0, 255, 0, 255}), 64U);
}

TEST(ScreenCaptureArgumentsWithoutAWindow, IsDrawnOrRefusedAndHarmsNothing) {
    const CaptureFile file;
    const Census before = censusAfterFirstUse();
    {
        const HeldDisplay display;
        EXPECT_EQ(display->saveBitmap(), 0);
        Enve2d extent(0, 0, 10, 10);
        const std::int32_t result = display->beginCapture(8, 8, &extent, file.name());
        EXPECT_EQ(display->saveBitmap(), 0);
        EXPECT_EQ(file.exists(), result == 0);
    }
    EXPECT_EQ(Census::now(), before);
}

}  // namespace
}  // namespace qel::test
