#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace qelview {

/// Decides how much of a scene is drawn while the camera moves, so that frames stay within their time. When
/// the camera stops, everything is drawn.
class DetailBudget {
  public:
    /// Longest frame time while the camera moves.
    static constexpr double kMilliseconds = 50.0;
    /// Of so many triangles and points about one is drawn at the least.
    static constexpr std::size_t kThinnest = 64;

    /// One in how many triangles and points the next frame draws; 1 draws all.
    [[nodiscard]] std::size_t thinning(bool isMoving) const { return isMoving ? wanted : 1; }
    /// Reports how long a frame took that drew one in `thinning`.
    void addFrameTime(double milliseconds, std::size_t thinning) {
        // A full frame measures again how much is possible; a thinned frame can only ask for less, or the
        // picture would flicker between two densities.
        const double parts = std::clamp(std::ceil(milliseconds / kMilliseconds), 1.0, double{kThinnest});
        const std::size_t asked = std::min(thinning * static_cast<std::size_t>(parts), kThinnest);
        wanted = thinning == 1 ? asked : std::max(wanted, asked);
    }
    /// Starts again for another scene.
    void reset() { wanted = 1; }

  private:
    std::size_t wanted = 1;
};

}  // namespace qelview
