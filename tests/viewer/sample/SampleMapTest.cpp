#include "SampleMap.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>

namespace {

using qelview::Points;
using qelview::Scene;

double lengthOf(const std::vector<Points>& lines) {
    double length = 0.0;
    for (const Points& line : lines) {
        for (std::size_t i = 0; i + 1 < line.size(); ++i) {
            length += qel::dist(line[i], line[i + 1]);
        }
    }
    return length;
}

/// A height in metres, and how long its contours are together in kilometres. Stored pictures show them; Python
/// computed the lengths.
struct Level {
    double height;
    double length;
};

constexpr std::array<Level, 6> kContours{{
    {520.0, 233.663},
    {1144.0, 206.165},
    {1872.0, 161.676},
    {2704.0, 133.848},
    {3640.0, 44.741},
    {4680.0, 3.392},
}};

TEST(SampleMap, HasIslandsWithContours) {
    const Scene map = qelview::makeSampleMap();
    EXPECT_EQ(map.title, "Islands");
    ASSERT_EQ(map.polygons.size(), 1U);
    EXPECT_NEAR(lengthOf(map.polygons[0].rings), 323291.0, 1.0);
    ASSERT_EQ(map.polylines.size(), kContours.size());
    for (std::size_t i = 0; i < kContours.size(); ++i) {
        const auto& [height, length] = kContours.at(i);
        EXPECT_NEAR(lengthOf(map.polylines[i].parts), length * 1000.0, 1.0) << height;
        for (const Points& line : map.polylines[i].parts) {
            for (const qel::XPnt3d& point : line) {
                ASSERT_NEAR(point.z + map.origin.z, height, 1e-6);
            }
        }
    }
}

TEST(SampleMap, IsSurroundedByTheSea) {
    const Scene map = qelview::makeSampleMap();
    for (const Points& coast : map.polygons.at(0).rings) {
        EXPECT_EQ(qel::dist(coast.front(), coast.back()), 0.0);
        for (const qel::XPnt3d& point : coast) {
            const double east = point.x + map.origin.x - 412000.0;
            const double north = point.y + map.origin.y - 5630000.0;
            ASSERT_TRUE(east > 1000.0 && east < 255.0 * 250.0 - 1000.0) << east;
            ASSERT_TRUE(north > 1000.0 && north < 167.0 * 250.0 - 1000.0) << north;
            ASSERT_NEAR(point.z + map.origin.z, 0.0, 1e-6);
        }
    }
    for (const double middle : {map.bounds().MidPoint().x, map.bounds().MidPoint().y}) {
        EXPECT_NEAR(middle, 0.0, 1e-6);
    }
}

struct Town {
    const char* name;
    double east;
    double north;
};

constexpr std::array<Town, 11> kTowns{{
    {"Amery", 419250, 5640000},
    {"Port Ilm", 437250, 5640750},
    {"Sund", 467250, 5643750},
    {"Vesthaven", 430500, 5645500},
    {"Karrow", 458500, 5647250},
    {"Old Mole", 423750, 5652000},
    {"Brennick", 435750, 5652500},
    {"Tarn", 452000, 5655000},
    {"Lindvik", 466750, 5655250},
    {"Skerry", 439250, 5661250},
    {"Osk", 458250, 5661750},
}};

TEST(SampleMap, HasNamedTownsNearTheCoast) {
    const Scene map = qelview::makeSampleMap();
    ASSERT_EQ(map.clouds.size(), 1U);
    ASSERT_EQ(map.clouds[0].positions.size(), kTowns.size());
    ASSERT_EQ(map.labels.size(), kTowns.size());
    for (std::size_t i = 0; i < kTowns.size(); ++i) {
        const qel::XPnt3d& place = map.clouds[0].positions[i];
        EXPECT_NEAR(place.x + map.origin.x, kTowns.at(i).east, 1e-6) << kTowns.at(i).name;
        EXPECT_NEAR(place.y + map.origin.y, kTowns.at(i).north, 1e-6) << kTowns.at(i).name;
        EXPECT_EQ(map.labels[i].text, kTowns.at(i).name);
        EXPECT_EQ(qel::dist(map.labels[i].at, place), 0.0);
        const double height = place.z + map.origin.z;
        EXPECT_TRUE(height > 104.0 && height < 364.0) << height;
    }
    EXPECT_EQ(map.clouds[0].color.r, 1.0F);
    EXPECT_EQ(map.clouds[0].color.g, 0.55F);
    EXPECT_EQ(map.clouds[0].color.b, 0.25F);
    EXPECT_EQ(map.clouds[0].size, 6.0F);
}

void expectStyle(const qelview::LineStyle& shown, const qelview::LineStyle& expected) {
    EXPECT_EQ(shown.color.r, expected.color.r);
    EXPECT_EQ(shown.color.g, expected.color.g);
    EXPECT_EQ(shown.color.b, expected.color.b);
    EXPECT_EQ(shown.width, expected.width);
}

TEST(SampleMap, DrawsTheCoastBlueAndContoursBrown) {
    const Scene map = qelview::makeSampleMap();
    expectStyle(map.polygons.at(0).style, {{120, 190, 225}, 1.0F});
    for (const qelview::Polyline& contour : map.polylines) {
        expectStyle(contour.style, {{205, 165, 110}, 1.0F});
    }
}

}  // namespace
