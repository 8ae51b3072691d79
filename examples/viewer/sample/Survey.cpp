#include "Survey.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <tuple>
#include <utility>

#include "Landscape.h"

namespace qelview {

namespace {

constexpr double kFullTurn = 2.0 * std::numbers::pi;
/// Keeps lines off the surface that they follow.
constexpr double kLift = 0.03;

constexpr LineStyle kParcelStyle{{250, 176, 84}, 2.5F};
constexpr LineStyle kShoreStyle{{120, 205, 255}, 3.0F};
constexpr LineStyle kFlightStyle{{236, 130, 200}, 2.0F};
constexpr LineStyle kSightStyle{{250, 226, 120}, 1.5F};
constexpr LineStyle kStationStyle{{250, 240, 210}, 1.0F};

/// The same numbers everywhere, from 0 to 1: pictures can be compared.
class Numbers {
  public:
    double next() {
        state = state * 6364136223846793005U + 1442695040888963407U;
        return static_cast<double>(state >> 11U) / 9007199254740992.0;
    }

  private:
    std::uint64_t state = 20240607;
};

struct Tree {
    double x;
    double y;
    double height;
};

constexpr std::array<Tree, 14> kTrees{{
    {-10.4, -2.2, 1.9},
    {-9.3, -1.2, 2.3},
    {-8.2, -2.4, 2.0},
    {-9.6, -3.4, 2.5},
    {-8.4, -4.2, 2.2},
    {-7.2, -3.2, 2.6},
    {-7.0, -5.0, 1.9},
    {-9.8, -5.2, 2.1},
    {-8.6, -6.2, 2.4},
    {-10.6, -6.6, 2.0},
    {-7.4, -7.0, 2.2},
    {-6.0, -6.2, 2.4},
    {-9.4, -7.8, 1.8},
    {-5.8, -4.2, 2.0},
}};

void addTree(PointCloud& cloud, const Tree& tree, Numbers& numbers) {
    constexpr int kReturns = 1500;
    for (int i = 0; i < kReturns; ++i) {
        const double up = 1.0 - std::sqrt(numbers.next());
        const double angle = kFullTurn * numbers.next();
        const double tier = 0.85 + 0.15 * std::cos(up * 40.0);
        const double reach = 0.30 * tree.height * (1.0 - up) * tier * (0.82 + 0.18 * numbers.next());
        cloud.positions.push_back(onGround(tree.x, tree.y, 0.25 + up * tree.height) +
                                  qel::XPnt3d(reach * std::cos(angle), reach * std::sin(angle), 0.0));
        const double light = 0.55 + 0.45 * up + 0.15 * (numbers.next() - 0.5);
        const auto channel = [light](double full) {
            return static_cast<std::uint8_t>(std::clamp(full * light, 0.0, 255.0));
        };
        cloud.colors.emplace_back(channel(120.0), channel(215.0), channel(130.0));
    }
}

/// Points on the ground along straight lines between corners.
Points drape(const std::vector<std::pair<double, double>>& corners) {
    constexpr int kPieces = 14;
    Points line;
    for (std::size_t i = 0; i + 1 < corners.size(); ++i) {
        for (int piece = 0; piece < kPieces; ++piece) {
            const double share = static_cast<double>(piece) / kPieces;
            const auto between = [share](double from, double to) { return from + (to - from) * share; };
            line.push_back(onGround(between(corners[i].first, corners[i + 1].first),
                                    between(corners[i].second, corners[i + 1].second), kLift));
        }
    }
    line.push_back(onGround(corners.back().first, corners.back().second, kLift));
    return line;
}

void addParcel(Scene& scene) {
    const std::vector<std::pair<double, double>> outline{{4.4, 0.6}, {10.2, 1.4}, {10.6, 7.4},
                                                         {5.2, 8.0}, {3.6, 4.6},  {4.4, 0.6}};
    const std::vector<std::pair<double, double>> hole{
        {6.6, 3.2}, {8.4, 3.6}, {8.0, 5.6}, {6.2, 5.2}, {6.6, 3.2}};
    scene.polygons.push_back({{drape(outline), drape(hole)}, kParcelStyle});
    for (const auto* corners : {&outline, &hole}) {
        for (std::size_t i = 0; i + 1 < corners->size(); ++i) {
            scene.points.push_back({onGround((*corners)[i].first, (*corners)[i].second, 2.0 * kLift)});
        }
    }
}

void addShore(Scene& scene) {
    constexpr int kPieces = 72;
    Points shore;
    for (int i = 0; i < kPieces; ++i) {
        const double angle = kFullTurn * i / kPieces;
        const double reach = 1.55 + 0.22 * std::sin(2.0 * angle + 0.6) + 0.1 * std::cos(5.0 * angle);
        shore.push_back(
            onGround(2.6 + 1.25 * reach * std::cos(angle), -2.4 + reach * std::sin(angle), kLift));
    }
    scene.rings.push_back({std::move(shore), kShoreStyle});
    scene.labels.push_back({onGround(2.6, -5.0, 0.1), "Pond"});
}

void addFlight(Scene& scene) {
    constexpr int kPieces = 130;
    Points flight;
    for (int i = 0; i <= kPieces; ++i) {
        const double share = static_cast<double>(i) / kPieces;
        const double angle = kFullTurn * (2.25 * share + 0.1);
        flight.emplace_back(-6.0 + (3.4 - 1.6 * share) * std::cos(angle),
                            3.6 + (3.0 - 1.4 * share) * std::sin(angle), 4.0 + 2.6 * share);
    }
    scene.labels.push_back({flight.back(), "Flight"});
    scene.curves.push_back({std::move(flight), kFlightStyle});
}

}  // namespace

void addScannedWood(Scene& scene) {
    PointCloud cloud;
    Numbers numbers;
    for (const Tree& tree : kTrees) {
        addTree(cloud, tree, numbers);
    }
    scene.clouds.push_back(std::move(cloud));
}

void addStations(Scene& scene) {
    constexpr double kMast = 1.1;
    constexpr std::array<std::tuple<double, double, const char*>, 3> kStations{
        {{-6.0, 3.6, "Station A"}, {6.4, 5.0, "Station B"}, {8.6, -5.6, "Station C"}}};
    constexpr qel::QelColor3f kMarkColor{1.0F, 0.35F, 0.30F};
    Points heads;
    for (const auto& [x, y, name] : kStations) {
        const qel::XPnt3d foot = onGround(x, y, kLift);
        const qel::XPnt3d head = onGround(x, y, kMast);
        heads.push_back(head);
        scene.balls.push_back({head, 0.5, kStationStyle});
        scene.segments.push_back({foot, head, kStationStyle});
        scene.markers.push_back({MarkerShape::Cross, head, {}, 0.16, {}, kMarkColor, 2.0F});
        scene.markers.push_back({MarkerShape::DiagonalCross, foot, {}, 0.5, {}, kMarkColor, 2.0F});
        scene.markers.push_back({MarkerShape::Square, onGround(x, y, 0.12), {}, 0.55, {}, kMarkColor, 1.5F});
        scene.labels.push_back({head + qel::XPnt3d(0.0, 0.0, 0.6), name});
    }
    for (std::size_t i = 0; i < heads.size(); ++i) {
        scene.segments.push_back({heads[i], heads[(i + 1) % heads.size()], kSightStyle});
    }
}

void addOutlines(Scene& scene) {
    addParcel(scene);
    addShore(scene);
    addFlight(scene);
}

}  // namespace qelview
