#include <windows.h>
// After windows.h, which it needs.
#include <shellapi.h>

#include <cstdio>
#include <exception>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "LibraryFolders.h"
#include "LoadTask.h"
#include "MapRun.h"
#include "Options.h"
#include "PictureRun.h"
#include "ProgressWindow.h"
#include "ReadError.h"
#include "SampleMap.h"
#include "SampleScene.h"
#include "ScriptRun.h"
#include "SystemWindow.h"
#include "TourRun.h"
#include "ViewerWindow.h"

namespace {

/// The command line in UTF-8, whatever the code page of the system, without the name of the program.
std::vector<std::string> readArguments() {
    int count = 0;
    const std::unique_ptr<LPWSTR, decltype(&LocalFree)> all(CommandLineToArgvW(GetCommandLineW(), &count),
                                                            &LocalFree);
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i) {
        arguments.push_back(qelview::toUtf8(all.get()[i]));
    }
    return arguments;
}

qelview::Scene loadWanted(const qelview::Options& options) {
    if (options.files.empty()) {
        return options.showsMap() ? qelview::makeSampleMap() : qelview::makeSampleScene();
    }
    qelview::LoadTask task(options.files);
    return options.isAttended() ? qelview::waitWithWindow(task) : qelview::waitWithText(task);
}

qelview::ExitCode showScene(const qelview::Options& options, const qelview::Scene& scene) {
    if (options.showsMap()) {
        return qelview::runMap(options, scene);
    }
    if (!options.script.empty()) {
        return qelview::playScript(options, scene);
    }
    if (!options.tour.empty()) {
        return qelview::writeTour(options, scene);
    }
    return options.writesPictures() ? qelview::writePictures(options, scene)
                                    : qelview::ViewerWindow().run(options, scene);
}

qelview::ExitCode runViewer(const qelview::Options& options) {
    try {
        return showScene(options, loadWanted(options));
    } catch (const qelview::ReadCancelled&) {
        return qelview::ExitCode::Success;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "qelview: %s\n", error.what());
        std::fflush(stderr);
        if (options.isAttended()) {
            qelview::tellProblem(nullptr, std::string(error.what()) +
                                              "\n\nMend the file, or start qelview without one and open "
                                              "another with Ctrl+O.");
        }
        return qelview::ExitCode::BadFile;
    }
}

}  // namespace

int main() {
    // Before anything else can load a library by its name.
    qelview::restrictLibraryFolders();
    // Sizes are real pixels on every screen.
    SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
    const std::variant<qelview::Options, qelview::Ending> parsed = qelview::parseOptions(readArguments());
    if (const auto* const ending = std::get_if<qelview::Ending>(&parsed)) {
        const bool isFine = ending->code == qelview::ExitCode::Success;
        std::fputs(ending->text.c_str(), isFine ? stdout : stderr);
        return static_cast<int>(ending->code);
    }
    return static_cast<int>(runViewer(std::get<qelview::Options>(parsed)));
}
