#pragma once

#include <vector>

#include "XPnt3d.h"

namespace qelview {

struct CameraPlace {
    qel::XPnt3d eye;
    qel::XPnt3d target;
    qel::XPnt3d up;
};

/// The part of a view that a fitted image may fill: shares of the distance from its middle to its edges.
struct UsableView {
    double sideways = 0.94;
    double above = 0.86;
    double below = 0.86;
};

/// The nearest place from which a camera that keeps its direction sees all points in perspective, with a
/// margin for texts. The points' image is in the middle of the usable part.
/// @param camera eye and target must differ.
/// @param fovY vertical field of view in degrees.
/// @param aspect width of the view over its height.
[[nodiscard]] CameraPlace placeToSee(const std::vector<qel::XPnt3d>& points, const CameraPlace& camera,
                                     double fovY, double aspect, const UsableView& usable = {});

/// How much of the part of a view within the margins an image fills: above 1 it reaches beyond.
/// @param places of the image's points in pixels, from the lower left.
[[nodiscard]] double shareOfUsableView(const std::vector<qel::XPnt3d>& places, double width, double height,
                                       const UsableView& usable = {});

}  // namespace qelview
