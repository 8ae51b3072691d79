#include "ScreenFont.h"

#include <gtest/gtest.h>

#include "QelGl.h"
#include "kit/GlSurface.h"
#include "kit/Picture.h"

namespace {

using qel::test::Picture;
using qelview::ScreenFont;

class ScreenFontTest : public testing::Test {
  protected:
    static constexpr qel::test::Rgba kBlack{0, 0, 0, 255};

    /// A text in yellow from a place, in coordinates of pixels.
    Picture printed(const std::string& text, int height, int x, int y) {
        surface.clear(kBlack);
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        glOrtho(0.0, 200.0, 0.0, 100.0, -1.0, 1.0);
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        glColor3f(1.0F, 1.0F, 0.0F);
        glRasterPos2d(1.0, 1.0);
        font.print(text, height, x - 1, y - 1);
        return Picture::ofFrame();
    }

    qel::test::GlSurface surface{200, 100};
    ScreenFont font;
};

TEST_F(ScreenFontTest, PrintsFromThePlaceInTheCurrentColourAtTheWantedHeight) {
    for (const int height : {12, 24, 48}) {
        const Picture picture = printed("HE", height, 10, 30);
        const auto bounds = picture.boundsOtherThan(kBlack, 60);
        ASSERT_TRUE(bounds.has_value()) << height;
        EXPECT_NEAR(bounds->x, 10, 0.15 * height) << height;
        EXPECT_NEAR(bounds->y, 30, 1) << height;
        // A capital letter is about seven tenths of the height of its font.
        EXPECT_NEAR(bounds->height, 0.7 * height, 0.1 * height + 1.0) << height;
        EXPECT_NEAR(bounds->width, font.widthOf("HE", height), 0.25 * height) << height;
        for (int x = 0; x < picture.width(); ++x) {
            EXPECT_EQ(picture.at(x, 33)[2], 0) << "no blue in yellow";
        }
    }
}

TEST_F(ScreenFontTest, KnowsLettersOfOtherLanguages) {
    EXPECT_NE(printed("\xC3\xA9", 24, 10, 30), printed("e", 24, 10, 30));
    EXPECT_GT(font.widthOf("\xC3\xA9t\xC3\xA9", 24), font.widthOf("\xC3\xA9", 24));
    EXPECT_EQ(font.widthOf("", 24), 0);
    EXPECT_FALSE(printed("", 24, 10, 30).boundsOtherThan(kBlack).has_value());
}

TEST_F(ScreenFontTest, ShowsThePartOfATextThatIsInTheView) {
    const Picture whole = printed("HHHHHH", 24, 20, 30);
    const Picture cut = printed("HHHHHH", 24, -20, 30);
    EXPECT_GT(cut.countOtherThan(kBlack), whole.countOtherThan(kBlack) / 3);
    EXPECT_LT(cut.countOtherThan(kBlack), whole.countOtherThan(kBlack));
    EXPECT_EQ(cut.at(5, 35), whole.at(45, 35));
}

TEST_F(ScreenFontTest, DrawsATextThatItHasDrawnBeforeAsBefore) {
    const Picture first = printed("again", 20, 10, 30);
    for (int i = 0; i < 900; ++i) {
        printed(std::to_string(i), 8, 10, 30);
    }
    EXPECT_EQ(printed("again", 20, 10, 30), first);
}

}  // namespace
