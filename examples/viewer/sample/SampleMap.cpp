#include "SampleMap.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <string>
#include <utility>

#include "Contours.h"

namespace qelview {

namespace {

constexpr std::size_t kColumnsOfMap = 256;
constexpr std::size_t kRowsOfMap = 168;
/// Metres between the points of the grid, and where it begins.
constexpr double kStep = 250.0;
constexpr double kEast = 412000.0;
constexpr double kNorth = 5630000.0;
/// Metres of height for a height of 1.
constexpr double kRelief = 5200.0;
constexpr std::array<double, 6> kLevels{0.10, 0.22, 0.36, 0.52, 0.70, 0.90};
constexpr LineStyle kCoast{{120, 190, 225}, 1.0F};
constexpr LineStyle kContour{{205, 165, 110}, 1.0F};

/// A number from 0 to 1 that belongs to a corner of a net.
double lattice(std::int64_t x, std::int64_t y) {
    auto mixed = static_cast<std::uint64_t>(x) * 0x9E3779B97F4A7C15U ^
                 static_cast<std::uint64_t>(y) * 0xC2B2AE3D27D4EB4FU;
    mixed ^= mixed >> 29;
    mixed *= 0xBF58476D1CE4E5B9U;
    mixed ^= mixed >> 32;
    return static_cast<double>(mixed & 0xFFFFU) / 65535.0;
}

double smooth(double share) {
    return share * share * (3.0 - 2.0 * share);
}

/// Smooth between the corners of a net.
double noise(double x, double y) {
    const auto left = static_cast<std::int64_t>(std::floor(x));
    const auto low = static_cast<std::int64_t>(std::floor(y));
    const double u = smooth(x - std::floor(x));
    const double v = smooth(y - std::floor(y));
    return std::lerp(std::lerp(lattice(left, low), lattice(left + 1, low), u),
                     std::lerp(lattice(left, low + 1), lattice(left + 1, low + 1), u), v);
}

struct Massif {
    double x;
    double y;
    double height;
    double reach;
};

/// In shares of the map's width.
constexpr std::array<Massif, 9> kMassifs{{{0.26, 0.40, 0.95, 0.085},
                                          {0.38, 0.28, 0.65, 0.070},
                                          {0.33, 0.51, 0.55, 0.060},
                                          {0.68, 0.44, 0.90, 0.080},
                                          {0.79, 0.31, 0.70, 0.065},
                                          {0.58, 0.14, 0.60, 0.050},
                                          {0.90, 0.52, 0.55, 0.040},
                                          {0.11, 0.15, 0.65, 0.050},
                                          {0.52, 0.58, 0.50, 0.035}}};

/// Above the sea where it is positive.
double heightAt(double x, double y) {
    double height = -0.52;
    for (const Massif& massif : kMassifs) {
        const double dx = (x - massif.x) / massif.reach;
        const double dy = (y - massif.y) / massif.reach;
        height += massif.height * std::exp(-0.5 * (dx * dx + dy * dy));
    }
    double share = 0.62;
    double frequency = 9.0;
    for (int octave = 0; octave < 5; ++octave) {
        height += share * (noise(x * frequency + 11.0, y * frequency + 5.0) - 0.5) * 2.0;
        share *= 0.5;
        frequency *= 2.1;
    }
    // The sea closes the map on all sides.
    const double edge = std::min({x, 1.0 - x, y, kRowsOfMap * 1.0 / kColumnsOfMap - y});
    return height - 0.6 * std::exp(-edge / 0.025);
}

HeightGrid makeGrid() {
    HeightGrid grid;
    grid.columns = kColumnsOfMap;
    for (std::size_t row = 0; row < kRowsOfMap; ++row) {
        for (std::size_t column = 0; column < kColumnsOfMap; ++column) {
            const auto x = static_cast<double>(column);
            const auto y = static_cast<double>(row);
            const double share = 1.0 / static_cast<double>(kColumnsOfMap);
            grid.points.push_back(
                {kEast + x * kStep, kNorth + y * kStep, heightAt(x * share, y * share) * kRelief});
        }
    }
    return grid;
}

/// Towns lie low, and apart from each other.
void addTowns(Scene& scene, const HeightGrid& grid) {
    constexpr std::array<const char*, 11> kNames{"Amery",   "Port Ilm", "Sund",     "Vesthaven",
                                                 "Karrow",  "Old Mole", "Brennick", "Tarn",
                                                 "Lindvik", "Skerry",   "Osk"};
    constexpr double kApart = 8200.0;
    PointCloud towns;
    towns.color = {1.0F, 0.55F, 0.25F};
    towns.size = 6.0F;
    for (std::size_t i = 0; i < grid.points.size() && towns.positions.size() < kNames.size(); i += 7) {
        const qel::XPnt3d& place = grid.points[i];
        const bool isLow = place.z > 0.02 * kRelief && place.z < 0.07 * kRelief;
        const bool isApart = std::all_of(
            towns.positions.begin(), towns.positions.end(),
            [&](const auto& other) { return std::hypot(place.x - other.x, place.y - other.y) > kApart; });
        if (isLow && isApart) {
            scene.labels.push_back({place, kNames.at(towns.positions.size())});
            towns.positions.push_back(place);
        }
    }
    scene.clouds.push_back(std::move(towns));
}

}  // namespace

Scene makeSampleMap() {
    const HeightGrid grid = makeGrid();
    Scene scene;
    scene.title = "Islands";
    scene.polygons.push_back({contourLines(grid, 0.0), kCoast});
    for (const double level : kLevels) {
        scene.polylines.push_back({contourLines(grid, level * kRelief), kContour});
    }
    addTowns(scene, grid);
    scene.moveToOrigin();
    return scene;
}

}  // namespace qelview
