#include "Knot.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>

#include "PointBoxes.h"

namespace {

using qelview::TextureImage;
using qelview::TriangleMesh;

constexpr double kPi = std::numbers::pi;
/// Vertices of a ring, the last at the place of the first one.
constexpr std::size_t kRing = 23;
constexpr std::size_t kRings = 201;

/// The middle of the tube, which winds three times around while it turns twice.
qel::XPnt3d middleAt(double share) {
    const double turn = 2.0 * kPi * share;
    const double reach = 2.0 + std::cos(3.0 * turn);
    return qel::XPnt3d(2.6, -2.4, 4.0) +
           qel::XPnt3d(reach * std::cos(2.0 * turn), std::sin(3.0 * turn), reach * std::sin(2.0 * turn)) *
               0.62;
}

TEST(Knot, IsATubeAlongATrefoil) {
    const TriangleMesh knot = qelview::makeKnot();
    ASSERT_EQ(knot.positions.size(), kRings * kRing);
    for (std::size_t i = 0; i < knot.positions.size(); ++i) {
        const double share = static_cast<double>(i / kRing) / 200.0;
        const qel::XPnt3d normal(knot.normals[i]);
        ASSERT_NEAR(qel::dist(knot.positions[i], middleAt(share) + normal * 0.36), 0.0, 1e-6) << i;
        const qel::XPnt3d along = middleAt(share + 1e-5) - middleAt(share - 1e-5);
        ASSERT_NEAR(qel::dot(normal, along) / along.norm(), 0.0, 1e-5) << i;
    }
}

TEST(Knot, GoesRoundTheTubeInEvenSteps) {
    const TriangleMesh knot = qelview::makeKnot();
    for (std::size_t ring = 0; ring < kRings; ++ring) {
        const qel::XPnt3d first(knot.normals[ring * kRing]);
        // From the side that is turned away from the middle of the knot.
        const qel::XPnt3d outward = middleAt(static_cast<double>(ring) / 200.0) - qel::XPnt3d(2.6, -2.4, 4.0);
        ASSERT_GT(qel::dot(first, outward), 0.0);
        for (std::size_t side = 0; side < kRing; ++side) {
            const double cosine = qel::dot(first, qel::XPnt3d(knot.normals[ring * kRing + side]));
            ASSERT_NEAR(cosine, std::cos(2.0 * kPi * static_cast<double>(side) / 22.0), 1e-5);
        }
    }
}

/// A closed tube has as much area to one side as to the other, and the volume of a prism that is bent.
TEST(Knot, IsClosed) {
    const TriangleMesh knot = qelview::makeKnot();
    ASSERT_EQ(knot.indices.size(), 200U * 22U * 6U);
    qel::XPnt3d sum;
    double volume = 0.0;
    for (std::size_t i = 0; i < knot.indices.size(); i += 3) {
        const qel::XPnt3d& a = knot.positions[knot.indices[i]];
        const qel::XPnt3d& b = knot.positions[knot.indices[i + 1]];
        const qel::XPnt3d& c = knot.positions[knot.indices[i + 2]];
        sum += qel::cross(a, b, c);
        volume += qel::dot(a, qel::cross(b, c)) / 6.0;
    }
    double length = 0.0;
    for (std::size_t ring = 0; ring < 200; ++ring) {
        length += qel::dist(middleAt(static_cast<double>(ring) / 200.0),
                            middleAt(static_cast<double>(ring + 1) / 200.0));
    }
    EXPECT_NEAR(sum.norm(), 0.0, 1e-6);
    EXPECT_NEAR(volume, length * 0.36 * 0.36 * 11.0 * std::sin(2.0 * kPi / 22.0), 0.01 * volume);
    const qel::Enve3d box = qelview::boxOf(knot.positions);
    EXPECT_EQ(
        box.zmax,
        std::max_element(knot.positions.begin(), knot.positions.end(), [](const auto& a, const auto& b) {
            return a.z < b.z;
        })->z);
    EXPECT_LT(box.xmin, box.xmax);
}

TEST(Knot, WearsItsImageOnceAlongAndOnceAround) {
    const TriangleMesh knot = qelview::makeKnot();
    ASSERT_EQ(knot.texCoords.size(), knot.positions.size());
    for (std::size_t i = 0; i < knot.texCoords.size(); ++i) {
        ASSERT_NEAR(knot.texCoords[i].u, static_cast<double>(i / kRing) / 200.0, 1e-6);
        ASSERT_NEAR(knot.texCoords[i].v, static_cast<double>(i % kRing) / 22.0, 1e-6);
    }
    EXPECT_EQ(knot.color.r, 1.0F);
    EXPECT_EQ(knot.color.g, 1.0F);
    EXPECT_EQ(knot.color.b, 1.0F);
}

/// The brightness of a pixel as a share of the brightest of its column.
double brightness(const TextureImage& image, int column, int row) {
    int most = 0;
    for (int other = 0; other < image.height; ++other) {
        most = std::max<int>(most, image.pixel(column, other)[1]);
    }
    return static_cast<double>(image.pixel(column, row)[1]) / most;
}

TEST(Knot, HasStrandsWithDarkJoints) {
    const TriangleMesh knot = qelview::makeKnot();
    const TextureImage& image = *knot.texture->image;
    ASSERT_EQ(image.width, 1024);
    ASSERT_EQ(image.height, 64);
    ASSERT_EQ(image.pixels.size(), 1024U * 64U * 3U);
    for (int row = 0; row < 64; row += 9) {
        for (int column = 0; column < 1024; column += 7) {
            // 48 strands along the tube, each three times around it.
            const double strand = 48.0 * (column + 0.5) / 1024.0 + 3.0 * (row + 0.5) / 64.0;
            const double joint = std::abs(strand - std::round(strand));
            const double expected = 0.35 + 0.65 * std::sqrt(std::sin(kPi * joint));
            ASSERT_NEAR(brightness(image, column, row), expected, 0.02) << column << " " << row;
        }
    }
}

TEST(Knot, ChangesItsColourAlongTheTube) {
    const TriangleMesh knot = qelview::makeKnot();
    const TextureImage& image = *knot.texture->image;
    struct Tint {
        int column;
        std::array<double, 3> color;
    };
    // Teal, sand, coral, and back on another way.
    for (const auto& [column, color] :
         {Tint{0, {0.18, 0.66, 0.66}}, Tint{256, {0.565, 0.63, 0.50}}, Tint{512, {0.95, 0.44, 0.34}},
          Tint{768, {0.565, 0.47, 0.50}}, Tint{1023, {0.18, 0.66, 0.66}}}) {
        for (std::size_t channel = 0; channel < 3; ++channel) {
            int most = 0;
            for (int row = 0; row < image.height; ++row) {
                most = std::max<int>(most, image.pixel(column, row)[channel]);
            }
            EXPECT_NEAR(most, 255.0 * color.at(channel), 2.0) << column << " " << channel;
        }
    }
}

}  // namespace
