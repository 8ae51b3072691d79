#include <QString>
#include <cstdint>
#include <fstream>
#include <system_error>
#include <utility>

#include "BitmapFile.h"
#include "Enve2d.h"
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
    return end == CaptureEnd::NotWhole ? "is not complete; make room on the disk and capture again"
                                       : "cannot be written; choose another folder or name";
}

CaptureEnd Stage::capture(const std::filesystem::path& file) {
    if (!removeOldPicture(file)) {
        return CaptureEnd::NotWritten;
    }
    const auto wholeWidth = static_cast<std::uint32_t>(camera().getWidth());
    const std::uint32_t width = wholeWidth < 4 ? wholeWidth : wholeWidth / 4 * 4;
    const auto height = static_cast<std::uint32_t>(camera().getHeight());
    qel::fitClippingPlanes(camera(), content.extent);
    qel::Enve2d part(0.0, 0.0, width, height);
    if (display->beginCapture(width, height, &part, QString::fromStdWString(file.wstring())) != 0) {
        return CaptureEnd::NotWritten;
    }
    Annotations shown;
    shown.marks = notes.marks;
    shown.isMeasuring = notes.isMeasuring;
    shown.localFrame = notes.localFrame;
    std::swap(shown, notes);
    const std::size_t parts = std::exchange(partsPerDrawn, 1);
    // The bitmap's context has no textures yet.
    HostTextures texturesOfWindow = std::exchange(textures, {});
    drawContent();
    camera().updateView();
    camera().drawAxes();
    std::swap(shown, notes);
    partsPerDrawn = parts;
    textures.release();
    textures = std::move(texturesOfWindow);
    display->saveBitmap();
    return endOf(file, width, height);
}

}  // namespace qelview
