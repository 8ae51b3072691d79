#include "Picture.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <stdexcept>

#include "CallTrace.h"
#include "PictureComparison.h"
#include "QelGl.h"

namespace qel::test {
namespace {

constexpr Rgba kBlack = {0, 0, 0, 255};
constexpr Rgba kRed = {255, 0, 0, 255};
constexpr Rgba kGreen = {0, 255, 0, 255};

void setVariable(const char* name, const std::string& value) {
#ifdef _WIN32
    _putenv_s(name, value.c_str());
#else
    setenv(name, value.c_str(), 1);
#endif
}

/// A folder for stored and for failed pictures that goes with the test.
class PictureFolder : public ::testing::Test {
  protected:
    PictureFolder() {
        std::filesystem::remove_all(folder);
        setVariable("QEL_PICTURES_DIR", (folder / "stored").string());
        setVariable("QEL_PICTURES_OUT", (folder / "failed").string());
    }

    ~PictureFolder() override {
        for (const char* const name : {"QEL_PICTURES_DIR", "QEL_PICTURES_OUT", "QEL_RENEW_PICTURES"}) {
            setVariable(name, "");
        }
        std::filesystem::remove_all(folder);
    }

    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "qel-picture-test";
    const std::filesystem::path failed = folder / "failed" / "view.png";
};

using StoredPicture = PictureFolder;

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

TEST_F(PictureFolder, KeepsPicturesInFilesTopDown) {
    const std::filesystem::path file = folder / "deep" / "sample.png";
    sample().save(file);
    EXPECT_EQ(Picture::load(file), sample());
    EXPECT_THROW(Picture::load(folder / "missing.png"), std::runtime_error);
    EXPECT_THROW(sample().save(file / "below a file.png"), std::runtime_error);
}

TEST_F(StoredPicture, IsMatchedByTheSamePicture) {
    sample().save(storedPictures() / "view.png");
    EXPECT_TRUE(looksLike(sample(), "view"));
    EXPECT_FALSE(std::filesystem::exists(failed));
}

TEST_F(StoredPicture, IsMissedByOnePixelAndTheDifferenceIsKept) {
    sample().save(storedPictures() / "view.png");
    Picture other = sample();
    other.set(3, 1, {1, 0, 0, 255});
    const ::testing::AssertionResult result = looksLike(other, "view");
    ASSERT_FALSE(result);
    EXPECT_NE(std::string(result.message()).find("1 pixels differ"), std::string::npos) << result.message();
    EXPECT_NE(std::string(result.message()).find("view.png"), std::string::npos) << result.message();
    const Picture shown = Picture::load(failed);
    EXPECT_EQ(shown.width(), 3 * 7 + 8);
    EXPECT_EQ(shown.at(1, 0), kRed);
    EXPECT_EQ(shown.at(11 + 3, 1), (Rgba{1, 0, 0, 255}));
    EXPECT_EQ(shown.at(22 + 3, 1), (Rgba{64, 0, 0, 255}));
    EXPECT_EQ(shown.at(22 + 1, 0), kBlack);
}

struct ToleranceCase {
    const char* name;
    PictureTolerance tolerance;
    bool matches;
};

TEST_F(StoredPicture, IsMatchedWithinTheToleranceOnly) {
    Picture(10, 10, kBlack).save(storedPictures() / "view.png");
    Picture other(10, 10, kBlack);
    other.set(1, 1, {40, 0, 0, 255});
    other.set(2, 1, {0, 0, 3, 255});
    const ToleranceCase cases[] = {
        {"two pixels in a hundred", {0.02, 0, 40}, true},
        {"share too small", {0.01, 0, 40}, false},
        {"small differences do not count", {0.01, 3, 40}, true},
        {"share alone does not allow a difference", {0.5, 3, 0}, false},
        {"largest too small", {0.5, 0, 39}, false},
        {"all within the channel's tolerance", {0, 40, 0}, true},
    };
    for (const ToleranceCase& one : cases) {
        EXPECT_EQ(looksLike(other, "view", one.tolerance), one.matches) << one.name;
    }
}

TEST_F(StoredPicture, IsMissedByAnotherSize) {
    sample().save(storedPictures() / "view.png");
    EXPECT_FALSE(looksLike(Picture(8, 5), "view"));
    EXPECT_EQ(Picture::load(failed).width(), 3 * 8 + 8);
}

TEST_F(StoredPicture, MustExist) {
    EXPECT_FALSE(looksLike(sample(), "view"));
    EXPECT_EQ(Picture::load(failed), sample());
    EXPECT_FALSE(std::filesystem::exists(storedPictures() / "view.png"));
}

TEST_F(StoredPicture, IsReplacedOnlyWhenRenewed) {
    Picture(2, 2).save(storedPictures() / "view.png");
    setVariable("QEL_RENEW_PICTURES", "1");
    EXPECT_TRUE(looksLike(sample(), "view"));
    setVariable("QEL_RENEW_PICTURES", "");
    EXPECT_EQ(Picture::load(storedPictures() / "view.png"), sample());
    EXPECT_TRUE(looksLike(sample(), "view"));
}

}  // namespace
}  // namespace qel::test
