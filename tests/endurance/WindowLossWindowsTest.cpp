#include <optional>

#include "Endurance.h"
#include "display/CaptureFixture.h"

namespace qel::test {
namespace {

/// What may happen to the window while a display is attached to it.
struct Loss {
    const char* name;
    void (*happens)(HWND window);
    bool windowRemains;
};

/// Everything that a host calls in a frame, without looking at results.
void useAll(const HeldDisplay& display, const CaptureFile& file) {
    display->setViewSize(40, 30);
    EXPECT_EQ(display->beginFrame(0), 0);
    EXPECT_EQ(display->beginDraw(), 1);
    display->updateView();
    getPubSymbol()->drawCross({0.0, 0.0, 0.0}, 5.0, 1.0F, {1.0F, 1.0F, 0.0F}, false, false);
    display->printText("text");
    EXPECT_EQ(display->endDraw(), 0);
    display->finishFrame();
    EXPECT_EQ(display->restoreCache(), 1);
    EXPECT_EQ(display->endFrame(), 0);
    EXPECT_EQ(display->present(), 0);
    Enve2d extent(0.0, 0.0, 40.0, 30.0);
    const std::int32_t begun = display->beginCapture(8, 8, &extent, file.name());
    EXPECT_TRUE(begun == 0 || begun == -1) << begun;
    EXPECT_EQ(display->saveBitmap(), 0);
}

/// The text and the back colour that a display draws when all is well.
Picture healthyPicture(const HeldDisplay& display, const TestWindow& window) {
    display.attach(window);
    display->setBackColor({0.0F, 0.0F, 1.0F});
    display->beginFrame(0);
    display->beginDraw();
    display->setOrtho2D();
    glColor3f(1.0F, 1.0F, 1.0F);
    glDisable(GL_LIGHTING);
    glRasterPos2i(4, 8);
    display->printText("ok");
    display->endDraw();
    return Picture::ofFrame({0, 0, window.width(), window.height()}, GL_BACK);
}

/// A window without an owner that destroys it a second time.
HWND windowToLose(int width, int height) {
    return CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, width, height, nullptr, nullptr,
                           GetModuleHandleW(nullptr), nullptr);
}

class WindowLoss : public ::testing::TestWithParam<Loss> {};

TEST_P(WindowLoss, LeavesADisplayThatCanBeUsedAndReleasedAndAttachedElsewhere) {
    const int rounds = shortOrLong(4, 100);
    const TestWindow other(40, 30);
    const CaptureFile file;
    censusAfterFirstUse();
    const auto round = [&](bool inTheMiddleOfAFrame) {
        HWND const window = windowToLose(40, 30);
        ASSERT_NE(window, nullptr);
        const HeldDisplay display;
        display->attachWindow(handleNumber(window), false);
        display->setViewSize(40, 30);
        if (inTheMiddleOfAFrame) {
            display->beginFrame(0);
            display->beginDraw();
        }
        GetParam().happens(window);
        TestWindow::handleMessages();
        if (inTheMiddleOfAFrame) {
            display->printText("text");
            EXPECT_EQ(display->endFrame(), 0);
        }
        useAll(display, file);
        EXPECT_EQ(IsWindow(window) != FALSE, GetParam().windowRemains);
        const Picture picture = healthyPicture(display, other);
        EXPECT_GT(picture.countOf({255, 255, 255, 255}, 60), 5U);
        EXPECT_GT(picture.countOf({0, 0, 255, 255}), std::size_t{40} * 30 / 2);
        DestroyWindow(window);
        TestWindow::handleMessages();
    };
    round(false);
    round(true);
    const Census before = Census::now();
    for (int number = 0; number < rounds && !HasFailure(); ++number) {
        round(number % 2 == 0);
    }
    const Census after = Census::now();
    RecordProperty("cycles", rounds);
    // The window manager answers when it likes, and the system may hold one thing for it at either moment;
    // what is lost is lost in each round.
    EXPECT_LE(after.gdiHandles, before.gdiHandles + 1);
    EXPECT_LE(after.userHandles, before.userHandles + 1);
    EXPECT_EQ(after.glContexts, before.glContexts);
}

const Loss kLosses[] = {
    {"Hidden", [](HWND window) { ShowWindow(window, SW_HIDE); }, true},
    {"Minimised", [](HWND window) { ShowWindow(window, SW_MINIMIZE); }, true},
    {"MinimisedAndBack",
     [](HWND window) {
         ShowWindow(window, SW_MINIMIZE);
         ShowWindow(window, SW_RESTORE);
     },
     true},
    {"Disabled", [](HWND window) { EnableWindow(window, FALSE); }, true},
    {"Destroyed", [](HWND window) { DestroyWindow(window); }, false},
};

INSTANTIATE_TEST_SUITE_P(OfAWindow, WindowLoss, ::testing::ValuesIn(kLosses),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST(WindowLossOfADisplay, ThatGoesAfterItsWindowIsReleasedInOrder) {
    const int rounds = shortOrLong(2, 100);
    censusAfterFirstUse();
    const auto round = [](bool drawn) {
        const HeldDisplay display;
        HWND const window = windowToLose(40, 30);
        display->attachWindow(handleNumber(window), false);
        display->setViewSize(40, 30);
        if (drawn) {
            display->beginFrame(0);
            display->finishFrame();
        }
        DestroyWindow(window);
    };
    round(true);
    const Census before = Census::now();
    for (int number = 0; number < rounds; ++number) {
        round(number % 2 == 0);
    }
    EXPECT_EQ(Census::now().gdiHandles, before.gdiHandles);
    EXPECT_EQ(Census::now().glContexts, before.glContexts);
    EXPECT_EQ(Census::now().userHandles, before.userHandles);
    RecordProperty("cycles", rounds);
}

}  // namespace
}  // namespace qel::test
