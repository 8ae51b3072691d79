#include <windows.h>
// After windows.h, which it needs.
#include <shellapi.h>

#include <cstdio>
#include <exception>
#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "LibraryFolders.h"
#include "LoadTask.h"
#include "MapRun.h"
#include "Options.h"
#include "PictureRun.h"
#include "ProgressWindow.h"
#include "ReadError.h"
#include "RecentFiles.h"
#include "RecentStore.h"
#include "SampleMap.h"
#include "SampleScene.h"
#include "ScriptRun.h"
#include "SystemWindow.h"
#include "ViewerWindow.h"

namespace {

/// The command line in UTF-8, independent of the system's code page, without the program's name.
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

/// The up axis of the command line, or else the one chosen for the file before.
qelview::UpAxis upOf(const qelview::Options& options) {
    if (options.up || !options.isAttended()) {
        return options.up.value_or(qelview::UpAxis::Z);
    }
    const qelview::RecentFiles recent(qelview::readRecentFiles(qelview::kProgramKey));
    return recent.upOf(qelview::absoluteName(options.files.front()));
}

qelview::Scene loadWanted(const qelview::Options& options, qelview::Stopwatch& watch) {
    if (options.files.empty()) {
        return options.showsMap() ? qelview::makeSampleMap() : qelview::makeSampleScene();
    }
    qelview::LoadTask task(options.files, upOf(options));
    qelview::Scene scene = options.isAttended() ? qelview::waitWithWindow(task) : qelview::waitWithText(task);
    watch = task.times();
    qelview::printWarnings(scene);
    return scene;
}

void printTimes(const qelview::Stopwatch& watch) {
    for (const qelview::Stopwatch::Part& part : watch.parts()) {
        std::fprintf(stderr, "qelview: %-9s %7.3f s\n", part.name.c_str(), part.seconds);
    }
}

qelview::ExitCode showScene(const qelview::Options& options, qelview::Scene scene,
                            qelview::Stopwatch& watch) {
    if (options.showsMap()) {
        return qelview::runMap(options, scene);
    }
    if (!options.script.empty()) {
        return qelview::playScript(options, std::move(scene));
    }
    return options.writesPictures() ? qelview::writePictures(options, std::move(scene), watch)
                                    : qelview::ViewerWindow().run(options, std::move(scene));
}

qelview::ExitCode runViewer(const qelview::Options& options) {
    try {
        qelview::Stopwatch watch;
        qelview::Scene scene = loadWanted(options, watch);
        const qelview::ExitCode code = showScene(options, std::move(scene), watch);
        if (options.isTimed) {
            printTimes(watch);
        }
        return code;
    } catch (const qelview::ReadCancelled&) {
        return qelview::ExitCode::Success;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "qelview: %s\n", error.what());
        std::fflush(stderr);
        if (options.isAttended()) {
            qelview::showError(nullptr, std::string(error.what()) +
                                            "\n\nFix the file, or start qelview without a file and open "
                                            "another one with Ctrl+O.");
        }
        return qelview::ExitCode::BadFile;
    }
}

}  // namespace

int main() {
    // Before anything else can load a library by name.
    qelview::restrictLibraryFolders();
    // Sizes are physical pixels on every screen.
    SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
    const std::variant<qelview::Options, qelview::Ending> parsed = qelview::parseOptions(readArguments());
    if (const auto* const ending = std::get_if<qelview::Ending>(&parsed)) {
        const bool isFine = ending->code == qelview::ExitCode::Success;
        std::fputs(ending->text.c_str(), isFine ? stdout : stderr);
        return static_cast<int>(ending->code);
    }
    return static_cast<int>(runViewer(std::get<qelview::Options>(parsed)));
}
