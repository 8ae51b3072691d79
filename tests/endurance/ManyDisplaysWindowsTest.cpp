#include <algorithm>
#include <array>
#include <memory>

#include "Endurance.h"
#include "IQelTrackBall.h"
#include "display/DisplayFixtureWindows.h"
#include "kit/Picture.h"

namespace qel::test {
namespace {

constexpr int kWidth = 48;
constexpr int kHeight = 32;

/// A display with a window, a back colour and a text of its own, and the picture that it showed first.
class OwnView {
  public:
    explicit OwnView(int number)
        : back(static_cast<float>(number % 3) * 0.4F, (number < 3 ? 0.0F : 0.4F), 0.2F),
          letter(static_cast<char>('A' + number)) {
        display.attach(window);
        display->setBackColor(back);
        first = drawn();
    }

    /// A frame: a line across the model, and text at a place of the view.
    Picture drawn() {
        display->beginFrame(0);
        display->beginDraw();
        display->updateView();
        getPubSymbol()->drawLine({-20.0, -20.0, 0.0}, {20.0, 20.0, 0.0}, 2.0, {1.0F, 1.0F, 0.0F}, false,
                                 false);
        display->setOrtho2D();
        glColor3f(1.0F, 1.0F, 1.0F);
        glDisable(GL_LIGHTING);
        glRasterPos2i(24, 8);
        display->printText("%c", letter);
        display->endDraw();
        Picture frame = Picture::ofFrame({0, 0, kWidth, kHeight}, GL_BACK);
        display->finishFrame();
        return frame;
    }

    /// The same frame from the display's own copy.
    Picture restored() {
        display->makeCurrent();
        display->restoreCache();
        Picture frame = Picture::ofFrame({0, 0, kWidth, kHeight}, GL_BACK);
        display->endDraw();
        return frame;
    }

    const Picture& firstPicture() const { return first; }

  private:
    const QelColor3f back;
    const char letter;
    const TestWindow window{kWidth, kHeight};
    const HeldDisplay display;
    Picture first;
};

using Views = std::array<std::unique_ptr<OwnView>, 4>;

/// Each view that is open shows what it showed first: drawn anew or from its copy.
void expectOwnPictures(const Views& open, Chance& chance) {
    for (const auto& view : open) {
        if (view != nullptr) {
            const bool anew = chance.below(2) == 0;
            EXPECT_TRUE((anew ? view->drawn() : view->restored()) == view->firstPicture())
                << (anew ? "drawn" : "restored");
        }
    }
}

TEST(ManyDisplays, ClosedInRandomOrderLeaveTheOthersTheirTextAndTheirPicture) {
    const int rounds = shortOrLong(2, 500);
    Chance chance;
    censusAfterFirstUse();
    const auto round = [&chance] {
        Views views;
        std::array<std::size_t, 4> order{0, 1, 2, 3};
        std::shuffle(order.begin(), order.end(), chance.generator());
        for (const std::size_t number : order) {
            views.at(number) = std::make_unique<OwnView>(static_cast<int>(number));
        }
        expectOwnPictures(views, chance);
        // Text and line are there, and no two views show the same.
        ASSERT_GT(views[0]->firstPicture().countOf({255, 255, 255, 255}, 60), 5U);
        ASSERT_GT(views[0]->firstPicture().countOf({255, 255, 0, 255}, 60), 5U);
        ASSERT_FALSE(views[0]->firstPicture() == views[3]->firstPicture());
        std::shuffle(order.begin(), order.end(), chance.generator());
        for (const std::size_t number : order) {
            views.at(number).reset();
            expectOwnPictures(views, chance);
        }
    };
    round();
    const HeldBefore before;
    for (int number = 0; number < rounds && !::testing::Test::HasFailure(); ++number) {
        SCOPED_TRACE("round " + std::to_string(number));
        round();
    }
    before.expectStillHeld(rounds);
}

}  // namespace
}  // namespace qel::test
