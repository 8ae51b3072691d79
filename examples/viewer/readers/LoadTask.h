#pragma once

#include <exception>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "Progress.h"
#include "Scene.h"
#include "Stopwatch.h"

namespace qelview {

/// Reads files into one scene, moved to the origin.
/// @param files in UTF-8.
/// @param up where the format of a file does not say.
/// @param watch gets the parts of `readFile`, "middle" and "parts".
/// @throws ReadError, ReadCancelled as `readFile` does; nothing is shown of the other files then.
[[nodiscard]] Scene loadScene(const std::vector<std::string>& files, UpAxis up, Progress& progress,
                              Stopwatch& watch);

/// Writes the warnings of a scene to stderr.
void printWarnings(const Scene& scene);

/// Runs `loadScene` on its own thread, so that the caller stays responsive.
class LoadTask {
  public:
    using Work = std::function<Scene(Progress&, Stopwatch&)>;

    LoadTask(std::vector<std::string> files, UpAxis up);
    /// Any other work that ends in a scene.
    explicit LoadTask(Work work);
    /// Cancels a running load and waits for its thread.
    ~LoadTask();
    LoadTask(const LoadTask&) = delete;
    LoadTask& operator=(const LoadTask&) = delete;

    /// The times of the parts, once the load is done.
    [[nodiscard]] const Stopwatch& times() const { return watch; }
    [[nodiscard]] bool isDone() const { return done; }
    /// From 0 to 1.
    [[nodiscard]] double progressDone() const { return progress.done(); }
    void cancel() { progress.cancel(); }
    /// Waits for the end of the load.
    /// @throws what `loadScene` threw.
    [[nodiscard]] Scene takeScene();

  private:
    Progress progress;
    Stopwatch watch;
    Scene scene;
    std::exception_ptr failure;
    std::atomic<bool> done = false;
    std::thread worker;
};

/// Waits for a load and writes a line of its progress to standard error if it lasts.
[[nodiscard]] Scene waitWithText(LoadTask& task);

/// How long a load may last before its progress is shown, in milliseconds.
inline constexpr int kQuietMilliseconds = 500;

}  // namespace qelview
