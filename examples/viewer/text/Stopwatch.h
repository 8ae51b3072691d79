#pragma once

#include <chrono>
#include <string>
#include <utility>
#include <vector>

namespace qelview {

/// Measures the consecutive parts of a run.
class Stopwatch {
  public:
    struct Part {
        std::string name;
        double seconds = 0.0;
    };

    /// Ends the current part, which began at the end of the last one. Parts of the same name are summed.
    void lap(const std::string& name) {
        const Clock::time_point now = Clock::now();
        const double seconds = std::chrono::duration<double>(now - std::exchange(last, now)).count();
        for (Part& part : known) {
            if (part.name == name) {
                part.seconds += seconds;
                return;
            }
        }
        known.push_back({name, seconds});
    }
    [[nodiscard]] const std::vector<Part>& parts() const { return known; }

  private:
    using Clock = std::chrono::steady_clock;

    Clock::time_point last = Clock::now();
    std::vector<Part> known;
};

}  // namespace qelview
