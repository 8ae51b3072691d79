#include "LoadTask.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <utility>

#include "FileBytes.h"
#include "ReadFile.h"
#include "SpatialParts.h"

namespace qelview {

Scene loadScene(const std::vector<std::string>& files, UpAxis up, Progress& progress, Stopwatch& watch) {
    Scene scene;
    const auto count = static_cast<double>(files.size());
    for (std::size_t i = 0; i < files.size(); ++i) {
        const auto index = static_cast<double>(i);
        Scene next = readFile(pathOf(files[i]),
                              ProgressStretch(progress, index / count, (index + 1.0) / count), watch);
        next.up = next.isUpKnown ? next.up : up;
        if (i == 0) {
            scene = std::move(next);
        } else {
            scene.append(std::move(next));
        }
    }
    if (!files.empty()) {
        const std::string others =
            files.size() > 1 ? " and " + std::to_string(files.size() - 1) + " more" : "";
        scene.title = utf8(pathOf(files.front()).filename()) + others;
    }
    scene.moveToOrigin();
    watch.lap("middle");
    std::for_each(scene.meshes.begin(), scene.meshes.end(), [](TriangleMesh& mesh) { sortIntoParts(mesh); });
    std::for_each(scene.clouds.begin(), scene.clouds.end(), [](PointCloud& cloud) { sortIntoParts(cloud); });
    watch.lap("parts");
    return scene;
}

void printWarnings(const Scene& scene) {
    for (const std::string& warning : scene.warnings) {
        std::fprintf(stderr, "qelview: warning: %s\n", warning.c_str());
    }
    std::fflush(stderr);
}

LoadTask::LoadTask(std::vector<std::string> files, UpAxis up)
    : LoadTask(Work([wanted = std::move(files), up](Progress& progressOfLoad, Stopwatch& watchOfLoad) {
          return loadScene(wanted, up, progressOfLoad, watchOfLoad);
      })) {}

LoadTask::LoadTask(Work work)
    : worker([this, wanted = std::move(work)] {
          try {
              scene = wanted(progress, watch);
          } catch (...) {
              failure = std::current_exception();
          }
          done = true;
      }) {}

LoadTask::~LoadTask() {
    cancel();
    if (worker.joinable()) {
        worker.join();
    }
}

Scene LoadTask::takeScene() {
    worker.join();
    if (failure) {
        std::rethrow_exception(failure);
    }
    return std::move(scene);
}

Scene waitWithText(LoadTask& task) {
    using Clock = std::chrono::steady_clock;
    const Clock::time_point begin = Clock::now();
    int shownPercent = -1;
    while (!task.isDone()) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        const int percent = static_cast<int>(task.progressDone() * 100.0);
        if (Clock::now() - begin > std::chrono::milliseconds(kQuietMilliseconds) && percent != shownPercent) {
            std::fprintf(stderr, "\rqelview: loading, %d %%", percent);
            std::fflush(stderr);
            shownPercent = percent;
        }
    }
    if (shownPercent >= 0) {
        std::fputc('\n', stderr);
    }
    return task.takeScene();
}

}  // namespace qelview
