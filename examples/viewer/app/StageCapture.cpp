#include <QString>
#include <cstdint>
#include <fstream>
#include <system_error>
#include <utility>

#include "Enve2d.h"
#include "Stage.h"

namespace qelview {

namespace {

constexpr std::uint32_t kHeaderBytes = 54;
constexpr std::uint32_t kBytesPerPixel = 3;

/// The display reports no failure of a file and stays in its capture: so this is asked before.
bool canBeWritten(const std::filesystem::path& file) {
    return std::ofstream(file, std::ios::binary | std::ios::trunc).good();
}

}  // namespace

bool Stage::capture(const std::filesystem::path& file) {
    if (!canBeWritten(file)) {
        return false;
    }
    const auto wholeWidth = static_cast<std::uint32_t>(camera().getWidth());
    const std::uint32_t width = wholeWidth < 4 ? wholeWidth : wholeWidth / 4 * 4;
    const auto height = static_cast<std::uint32_t>(camera().getHeight());
    chooseClippingDistances();
    qel::Enve2d part(0.0, 0.0, width, height);
    std::error_code error;
    if (display->beginCapture(width, height, &part, QString::fromStdWString(file.wstring())) != 0) {
        std::filesystem::remove(file, error);
        return false;
    }
    Annotations shown;
    shown.mark = notes.mark;
    shown.localFrame = notes.localFrame;
    std::swap(shown, notes);
    const std::size_t parts = std::exchange(partsPerDrawn, 1);
    drawContent();
    camera().updateView();
    camera().drawAxes();
    std::swap(shown, notes);
    partsPerDrawn = parts;
    display->saveBitmap();
    return std::filesystem::file_size(file, error) == kHeaderBytes + width * height * kBytesPerPixel;
}

}  // namespace qelview
