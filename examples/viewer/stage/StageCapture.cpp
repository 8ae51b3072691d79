#include <QString>
#include <cstdint>
#include <fstream>
#include <system_error>
#include <utility>

#include "BitmapFile.h"
#include "CaptureName.h"
#include "Enve2d.h"
#include "QelGl.h"
#include "QelHostKit.h"
#include "Stage.h"

namespace qelview {

namespace {

/// The display reports no failure of a file: what is there after a capture must not be from before it.
bool removeOldPicture(const std::filesystem::path& file) {
    std::error_code error;
    return !std::filesystem::is_regular_file(file, error) || std::filesystem::remove(file, error);
}

CaptureEnd endOf(const std::filesystem::path& file, std::uint32_t width, std::uint32_t height) {
    // Opened rather than asked for: a folder is no file, and a device is one.
    if (!std::ifstream(file, std::ios::binary).is_open()) {
        return CaptureEnd::NotWritten;
    }
    return isWholeBitmap(file, width, height) ? CaptureEnd::Whole : CaptureEnd::NotWhole;
}

bool begin(IQelDisplay& display, std::uint32_t width, std::uint32_t height, double viewWidth,
           double viewHeight, const std::wstring& file) {
    qel::Enve2d part(0.0, 0.0, viewWidth, viewHeight);
    return display.beginCapture(width, height, &part, QString::fromStdWString(file)) == 0;
}

/// Of the bitmap, which is current.
PixelImage readPixels(int width, int height) {
    PixelImage image{
        width, height,
        std::vector<std::uint8_t>(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3)};
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, width, height, GL_RGB, GL_UNSIGNED_BYTE, image.rgb.data());
    return image;
}

}  // namespace

std::string reasonOf(CaptureEnd end) {
    switch (end) {
        case CaptureEnd::NotWhole:
            return "is not complete; make room on the disk and capture again";
        case CaptureEnd::TooLarge:
            return "is too large for the graphics driver; choose a smaller size with R";
        default:
            return "cannot be written; choose another folder or name";
    }
}

CaptureEnd Stage::capture(const std::filesystem::path& file, int times) {
    if (!removeOldPicture(file)) {
        return CaptureEnd::NotWritten;
    }
    return hasPngEnding(file) ? capturePng(file, times) : captureBitmap(file, times);
}

CaptureEnd Stage::captureBitmap(const std::filesystem::path& file, int times) {
    const auto wholeWidth =
        static_cast<std::uint32_t>(camera().getWidth()) * static_cast<std::uint32_t>(times);
    const std::uint32_t width = wholeWidth < 4 ? wholeWidth : wholeWidth / 4 * 4;
    const auto height = static_cast<std::uint32_t>(camera().getHeight()) * static_cast<std::uint32_t>(times);
    const auto viewHeight = static_cast<double>(camera().getHeight());
    qel::fitClippingPlanes(camera(), content.extent);
    if (!begin(*display, width, height, static_cast<double>(width) / times, viewHeight, file.wstring())) {
        return CaptureEnd::TooLarge;
    }
    drawCapture(times);
    display->saveBitmap();
    return endOf(file, width, height);
}

CaptureEnd Stage::capturePng(const std::filesystem::path& file, int times) {
    const std::optional<PixelImage> image = capturedPixels(times);
    if (!image) {
        return CaptureEnd::TooLarge;
    }
    if (writePng(file, *image)) {
        return CaptureEnd::Whole;
    }
    std::error_code error;
    return std::filesystem::exists(file, error) ? CaptureEnd::NotWhole : CaptureEnd::NotWritten;
}

std::optional<PixelImage> Stage::capturedPixels(int times) {
    const int width = static_cast<int>(camera().getWidth()) * times;
    const int height = static_cast<int>(camera().getHeight()) * times;
    qel::fitClippingPlanes(camera(), content.extent);
    // The pixels are read before the display writes its file, which goes nowhere.
    if (!begin(*display, static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height),
               static_cast<double>(camera().getWidth()), static_cast<double>(camera().getHeight()), L"NUL")) {
        return std::nullopt;
    }
    drawCapture(times);
    std::optional<PixelImage> image = readPixels(width, height);
    display->saveBitmap();
    return image;
}

void Stage::drawCapture(int times) {
    Annotations shown;
    shown.marks = notes.marks;
    shown.isMeasuring = notes.isMeasuring;
    shown.localFrame = notes.localFrame;
    std::swap(shown, notes);
    const std::size_t thinningOfWindow = std::exchange(thinning, 1);
    captureTimes = times;
    // The bitmap's context has no textures yet.
    HostTextures texturesOfWindow = std::exchange(textures, {});
    drawContent();
    camera().updateView();
    camera().drawAxes();
    std::swap(shown, notes);
    thinning = thinningOfWindow;
    captureTimes = 1;
    textures.release();
    textures = std::move(texturesOfWindow);
}

}  // namespace qelview
