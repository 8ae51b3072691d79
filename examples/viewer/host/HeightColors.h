#pragma once

#include <optional>

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

/// The lowest and the highest place along the axis that points up, in model units.
struct HeightRange {
    double low = 0.0;
    double high = 0.0;
    UpAxis up = UpAxis::Z;

    void include(const qel::ArrayVertex& vertex);
    [[nodiscard]] bool isValid() const { return low <= high; }
    /// A range that is not valid until something is included.
    [[nodiscard]] static HeightRange nothing(UpAxis up);
};

/// @param share of the way from low to high; the range is flat if it is not a number, and then has the middle's colour.
[[nodiscard]] qel::QelColor3f colorOfHeight(double share);

/// The colour of a place in a range.
[[nodiscard]] qel::QelColor3f colorIn(const HeightRange& range, const qel::ArrayVertex& vertex);

}  // namespace qelview
