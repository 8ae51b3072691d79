#include "PictureRun.h"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

#include "PngFile.h"
#include "Stage.h"
#include "SystemWindow.h"

namespace qelview {

namespace {

constexpr unsigned kStandardViews = 8;

bool writePicture(Stage& stage, const Options& options, unsigned view, const std::string& file) {
    stage.setView(view);
    if (options.isOrthographic != stage.camera().isOrtho()) {
        stage.switchProjection();
        stage.fit();
    }
    if (!writePng(std::filesystem::path(toWide(file)), stage.picture())) {
        std::fprintf(stderr, "qelview: %s: the picture cannot be written\n", file.c_str());
        return false;
    }
    return true;
}

}  // namespace

ExitCode writePictures(const Options& options, const Scene& scene) {
    const OwnedWindow window = createHiddenWindow({options.width, options.height});
    const std::unique_ptr<Stage> stage = window ? Stage::open(window.get(), scene) : nullptr;
    if (stage == nullptr) {
        reportNoContext(false);
        return ExitCode::NoContext;
    }
    stage->resize({options.width, options.height});
    bool areWritten = options.out.empty() || writePicture(*stage, options, options.view, options.out);
    for (unsigned view = 0; areWritten && !options.viewsOut.empty() && view < kStandardViews; ++view) {
        areWritten = writePicture(*stage, options, view, options.viewsOut + std::to_string(view) + ".png");
    }
    return areWritten ? ExitCode::Success : ExitCode::Usage;
}

}  // namespace qelview
