#include "CameraFit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

using qelview::CameraPlace;

constexpr double kFovY = 27.0;

/// Where a point appears, in shares of half the view's width and height from its middle.
struct Appearance {
    double x;
    double y;
    double distance;
};

Appearance appearanceOf(const qel::XPnt3d& point, const CameraPlace& camera, double aspect) {
    qel::XPnt3d forward = camera.target - camera.eye;
    forward.normalize();
    qel::XPnt3d right = qel::cross(forward, camera.up);
    right.normalize();
    const qel::XPnt3d up = qel::cross(right, forward);
    const qel::XPnt3d offset = point - camera.eye;
    const double distance = qel::dot(offset, forward);
    const double halfHeight = distance * std::tan(kFovY * 0.5 * std::acos(-1.0) / 180.0);
    return {qel::dot(offset, right) / (halfHeight * aspect), qel::dot(offset, up) / halfHeight, distance};
}

std::vector<qel::XPnt3d> boxCorners(double x, double y, double z) {
    std::vector<qel::XPnt3d> corners;
    corners.reserve(8);
    for (int corner = 0; corner < 8; ++corner) {
        corners.emplace_back((corner & 1) * x + 100.0, ((corner >> 1) & 1) * y - 50.0,
                             ((corner >> 2) & 1) * z);
    }
    return corners;
}

struct FitCase {
    const char* name;
    qel::XPnt3d eye;
    qel::XPnt3d up;
    double aspect;
};

class CameraFitPlaceToSee : public testing::TestWithParam<FitCase> {};

TEST_P(CameraFitPlaceToSee, ShowsEveryPointAsLargeAsTheMarginsAllow) {
    const auto corners = boxCorners(24.0, 18.0, 6.0);
    const FitCase& fit = GetParam();
    const CameraPlace place = qelview::placeToSee(corners, {fit.eye, {0, 0, 0}, fit.up}, kFovY, fit.aspect);
    double left = 9.0;
    double right = -9.0;
    double low = 9.0;
    double high = -9.0;
    for (const qel::XPnt3d& corner : corners) {
        const Appearance seen = appearanceOf(corner, place, fit.aspect);
        EXPECT_GT(seen.distance, 0.0);
        left = std::min(left, seen.x);
        right = std::max(right, seen.x);
        low = std::min(low, seen.y);
        high = std::max(high, seen.y);
    }
    EXPECT_LE(std::max(right, -left), 0.94 + 1e-9);
    EXPECT_LE(std::max(high, -low), 0.86 + 1e-9);
    const bool fillsWidth = right > 0.94 - 1e-9 && left < -0.94 + 1e-9;
    const bool fillsHeight = high > 0.86 - 1e-9 && low < -0.86 + 1e-9;
    EXPECT_TRUE(fillsWidth || fillsHeight);
}

TEST_P(CameraFitPlaceToSee, KeepsTheDirectionOfTheCamera) {
    const FitCase& fit = GetParam();
    const CameraPlace place =
        qelview::placeToSee(boxCorners(1.0, 2.0, 3.0), {fit.eye, {0, 0, 0}, fit.up}, kFovY, fit.aspect);
    qel::XPnt3d before = fit.eye;
    before.normalize();
    qel::XPnt3d after = place.eye - place.target;
    after.normalize();
    EXPECT_NEAR(qel::dist(before, after), 0.0, 1e-12);
    EXPECT_EQ(place.up.z, fit.up.z);
}

const std::vector<FitCase> kFits{
    {"TopWide", {0, 0, 100}, {0, 1, 0}, 1.6},
    {"TopNarrow", {0, 0, 100}, {0, 1, 0}, 0.5},
    {"Front", {0, -100, 0}, {0, 0, 1}, 1.6},
    {"Corner", {100, 100, 100}, {-1, -1, 2}, 1.6},
};
INSTANTIATE_TEST_SUITE_P(Views, CameraFitPlaceToSee, testing::ValuesIn(kFits),
                         [](const auto& each) { return each.param.name; });

TEST(CameraFitPlaceToSeeOf, AViewWithAHeadingIsFilledBelowIt) {
    const auto corners = boxCorners(6.0, 18.0, 6.0);
    const CameraPlace place =
        qelview::placeToSee(corners, {{0, 0, 100}, {0, 0, 0}, {0, 1, 0}}, kFovY, 1.6, {0.94, 0.6, 0.86});
    double low = 9.0;
    double high = -9.0;
    for (const qel::XPnt3d& corner : corners) {
        low = std::min(low, appearanceOf(corner, place, 1.6).y);
        high = std::max(high, appearanceOf(corner, place, 1.6).y);
    }
    EXPECT_NEAR(high, 0.6, 1e-9);
    EXPECT_NEAR(low, -0.86, 1e-9);
    // A wide image has the same room above and below.
    const auto wide = boxCorners(60.0, 2.0, 0.0);
    const CameraPlace farther =
        qelview::placeToSee(wide, {{0, 0, 100}, {0, 0, 0}, {0, 1, 0}}, kFovY, 1.6, {0.94, 0.6, 0.86});
    EXPECT_NEAR(0.6 - appearanceOf(wide[2], farther, 1.6).y, appearanceOf(wide[0], farther, 1.6).y + 0.86,
                1e-9);
}

TEST(CameraFitPlaceToSeeOf, ASinglePointStandsOffIt) {
    const CameraPlace place =
        qelview::placeToSee({{5, 6, 7}}, {{0, 0, 100}, {0, 0, 0}, {0, 1, 0}}, kFovY, 1.0);
    EXPECT_EQ(place.eye.x, 5.0);
    EXPECT_GT(place.eye.z, 7.0);
    EXPECT_LT(place.target.z, place.eye.z);
}

TEST(CameraFitUsableShare, IsOneAtTheMarginsAndMoreBeyond) {
    EXPECT_NEAR(qelview::shareOfUsableView({{97.0, 25.0, 0.5}}, 100.0, 50.0), 1.0, 1e-12);
    EXPECT_NEAR(qelview::shareOfUsableView({{50.0, 46.5, 0.5}, {40.0, 25.0, 0.5}}, 100.0, 50.0), 1.0, 1e-12);
    EXPECT_GT(qelview::shareOfUsableView({{50.0, -1.0, 0.5}}, 100.0, 50.0), 1.2);
    EXPECT_EQ(qelview::shareOfUsableView({{50.0, 25.0, 0.5}}, 100.0, 50.0), 0.0);
    EXPECT_NEAR(qelview::shareOfUsableView({{50.0, 40.0, 0.5}}, 100.0, 50.0, {0.94, 0.6, 0.86}), 1.0, 1e-12);
}

}  // namespace
