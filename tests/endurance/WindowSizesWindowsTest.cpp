#include "Endurance.h"
#include "IQelTrackBall.h"
#include "display/DisplayFixtureWindows.h"
#include "kit/Picture.h"

namespace qel::test {
namespace {

/// A window whose messages about its size reach a display, as a host passes them on.
class SizedView {
  public:
    SizedView() {
        display.attach(window);
        SetWindowLongPtrW(hwndOf(window), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        SetWindowLongPtrW(hwndOf(window), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&passSizesOn));
    }
    ~SizedView() {
        SetWindowLongPtrW(hwndOf(window), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&DefWindowProcW));
    }
    SizedView(const SizedView&) = delete;
    SizedView& operator=(const SizedView&) = delete;

    TestWindow window{64, 48};
    const HeldDisplay display;
    int sizesTold = 0;

  private:
    static LRESULT CALLBACK passSizesOn(HWND hwnd, UINT message, WPARAM wide, LPARAM sides) {
        auto* const view = reinterpret_cast<SizedView*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
        if (message == WM_SIZE) {
            view->display->onSize(LOWORD(sides), HIWORD(sides));
            ++view->sizesTold;
        }
        return DefWindowProcW(hwnd, message, wide, sides);
    }
};

/// The back colour in every pixel of a view.
void expectFilled(const SizedView& view) {
    view.display->setBackColor({0.0F, 1.0F, 0.0F});
    view.display->beginFrame(0);
    view.display->beginDraw();
    view.display->endDraw();
    const int width = view.window.width();
    const int height = view.window.height();
    const Picture frame = Picture::ofFrame({0, 0, width, height}, GL_BACK);
    EXPECT_EQ(frame.countOf({0, 255, 0, 255}), static_cast<std::size_t>(width * height));
}

void drawFrame(const SizedView& view) {
    const HeldDisplay& display = view.display;
    display->beginFrame(0);
    display->beginDraw();
    display->updateView();
    getPubSymbol()->drawCross({0.0, 0.0, 0.0}, 5.0, 1.0F, {1.0F, 1.0F, 0.0F}, false, false);
    display->printText("text");
    display->endDraw();
    display->finishFrame();
    display->restoreCache();
    display->endFrame();
}

TEST(WindowSizes, ChangedAtRandomDownToNothingLeaveHandlesAndMemoryFlat) {
    constexpr int kLargest = 120;
    const int changes = shortOrLong(400, 100'000);
    Chance chance;
    censusAfterFirstUse();
    SizedView view;
    const auto changeSizes = [&](int count) {
        int empty = 0;
        for (int number = 0; number < count; ++number) {
            const bool isNothing = chance.below(10) == 0;
            view.window.resize(isNothing ? 0 : chance.below(kLargest + 1), chance.below(kLargest + 1));
            empty += view.window.width() == 0 || view.window.height() == 0 ? 1 : 0;
            if (number % 3 == 0) {
                drawFrame(view);
            }
        }
        return empty;
    };
    // The copies of the frame are as large as the view: what is held is compared at one size.
    const auto drawLargest = [&view] {
        view.window.resize(kLargest, kLargest);
        drawFrame(view);
    };
    changeSizes(100);
    drawLargest();
    const int toldBefore = view.sizesTold;
    const HeldBefore before;
    const int empty = changeSizes(changes);
    drawLargest();
    before.expectStillHeld(changes);
    EXPECT_GT(empty, changes / 20);
    EXPECT_GT(view.sizesTold - toldBefore, changes * 9 / 10);
    EXPECT_TRUE(std::isfinite(view.display->getTrackBall()->getEye().z));
    view.window.resize(40, 30);
    expectFilled(view);
}

}  // namespace
}  // namespace qel::test
