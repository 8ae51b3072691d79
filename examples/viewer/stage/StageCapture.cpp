#include <QString>
#include <cstdint>
#include <fstream>
#include <system_error>
#include <utility>

#include "BitmapFile.h"
#include "CaptureName.h"
#include "Enve2d.h"
#include "FramePixels.h"
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
    return write(file, capturedPixels(times));
}

CaptureEnd Stage::write(const std::filesystem::path& file, const std::optional<PixelImage>& image) {
    if (!image) {
        return CaptureEnd::TooLarge;
    }
    if (!removeOldPicture(file)) {
        return CaptureEnd::NotWritten;
    }
    if (!hasPngEnding(file)) {
        return writeBitmap(file, *image);
    }
    if (writePng(file, *image)) {
        return CaptureEnd::Whole;
    }
    std::error_code error;
    return std::filesystem::exists(file, error) ? CaptureEnd::NotWhole : CaptureEnd::NotWritten;
}

CaptureEnd Stage::writeBitmap(const std::filesystem::path& file, const PixelImage& image) {
    const int width = image.width < 4 ? image.width : image.width / 4 * 4;
    if (!beginCapture(width, image.height, file.wstring())) {
        return CaptureEnd::TooLarge;
    }
    display->setOrtho2D();
    drawPixels(image);
    display->saveBitmap();
    return endOf(file, static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(image.height));
}

bool Stage::beginCapture(int width, int height, const std::wstring& file) {
    qel::Enve2d all(0.0, 0.0, static_cast<double>(camera().getWidth()),
                    static_cast<double>(camera().getHeight()));
    return display->beginCapture(static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height), &all,
                                 QString::fromStdWString(file)) == 0;
}

std::optional<PixelImage> Stage::capturedPixels(int times) {
    const int width = static_cast<int>(camera().getWidth()) * times;
    const int height = static_cast<int>(camera().getHeight()) * times;
    qel::fitClippingPlanes(camera(), content.extent);
    // The pixels are read before the display writes its file, which goes nowhere.
    if (!beginCapture(width, height, L"NUL")) {
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
    shown.hasHeading = notes.hasHeading;
    std::swap(shown, notes);
    const std::size_t thinningOfWindow = std::exchange(thinning, 1);
    captureTimes = times;
    // The bitmap's context has no textures yet.
    HostTextures texturesOfWindow = std::exchange(textures, {});
    drawContent();
    std::swap(shown, notes);
    thinning = thinningOfWindow;
    captureTimes = 1;
    textures.release();
    textures = std::move(texturesOfWindow);
}

}  // namespace qelview
