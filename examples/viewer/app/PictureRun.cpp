#include "PictureRun.h"

#include <cstdio>
#include <memory>
#include <string>
#include <utility>

#include "Stage.h"
#include "SystemWindow.h"

namespace qelview {

namespace {

constexpr unsigned kStandardViews = 8;

void choose(Stage& stage, const Options& options, unsigned view) {
    stage.setView(view);
    if (options.isOrthographic != stage.camera().isOrtho()) {
        stage.switchProjection();
        stage.fit();
    }
}

bool writeView(Stage& stage, const Options& options, unsigned view, const std::string& file) {
    choose(stage, options, view);
    return writePicture(file, stage.picture());
}

bool writeCapture(Stage& stage, const Options& options) {
    choose(stage, options, options.view);
    stage.show();
    const CaptureEnd end = writeCapture(toWide(options.capture), stage.capturedPixels(options.captureTimes));
    if (end != CaptureEnd::Whole) {
        std::fprintf(stderr, "qelview: %s: the capture %s\n", options.capture.c_str(), reasonOf(end).c_str());
    }
    return end == CaptureEnd::Whole;
}

}  // namespace

bool writePicture(const std::string& file, const PixelImage& image) {
    const bool isWritten = writePng(toWide(file), image);
    if (!isWritten) {
        std::fprintf(stderr, "qelview: %s: could not write the picture\n", file.c_str());
    }
    return isWritten;
}

ExitCode writePictures(const Options& options, Scene scene, Stopwatch& watch) {
    const OwnedWindow window = createHiddenWindow({options.width, options.height});
    const std::unique_ptr<Stage> stage = window ? Stage::open(window.get(), std::move(scene)) : nullptr;
    if (stage == nullptr) {
        reportNoContext(false);
        return ExitCode::NoContext;
    }
    watch.lap("prepared");
    stage->resize({options.width, options.height});
    bool areWritten = options.out.empty() || writeView(*stage, options, options.view, options.out);
    for (unsigned view = 0; areWritten && !options.viewsOut.empty() && view < kStandardViews; ++view) {
        areWritten = writeView(*stage, options, view, options.viewsOut + std::to_string(view) + ".png");
    }
    if (areWritten && !options.capture.empty()) {
        areWritten = writeCapture(*stage, options);
    }
    watch.lap("picture");
    return areWritten ? ExitCode::Success : ExitCode::Usage;
}

}  // namespace qelview
