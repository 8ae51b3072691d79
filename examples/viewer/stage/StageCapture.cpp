#include <QString>
#include <cstdint>
#include <utility>

#include "Enve2d.h"
#include "FramePixels.h"
#include "QelHostKit.h"
#include "Stage.h"

namespace qelview {

std::optional<PixelImage> Stage::capturedPixels(int times) {
    const int width = static_cast<int>(camera().getWidth()) * times;
    const int height = static_cast<int>(camera().getHeight()) * times;
    qel::fitClippingPlanes(camera(), content.extent);
    qel::Enve2d all(0.0, 0.0, static_cast<double>(camera().getWidth()),
                    static_cast<double>(camera().getHeight()));
    // The pixels are read before the display writes its file, which goes nowhere.
    if (display->beginCapture(static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height), &all,
                              QString("NUL")) != 0) {
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
    HostView keptOfWindow = std::exchange(kept, {});
    drawContent();
    std::swap(shown, notes);
    thinning = thinningOfWindow;
    captureTimes = 1;
    kept.release();
    kept = std::move(keptOfWindow);
}

}  // namespace qelview
