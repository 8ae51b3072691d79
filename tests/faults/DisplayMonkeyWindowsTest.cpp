#include <gtest/gtest.h>

#include <QString>
#include <cmath>
#include <cstdio>
#include <filesystem>

#include "IQelGL.h"
#include "IQelTrackBall.h"
#include "Monkey.h"
#include "display/DisplayFixtureWindows.h"
#include "host/HostGeometries.h"
#include "kit/GlSurface.h"

namespace qel::test {
namespace {

/// A display with two windows and a context of the host's that it may be attached to, and a file for its
/// captures.
struct DisplayAndWindows {
    GlSurface ofTheHost{100, 60};
    TestWindow first{120, 80};
    TestWindow second{90, 140};
    HeldDisplay display;
    std::filesystem::path file = std::filesystem::temp_directory_path() / "qel-monkey.bmp";

    DisplayAndWindows() { display.attach(first); }
    ~DisplayAndWindows() {
        std::error_code ignored;
        std::filesystem::remove(file, ignored);
    }
    DisplayAndWindows(const DisplayAndWindows&) = delete;
    DisplayAndWindows& operator=(const DisplayAndWindows&) = delete;
};

using DisplayOperation = MonkeyOperation<DisplayAndWindows>;

std::int32_t viewSide(WildArguments& wild) {
    return wild.pick(6) == 0 ? -static_cast<std::int32_t>(wild.pick(3))
                             : static_cast<std::int32_t>(wild.pick(200));
}

std::uint32_t captureSide(WildArguments& wild) {
    return wild.pick(4) == 0 ? wild.size() : static_cast<std::uint32_t>(1 + wild.pick(70));
}

/// Contexts take milliseconds to make: seldom asked for.
bool isSeldom(WildArguments& wild) {
    return wild.pick(12) == 0;
}

constexpr DisplayOperation kDisplayOperations[] = {
    {"attachWindow",
     [](DisplayAndWindows& d, WildArguments& w) {
         if (isSeldom(w)) {
             const TestWindow& window = w.flag() ? d.first : d.second;
             d.display->attachWindow(w.pick(3) == 0 ? 0 : number32(window.hwnd()), false);
         }
     }},
    {"attachDC",
     [](DisplayAndWindows& d, WildArguments& w) {
         if (isSeldom(w)) {
             const std::int32_t dc = number32(d.ofTheHost.dc());
             const std::int32_t rc = number32(d.ofTheHost.rc());
             d.display->attachDC(w.pick(3) == 0 ? 0 : dc, w.pick(3) == 0 ? 0 : rc);
         }
     }},
    {"setViewSize",
     [](DisplayAndWindows& d, WildArguments& w) {
         const std::int32_t width = viewSide(w);
         d.display->setViewSize(width, viewSide(w));
         d.display->onSize(width, viewSide(w));
     }},
    {"beginFrame",
     [](DisplayAndWindows& d, WildArguments& w) { d.display->beginFrame(w.flag() ? 0 : w.whole()); }},
    {"finishFrame", [](DisplayAndWindows& d, WildArguments&) { d.display->finishFrame(); }},
    {"present",
     [](DisplayAndWindows& d, WildArguments&) {
         d.display->present();
         d.display->swapBuffers();
         d.display->presentView();
     }},
    {"setOrtho2D", [](DisplayAndWindows& d, WildArguments&) { d.display->setOrtho2D(); }},
    {"updateView", [](DisplayAndWindows& d, WildArguments&) { d.display->updateView(); }},
    {"makeCurrent", [](DisplayAndWindows& d, WildArguments&) { d.display->makeCurrent(); }},
    {"beginCapture",
     [](DisplayAndWindows& d, WildArguments& w) {
         if (!isSeldom(w)) {
             return;
         }
         Enve2d extent = w.flag() ? Enve2d(0.0, 0.0, 100.0, 80.0) : w.rect();
         const std::uint32_t width = captureSide(w);
         // Sides that are huge one by one are refused together; one alone would only take long to write.
         const std::uint32_t height = width > 200 ? width : captureSide(w);
         const bool isModest = width <= 200 && height <= 200;
         if (isModest || std::uint64_t{width} * height * 3 > UINT32_MAX) {
             const QString name = w.pick(4) == 0 ? QString("Z:/no such folder/x.bmp")
                                                 : QString::fromStdWString(d.file.wstring());
             d.display->beginCapture(width, height, w.pick(6) == 0 ? nullptr : &extent, name);
         }
     }},
    {"saveBitmap",
     [](DisplayAndWindows& d, WildArguments& w) {
         if (w.pick(3) == 0) {
             d.display->saveBitmap();
         }
     }},
    {"beginDraw", [](DisplayAndWindows& d, WildArguments&) { d.display->beginDraw(); }},
    {"endDraw", [](DisplayAndWindows& d, WildArguments&) { d.display->endDraw(); }},
    {"restoreCache", [](DisplayAndWindows& d, WildArguments&) { d.display->restoreCache(); }},
    {"endFrame", [](DisplayAndWindows& d, WildArguments&) { d.display->endFrame(); }},
    {"getGL",
     [](DisplayAndWindows& d, WildArguments& w) {
         w.flag() ? d.display->getGL()->enable(GL_LIGHTING) : d.display->getGL()->disable(GL_LIGHTING);
     }},
    {"setBackColor", [](DisplayAndWindows& d, WildArguments& w) { d.display->setBackColor(w.color()); }},
    {"setShowOverlay1",
     [](DisplayAndWindows& d, WildArguments& w) {
         d.display->setShowOverlay1(w.flag());
         d.display->setShowOverlay2(w.flag());
     }},
    {"setStereoSeparation",
     [](DisplayAndWindows& d, WildArguments& w) { d.display->setStereoSeparation(w.single()); }},
    {"selectStereoBuffer",
     [](DisplayAndWindows& d, WildArguments& w) { d.display->selectStereoBuffer(w.flag()); }},
    {"setActiveCache",
     [](DisplayAndWindows& d, WildArguments& w) {
         d.display->setActiveCache(w.whole());
         d.display->getCacheDC(w.whole());
         d.display->UpdateWindow();
         d.display->reservedSlot30();
     }},
    {"attachObject",
     [](DisplayAndWindows& d, WildArguments& w) {
         d.display->attachObject(w.pick(4) == 0 ? nullptr : new HostPoint(1.0, 2.0, 3.0));
     }},
    {"printText",
     [](DisplayAndWindows& d, WildArguments& w) {
         if (w.pick(6) == 0) {
             d.display->printText(nullptr);
         } else {
             d.display->printText("%s", w.text().c_str());
         }
     }},
    {"useTheCamera",
     [](DisplayAndWindows& d, WildArguments& w) {
         IQelTrackBall& camera = *d.display->getTrackBall();
         camera.setExtent(w.box(), w.flag());
         camera.onButtonDown(static_cast<std::int32_t>(w.pick(4)), w.pixel(), w.pixel());
         camera.onMouseMove(w.pixel(), w.pixel());
         camera.setStandardView(static_cast<std::uint32_t>(w.whole()));
         w.flag() ? camera.setOrtho() : camera.setPerspective();
     }},
};

class DisplayMonkey : public ::testing::TestWithParam<std::uint64_t> {
  protected:
    // Cameras print when their matrix cannot be inverted.
    void SetUp() override { ::testing::internal::CaptureStdout(); }
    void TearDown() override {
        const std::string printed = ::testing::internal::GetCapturedStdout();
        if (HasFailure()) {
            std::puts(printed.substr(0, 2000).c_str());
        }
    }
};

TEST_P(DisplayMonkey, EndsWithADisplayThatShowsItsFrameAndGivesEverythingBack) {
    const Census before = censusAfterFirstUse();
    {
        DisplayAndWindows subject;
        letMonkeyPlay<DisplayAndWindows>(
            subject, kDisplayOperations, GetParam(), [] {},
            [&](const DisplayOperation&, const WildArguments&) {
                const XPnt3d eye = subject.display->getTrackBall()->getEye();
                ASSERT_TRUE(std::isfinite(eye.x) && std::isfinite(eye.y) && std::isfinite(eye.z));
                ASSERT_EQ(subject.display->referenceCount(), 1);
                glGetError();
            });
        // A capture whose file could not be written is still under way.
        Enve2d extent(0.0, 0.0, 100.0, 80.0);
        subject.display->beginCapture(16, 16, &extent, QString::fromStdWString(subject.file.wstring()));
        subject.display->saveBitmap();
        subject.display.attach(subject.first);
        subject.display->setBackColor({0.0F, 1.0F, 0.0F});
        subject.display->beginFrame(0);
        GLubyte pixel[4] = {};
        glReadBuffer(GL_BACK);
        glReadPixels(10, 10, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel);
        EXPECT_EQ(pixel[0], 0);
        EXPECT_EQ(pixel[1], 255);
    }
    EXPECT_EQ(Census::now(), before);
}

INSTANTIATE_TEST_SUITE_P(Seed, DisplayMonkey, ::testing::ValuesIn(monkeySeeds()),
                         ::testing::PrintToStringParamName());

}  // namespace
}  // namespace qel::test
