#pragma once

#include <cstddef>

namespace qelview {

/// Decides how much of a scene is drawn while the camera moves, so that a frame keeps to its time. At rest
/// everything is drawn.
class DetailBudget {
  public:
    /// Longest time of a frame while the camera moves.
    static constexpr double kMilliseconds = 50.0;
    /// Fewer than one of so many parts are never drawn.
    static constexpr std::size_t kThinnest = 64;

    /// Of how many parts one is drawn in the next frame: 1 draws all.
    [[nodiscard]] std::size_t partsPerDrawn(bool isMoving) const { return isMoving ? wanted : 1; }
    /// Tells how long a frame took that drew one of `partsPerDrawn` parts.
    void frameTook(double milliseconds, std::size_t partsPerDrawn);
    /// Another scene: nothing is known of it.
    void reset() { wanted = 1; }

  private:
    std::size_t wanted = 1;
};

}  // namespace qelview
