#include <filesystem>

#include "Clipboard.h"
#include "ViewerWindow.h"

/// Pictures of the view for files and for the clipboard.

namespace qelview {

void ViewerWindow::captureToFreeName() {
    const std::filesystem::path folder = std::filesystem::current_path();
    const std::filesystem::path file =
        captureFile.empty() ? freeCaptureName(folder) : std::filesystem::path(toWide(captureFile));
    static_cast<void>(capture(file));
}

bool ViewerWindow::capture(const std::filesystem::path& file) {
    refresh();
    const CaptureEnd end = writeCapture(file, capturedPixels());
    const std::string name = toUtf8(file.filename().wstring());
    const bool isWhole = end == CaptureEnd::Whole;
    say(isWhole ? "Captured " + name : "The capture " + name + " " + reasonOf(end));
    return isWhole;
}

std::optional<PixelImage> ViewerWindow::capturedPixels() {
    return quartet ? quartet->capturedPixels(captureTimes) : stage->capturedPixels(captureTimes);
}

void ViewerWindow::copyView() {
    refresh();
    const std::optional<PixelImage> image = capturedPixels();
    if (!image) {
        say("The picture " + reasonOf(CaptureEnd::TooLarge));
        return;
    }
    say(copyPicture(window.get(), *image) ? "View copied"
                                          : "The clipboard is in use by another program; try again");
}

void ViewerWindow::nextCaptureSize() {
    constexpr int kLargest = 4;
    captureTimes = captureTimes == kLargest ? 1 : captureTimes * 2;
    const ClientSize size = clientSizeOf(window.get());
    say("Captures have " + std::to_string(size.width * captureTimes) + " x " +
        std::to_string(size.height * captureTimes) + " pixels");
}

}  // namespace qelview
