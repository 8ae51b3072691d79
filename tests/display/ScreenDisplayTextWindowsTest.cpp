#include <string>

#include "DisplayFixtureWindows.h"
#include "kit/Picture.h"

namespace qel::test {
namespace {

constexpr GLuint kHostLists = 5000;
constexpr std::size_t kLongest = 255;

/// A display whose font begins at a list that the test knows.
class ScreenDisplayText : public ::testing::Test {
  protected:
    static constexpr int kWidth = 200;
    static constexpr int kHeight = 80;

    ScreenDisplayText() {
        CallTrace trace;
        trace.answer("glGenLists", kHostLists);
        display.attach(window);
    }

    static Calls printed(const std::string& text) {
        return {call("glPushAttrib", GL_LIST_BIT), call("glListBase", kHostLists - kFirstCharacter),
                call("glCallLists", text.size(), GL_UNSIGNED_BYTE, text), call("glPopAttrib")};
    }

    /// Pixels of text in white at a raster position, on black.
    Picture drawn(const char* text, int x, int y) {
        display->beginFrame(0);
        display->beginDraw();
        display->setOrtho2D();
        glDisable(GL_DEPTH_TEST);
        glColor3f(1, 1, 1);
        glRasterPos2i(x, y);
        display->printText("%s", text);
        Picture picture = Picture::ofFrame();
        display->endDraw();
        return picture;
    }

    TestWindow window{kWidth, kHeight};
    HeldDisplay display;
};

TEST_F(ScreenDisplayText, CallsTheListsOfItsCharactersAndRestoresTheListBase) {
    const CallTrace trace;
    EXPECT_EQ(display->printText("Hello"), 0);
    EXPECT_TRUE(callsMatch(trace.calls(), printed("Hello")));
}

TEST_F(ScreenDisplayText, LeavesTheListBaseOfTheHost) {
    glListBase(77);
    display->printText("Hello");
    GLint base = 0;
    glGetIntegerv(GL_LIST_BASE, &base);
    EXPECT_EQ(base, 77);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(ScreenDisplayText, DrawsNothingWithoutAFormat) {
    const CallTrace trace;
    EXPECT_EQ(display->printText(nullptr), 0);
    EXPECT_TRUE(callsMatch(trace.calls(), {}));
}

TEST_F(ScreenDisplayText, CallsNoListForEmptyText) {
    const CallTrace trace;
    EXPECT_EQ(display->printText("%s", ""), 0);
    EXPECT_TRUE(callsMatch(trace.calls(), printed("")));
}

TEST_F(ScreenDisplayText, FormatsNumbersAndTexts) {
    const CallTrace trace;
    display->printText("%d of %s", 7, "nine");
    display->printText("%.2f m, %c", 12.345678, 'N');
    display->printText("%d-%d-%d-%d", 1, 2, 3, 4);
    display->printText("100%%");
    Calls expected;
    for (const char* const text : {"7 of nine", "12.35 m, N", "1-2-3-4", "100%"}) {
        append(expected, printed(text));
    }
    EXPECT_TRUE(
        callsMatch(trace.calls("glPushAttrib", "glListBase", "glCallLists", "glPopAttrib"), expected));
}

TEST_F(ScreenDisplayText, TakesValuesAsTextAndNotAsAFormat) {
    const CallTrace trace;
    display->printText("%s", "50% %n %s %d");
    EXPECT_TRUE(callsMatch(trace.callsOf("glCallLists"),
                           {call("glCallLists", 12, GL_UNSIGNED_BYTE, "50% %n %s %d")}));
}

TEST_F(ScreenDisplayText, CutsTextAfter255Characters) {
    for (const std::size_t length : {kLongest - 1, kLongest, kLongest + 1, kLongest + 2, std::size_t{5000}}) {
        std::string text(length, 'x');
        text.front() = '<';
        text.back() = '>';
        const CallTrace trace;
        EXPECT_EQ(display->printText("%s", text.c_str()), 0);
        EXPECT_TRUE(callsMatch(trace.calls("glPush", "glListBase", "glCallLists", "glPop"),
                               printed(text.substr(0, kLongest))))
            << length << " characters";
    }
}

TEST_F(ScreenDisplayText, LeavesPixelsInTheDrawingColourAtTheRasterPosition) {
    const Picture picture = drawn("Hg", 40, 30);
    const auto ink = picture.boundsOtherThan(kBlack);
    ASSERT_TRUE(ink.has_value());
    // Characters of 18 units stand on the raster position and hang a few pixels below it.
    EXPECT_GE(ink->x, 38);
    EXPECT_LE(ink->x, 45);
    EXPECT_GE(ink->y, 30 - 8);
    EXPECT_LT(ink->y, 30);
    EXPECT_LE(ink->y + ink->height, 30 + 20);
    EXPECT_GE(ink->height, 14);
    EXPECT_GT(picture.countOf({255, 255, 255, 255}, 60), 20U);
}

TEST_F(ScreenDisplayText, MovesTheRasterPositionByEachCharacterAndBySpaces) {
    const auto advance = [this](const char* text) {
        drawn(text, 10, 30);
        GLfloat position[4] = {};
        glGetFloatv(GL_CURRENT_RASTER_POSITION, position);
        return position[0] - 10.0F;
    };
    const float word = advance("ab");
    EXPECT_GT(word, 5.0F);
    EXPECT_EQ(advance("abab"), 2.0F * word);
    EXPECT_GT(advance("ab ab"), 2.0F * word);
}

TEST_F(ScreenDisplayText, DrawsNothingForCharactersOutsideTheFont) {
    const CallTrace trace;
    const Picture picture = drawn("\x01\x1f\x80\xff", 40, 30);
    EXPECT_TRUE(callsMatch(trace.callsOf("glCallLists"),
                           {call("glCallLists", 4, GL_UNSIGNED_BYTE, "\x01\x1f\x80\xff")}));
    EXPECT_EQ(picture.countOtherThan(kBlack), 0U);
    EXPECT_EQ(pendingError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(ScreenDisplayText, DrawsEveryPrintableCharacterButTheSpace) {
    for (char character = '!'; character <= '~'; ++character) {
        const char text[] = {character, '\0'};
        EXPECT_GT(drawn(text, 40, 30).countOtherThan(kBlack), 0U) << "character " << character;
    }
    EXPECT_EQ(drawn(" ", 40, 30).countOtherThan(kBlack), 0U);
}

TEST_F(ScreenDisplayText, DeletesItsListsWithTheDisplay) {
    EXPECT_TRUE(glIsList(kHostLists));
    EXPECT_TRUE(glIsList(kHostLists + kFontLists - 1));
    const CallTrace trace;
    display.release();
    EXPECT_TRUE(callsMatch(trace.callsOf("glDeleteLists"), {call("glDeleteLists", kHostLists, kFontLists)}));
}

TEST(ScreenDisplayTextUnattached, CallsNoListsOfTheHost) {
    const HeldDisplay display;
    const CallTrace trace;
    EXPECT_EQ(display->printText("Hello"), 0);
    EXPECT_TRUE(callsMatch(trace.glCalls(), {}));
}

}  // namespace
}  // namespace qel::test
