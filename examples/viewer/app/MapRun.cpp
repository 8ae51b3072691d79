#include "MapRun.h"

#include <array>
#include <string>
#include <utility>

#include "MapWindow.h"
#include "PictureRun.h"

namespace qelview {

namespace {

constexpr std::array<std::pair<MapWindow::Pane, const char*>, MapWindow::kPanes> kPictures{
    {{MapWindow::Pane::Gdi, "-gdi.png"},
     {MapWindow::Pane::Gl, "-gl.png"},
     {MapWindow::Pane::Relief, "-3d.png"}}};

bool writeAll(MapWindow& window, const Options& options) {
    bool areWritten = true;
    if (!options.out.empty()) {
        window.choose(MapWindow::Pane::Gl);
        areWritten = writePicture(options.out, window.picture());
    }
    for (const std::string& prefix : {options.mapOut, options.viewsOut}) {
        for (const auto& [pane, ending] : kPictures) {
            if (areWritten && !prefix.empty()) {
                window.choose(pane);
                areWritten = writePicture(prefix + ending, window.picture());
            }
        }
    }
    return areWritten;
}

}  // namespace

ExitCode runMap(const Options& options, const Scene& scene) {
    const bool isForPictures = options.writesPictures();
    MapWindow window(scene);
    if (!window.open({options.width, options.height}, isForPictures)) {
        reportNoContext(!isForPictures);
        return ExitCode::NoContext;
    }
    if (!isForPictures) {
        window.run();
        return ExitCode::Success;
    }
    return writeAll(window, options) ? ExitCode::Success : ExitCode::Usage;
}

}  // namespace qelview
