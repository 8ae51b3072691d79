#pragma once

#include <limits>

#include "QelArrayElements.h"
#include "QelColor.h"
#include "SceneParts.h"

namespace qelview {

/// What meshes and clouds are coloured by.
enum class Colouring : std::uint8_t {
    /// The colours and textures of the files.
    Own,
    /// Low is blue, high is red.
    Height,
    /// One colour for everything.
    Plain,
};

/// The lowest and the highest place along the axis that points up, in model units; not valid until something
/// is included.
struct HeightRange {
    double low = std::numeric_limits<double>::infinity();
    double high = -std::numeric_limits<double>::infinity();
    UpAxis up = UpAxis::Z;

    void include(const qel::ArrayVertex& vertex);
    [[nodiscard]] bool isValid() const { return low <= high; }
};

/// @param share of the way from low to high; the range is flat if it is not a number, and then has the middle's colour.
[[nodiscard]] qel::QelColor3f colorOfHeight(double share);

/// The colour of a place in a range.
[[nodiscard]] qel::QelColor3f colorIn(const HeightRange& range, const qel::ArrayVertex& vertex);

}  // namespace qelview
