#include "ReadImage.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "FileBytes.h"
#include "ModelImages.h"
#include "PictureFile.h"
#include "viewer/ImageBytes.h"
#include "viewer/ViewerData.h"

namespace {

using qel::test::refusalOf;
using qelview::TextureImage;

std::string corpusBytes(const std::string& name) {
    return qelview::readBytes(qel::test::viewerCorpus() / name, 1U << 20U);
}

/// The head of a PNG file that declares an image of any size, without its pixels.
std::string pngHead(std::uint32_t width, std::uint32_t height) {
    std::string bytes("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16);
    for (const std::uint32_t number : {width, height}) {
        for (const unsigned shift : {24U, 16U, 8U, 0U}) {
            bytes.push_back(static_cast<char>(static_cast<std::uint8_t>(number >> shift)));
        }
    }
    return bytes + std::string("\x08\x02\0\0\0\0\0\0\0", 9) + std::string("\0\0\0\0IDAT\0\0\0\0", 12);
}

void expectPixel(const TextureImage& image, int column, int row, const qel::test::Rgba& color,
                 int tolerance) {
    const std::uint8_t* const pixel = image.pixel(column, row);
    for (int channel = 0; channel < image.channels; ++channel) {
        EXPECT_LE(std::abs(pixel[channel] - color.at(static_cast<std::size_t>(channel))), tolerance)
            << column << " " << row << " " << channel;
    }
}

struct ImageFile {
    const char* name;
    int channels;
    std::uint8_t alphaAtTheLeft;
    int tolerance;
};

class ReadImageEachImageFile : public testing::TestWithParam<ImageFile> {};

TEST_P(ReadImageEachImageFile, GivesItsPixelsFromTheTopRowDown) {
    const TextureImage image = qelview::readImage(corpusBytes(GetParam().name));
    ASSERT_EQ(image.width, 16);
    ASSERT_EQ(image.height, 16);
    ASSERT_EQ(image.channels, GetParam().channels);
    ASSERT_EQ(image.pixels.size(), 16U * 16U * static_cast<std::size_t>(image.channels));
    const std::uint8_t alpha = GetParam().alphaAtTheLeft;
    expectPixel(image, 2, 2, {255, 0, 0, alpha}, GetParam().tolerance);
    expectPixel(image, 13, 2, {0, 255, 0, 255}, GetParam().tolerance);
    expectPixel(image, 2, 13, {0, 0, 255, alpha}, GetParam().tolerance);
    expectPixel(image, 13, 13, {255, 255, 255, 255}, GetParam().tolerance);
}

// Lossy compression changes even areas of one colour a little.
constexpr int kLossOfJpeg = 4;

INSTANTIATE_TEST_SUITE_P(
    Formats, ReadImageEachImageFile,
    testing::Values(ImageFile{"quadrants.png", 3, 255, 0}, ImageFile{"palette.png", 3, 255, 0},
                    ImageFile{"half.png", 4, 0, 0}, ImageFile{"quadrants.jpg", 3, 255, kLossOfJpeg},
                    ImageFile{"progressive.jpg", 3, 255, kLossOfJpeg}, ImageFile{"quadrants.tga", 3, 255, 0},
                    ImageFile{"half.tga", 4, 0, 0}, ImageFile{"quadrants.bmp", 3, 255, 0},
                    ImageFile{"palette.bmp", 3, 255, 0}),
    [](const auto& test) {
        std::string name = test.param.name;
        name.replace(name.find('.'), 1, "_");
        return name;
    });

TEST(ReadImage, RefusesWhatIsNoImage) {
    for (const std::string& bytes : {std::string(), std::string("v 0 0 0\n"), std::string(100, '\0')}) {
        EXPECT_EQ(refusalOf([&] { return qelview::readImage(bytes); }), "not a PNG, JPEG, TGA or BMP image");
    }
}

TEST(ReadImage, RefusesADamagedImage) {
    std::string bytes = corpusBytes("quadrants.png");
    bytes.resize(bytes.size() - 20);
    EXPECT_EQ(refusalOf([&] { return qelview::readImage(bytes); }), "a damaged image");
}

TEST(ReadImage, RefusesAMonstrousImageByItsHeader) {
    EXPECT_EQ(refusalOf([] { return qelview::readImage(pngHead(8193, 8192)); }),
              "too large: 8193 x 8192 pixels");
    // As large as may be: its pixels are missing only.
    EXPECT_EQ(refusalOf([] { return qelview::readImage(pngHead(16384, 4096)); }), "a damaged image");
    EXPECT_EQ(refusalOf([] { return qelview::readImage(qel::test::fourPixels(), 3); }),
              "too large: 2 x 2 pixels");
}

TEST(ReadImage, RefusesAFileThatUnpacksToMoreThanItsPixels) {
    // One pixel of the header, four megabytes of them in the file.
    EXPECT_EQ(refusalOf([] { return qelview::readImage(corpusBytes("bomb.png")); }),
              "takes too much memory to decode");
}

/// A PNG file whose header says one pixel, and whose data unpack to `rows` rows of a thousand black pixels.
std::string pngOfOnePixel(int rows) {
    constexpr int kWidth = 1000;
    const qel::test::TemporaryFile black("black.png", "");
    EXPECT_TRUE(qelview::writePng(
        black.path(),
        {kWidth, rows, std::vector<std::uint8_t>(3U * kWidth * static_cast<std::size_t>(rows))}));
    const std::string file = qelview::readBytes(black.path(), 1U << 20U);
    constexpr std::size_t kSizeBeforeName = 4;
    constexpr std::size_t kEmptyChunk = 12;
    const std::string head = pngHead(1, 1);
    return head.substr(0, head.size() - kEmptyChunk) + file.substr(file.find("IDAT") - kSizeBeforeName);
}

TEST(ReadImage, UnpacksUpToAMegabyteMoreThanItsPixels) {
    const TextureImage image = qelview::readImage(pngOfOnePixel(66));
    expectPixel(image, 0, 0, {0, 0, 0, 255}, 0);
    // Growing buffers count as often as they grow.
    EXPECT_EQ(refusalOf([] { return qelview::readImage(pngOfOnePixel(200)); }),
              "takes too much memory to decode");
}

TEST(ModelImages, ReadsEachFileOnce) {
    const qel::test::TemporaryFile file("once.tga", qel::test::fourPixels());
    qelview::ModelImages images(file.path().parent_path() / "model.obj");
    const auto first = images.fileNamed("qelview-test-once.tga");
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first, images.fileNamed("qelview-test-once.tga"));
}

TEST(ModelImages, TakesFilesNextToTheModelOnly) {
    const qel::test::TemporaryFile file("elsewhere.tga", qel::test::fourPixels());
    qelview::ModelImages images(file.path().parent_path() / "folder" / "model.obj");
    EXPECT_EQ(refusalOf([&] { return images.fileNamed("../qelview-test-elsewhere.tga"); }),
              "image '../qelview-test-elsewhere.tga': not a file next to the model");
    EXPECT_NE(refusalOf([&] { return images.fileNamed(file.path().string()); }), "");
    EXPECT_EQ(refusalOf([&] { return images.fileNamed("absent.png"); }),
              "image 'absent.png': the file cannot be read");
    // Reported once.
    EXPECT_EQ(images.fileNamed("absent.png"), nullptr);
}

TEST(ModelImages, RefusesMorePixelsThanAModelMayHave) {
    qelview::ModelImages images("model.obj");
    EXPECT_NE(images.decoded("image 3", qel::test::fourPixels()), nullptr);
    images.takePixels(qelview::kMostPixelsOfAModel - 8);
    EXPECT_NE(images.decoded("image 3", qel::test::fourPixels()), nullptr);
    EXPECT_EQ(refusalOf([&] {
                  images.takePixels(1);
                  return 0;
              }),
              "the images of the model are too large");
    EXPECT_EQ(refusalOf([&] { return images.decoded("image 3", qel::test::fourPixels()); }),
              "image 3: too large: 2 x 2 pixels");
}

}  // namespace
