#pragma once

#include <optional>
#include <vector>

#include "CameraFit.h"

namespace qelview {

/// A camera that can be returned to.
struct CameraState {
    CameraPlace place;
    bool isOrthographic = false;

    [[nodiscard]] bool isSameAs(const CameraState& other) const;
};

/// The cameras that a user left, the last one first. The oldest of many are forgotten.
class CameraHistory {
  public:
    /// Call it before the camera moves. A camera that did not move is kept once.
    void add(const CameraState& camera);
    /// Takes the last camera that differs from the one of now; nothing if there is none.
    [[nodiscard]] std::optional<CameraState> back(const CameraState& now);
    void clear() { cameras.clear(); }

  private:
    std::vector<CameraState> cameras;
};

}  // namespace qelview
