#include "Picture.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "CallTrace.h"
#include "QelGl.h"

namespace qel::test {
namespace {

/// A folder for pictures that is removed with the test.
class PictureFile : public ::testing::Test {
  protected:
    PictureFile() { std::filesystem::remove_all(folder); }
    ~PictureFile() override { std::filesystem::remove_all(folder); }

    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "qel-picture-test";
};

Picture sample() {
    Picture picture(7, 5, kBlack);
    picture.set(1, 0, kRed);
    picture.set(5, 3, kGreen);
    return picture;
}

TEST(Picture, ReadsTheFrameWithTheOriginLowerLeft) {
    const GlSurface surface(20, 10);
    gluOrtho2D(0, 20, 0, 10);
    glColor3f(1, 0, 0);
    glRectf(2, 1, 6, 3);
    const Picture frame = Picture::ofFrame();
    EXPECT_EQ(frame.width(), 20);
    EXPECT_EQ(frame.height(), 10);
    EXPECT_EQ(frame.at(2, 1), kRed);
    EXPECT_EQ(frame.at(1, 1), kBlack);
    EXPECT_EQ(frame.boundsOtherThan(kBlack), (PixelArea{2, 1, 4, 2}));
}

TEST(Picture, ReadsPlainBytesWhateverThePixelStoreIs) {
    const GlSurface surface(7, 3);
    glColor3f(0, 1, 0);
    glRectf(-1, -1, 1, 1);
    glPixelStorei(GL_PACK_ALIGNMENT, 8);
    glPixelStorei(GL_PACK_SKIP_ROWS, 1);
    const CallTrace trace;
    EXPECT_EQ(Picture::ofFrame().countOf(kGreen), 21U);
    EXPECT_TRUE(callsMatch(trace.glCalls(), {}));
    GLint alignment = 0;
    glGetIntegerv(GL_PACK_ALIGNMENT, &alignment);
    EXPECT_EQ(alignment, 8);
}

TEST(Picture, CountsPixelsOfAColour) {
    Picture picture = sample();
    picture.set(2, 2, {250, 3, 0, 255});
    EXPECT_EQ(picture.countOf(kRed), 1U);
    EXPECT_EQ(picture.countOf(kRed, 5), 2U);
    EXPECT_EQ(picture.countOf(kRed, 4), 1U);
    EXPECT_EQ(picture.countOf(kRed, 5, {2, 0, 5, 5}), 1U);
    EXPECT_EQ(picture.countOf(kRed, 5, {-3, -3, 4, 4}), 0U);
    EXPECT_EQ(picture.countOtherThan(kBlack), 3U);
}

TEST(Picture, BoundsWhatIsNotBackground) {
    EXPECT_EQ(sample().boundsOtherThan(kBlack), (PixelArea{1, 0, 5, 4}));
    EXPECT_EQ(sample().boundsOf(kGreen), (PixelArea{5, 3, 1, 1}));
    EXPECT_EQ(Picture(4, 4, kRed).boundsOtherThan(kRed), std::nullopt);
}

TEST(Picture, RefusesAPixelOutside) {
    EXPECT_THROW(sample().at(0, 5), std::out_of_range);
}

TEST_F(PictureFile, KeepsAPictureTopDown) {
    const std::filesystem::path file = folder / "deep" / "sample.png";
    sample().save(file);
    EXPECT_EQ(Picture::load(file), sample());
    EXPECT_THROW(Picture::load(folder / "missing.png"), std::runtime_error);
    EXPECT_THROW(sample().save(file / "below a file.png"), std::runtime_error);
}

TEST(Picture, DiffersFromAnotherByPixelsBeyondTheTolerance) {
    Picture other = sample();
    other.set(3, 1, {40, 0, 0, 255});
    other.set(4, 1, {0, 0, 3, 255});
    EXPECT_EQ(compare(sample(), sample()).pixels, 0U);
    EXPECT_EQ(compare(sample(), other).pixels, 2U);
    EXPECT_EQ(compare(sample(), other, 3).pixels, 1U);
    EXPECT_EQ(compare(sample(), other, 40).pixels, 0U);
    EXPECT_EQ(compare(sample(), other, 40).largest, 40);
    EXPECT_DOUBLE_EQ(compare(sample(), other).share, 2.0 / 35.0);
}

}  // namespace
}  // namespace qel::test
