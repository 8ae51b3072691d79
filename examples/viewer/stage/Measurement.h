#pragma once

#include <string>
#include <vector>

#include "SceneParts.h"

namespace qelview {

/// What points that follow one another measure, in model units. Directions without an up axis are those of the coordinates.
struct Measurement {
    /// From the last point but one to the last.
    qel::XPnt3d step;
    double distance = 0.0;
    /// Length of the step seen from above.
    double horizontal = 0.0;
    /// Height of the step, positive upwards.
    double rise = 0.0;
    double slopeDegrees = 0.0;
    /// Along all points.
    double pathLength = 0.0;
    /// Of the polygon through all points, in the plane that fits them best, and seen from above; 0 below three points.
    double area = 0.0;
    double areaFromAbove = 0.0;
};

/// @param points one at least.
[[nodiscard]] Measurement measure(const Points& points, UpAxis up);

struct MeasurementLine {
    std::string name;
    std::string value;
};

/// The last point and what has been measured up to it, for the view.
/// @param points one at least, relative to `origin`.
/// @param size of the scene; it decides how many digits mean something.
[[nodiscard]] std::vector<MeasurementLine> measurementLines(const Points& points, const qel::XPnt3d& origin,
                                                            UpAxis up, double size);

/// A line for each point with its coordinates and what is measured from the point before, with every digit that a double holds for certain.
/// Tabulators part the columns, so that spreadsheets take it.
[[nodiscard]] std::string measurementTable(const Points& points, const qel::XPnt3d& origin, UpAxis up);

}  // namespace qelview
