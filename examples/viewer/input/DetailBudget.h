#pragma once

#include <cstddef>

namespace qelview {

/// Decides how much of a scene is drawn while the camera moves, so that frames stay within their time. When
/// the camera stops, everything is drawn.
class DetailBudget {
  public:
    /// Longest frame time while the camera moves.
    static constexpr double kMilliseconds = 50.0;
    /// The largest number of parts of which one is drawn.
    static constexpr std::size_t kThinnest = 64;

    /// One in how many parts the next frame draws; 1 draws all.
    [[nodiscard]] std::size_t partsPerDrawn(bool isMoving) const { return isMoving ? wanted : 1; }
    /// Reports how long a frame took that drew one in `partsPerDrawn` parts.
    void addFrameTime(double milliseconds, std::size_t partsPerDrawn);
    /// Starts again for another scene.
    void reset() { wanted = 1; }

  private:
    std::size_t wanted = 1;
};

}  // namespace qelview
