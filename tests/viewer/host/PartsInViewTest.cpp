#include "PartsInView.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

#include "QelHostKit.h"
#include "host/ViewSubject.h"
#include "view/GlOracle.h"
#include "view/RandomCameras.h"

namespace {

using qelview::DrawnRange;
using qelview::SpatialPart;
using Ranges = std::vector<DrawnRange>;

constexpr std::size_t kElements = 100;

/// Cubes of 100 elements, `side` wide and as far apart, in a row, rows and layers around the origin.
std::vector<SpatialPart> cubes(int ofASide, double side) {
    std::vector<SpatialPart> parts;
    const double first = -side * (ofASide - 0.5);
    for (int i = 0; i < ofASide * ofASide * ofASide; ++i) {
        const qel::XPnt3d low(first + 2.0 * side * (i % ofASide),
                              first + 2.0 * side * (i / ofASide % ofASide),
                              first + 2.0 * side * (i / ofASide / ofASide));
        const std::size_t begin = parts.size() * kElements;
        parts.push_back(
            {begin, begin + kElements, {low.x, low.x + side, low.y, low.y + side, low.z, low.z + side}});
    }
    return parts;
}

Ranges rangesOf(IQelTrackBall& camera, const std::vector<SpatialPart>& parts, std::size_t thinning) {
    Ranges ranges{{7, 9, 1}};
    qelview::findPartsInView(camera, parts, thinning, ranges);
    return ranges;
}

std::size_t drawnOf(const Ranges& ranges) {
    return std::accumulate(ranges.begin(), ranges.end(), std::size_t{0},
                           [](std::size_t sum, const DrawnRange& range) {
                               return sum + (range.end - range.begin + range.step - 1) / range.step;
                           });
}

class PartsInView : public testing::Test {
  protected:
    void look(const qel::XPnt3d& from, const qel::XPnt3d& at) {
        view->setCamera(from, at, {0.0, 0.0, 1.0});
        qel::fitClippingPlanes(*view, {-100.0, 100.0, -100.0, 100.0, -100.0, 100.0});
        view->updateView();
    }

    qel::test::ViewSubject view{200, 100};
};

TEST_F(PartsInView, AreOneRangeWhileAllAreSeen) {
    look({0.0, -400.0, 0.0}, {0.0, 0.0, 0.0});
    EXPECT_EQ(rangesOf(*view, cubes(3, 10.0), 1), (Ranges{{0, 27 * kElements, 1}}));
}

TEST_F(PartsInView, AreNoneOfThoseBehindTheEye) {
    look({0.0, 200.0, 0.0}, {0.0, 400.0, 0.0});
    EXPECT_EQ(rangesOf(*view, cubes(3, 10.0), 1), Ranges());
    EXPECT_EQ(rangesOf(*view, cubes(3, 10.0), 5), Ranges());
}

TEST_F(PartsInView, AreThoseAroundTheEyeToo) {
    // The view meets the side x = 1, whose corners lie to the left of the view or behind the eye.
    look({0.0, 0.0, 0.0}, {1.0, 1.0, 0.0});
    const std::vector<SpatialPart> around{{0, kElements, {-10.0, 1.0, -30.0, 20.0, -50.0, 50.0}}};
    ASSERT_FALSE(view->isBoxVisible(around.front().box)) << "the camera itself would be enough";
    EXPECT_EQ(rangesOf(*view, around, 1), (Ranges{{0, kElements, 1}}));
    EXPECT_EQ(rangesOf(*view, around, 4), (Ranges{{0, kElements, 4}}));
}

TEST_F(PartsInView, ContainEveryPointThatIsSeen) {
    const std::vector<SpatialPart> parts = cubes(5, 10.0);
    qel::test::RandomCameras random(20);
    std::size_t seen = 0;
    std::size_t left = 0;
    for (int round = 0; round < 60; ++round) {
        random.place(*view);
        qel::test::chooseProjection(*view, round);
        qel::fitClippingPlanes(*view, {-50.0, 50.0, -50.0, 50.0, -50.0, 50.0});
        view->updateView();
        const qel::test::GlView held = qel::test::GlView::current();
        const Ranges ranges = rangesOf(*view, parts, 1);
        left += parts.size() * kElements - drawnOf(ranges);
        for (const SpatialPart& part : parts) {
            const bool isDrawn = std::any_of(ranges.begin(), ranges.end(), [&](const DrawnRange& range) {
                return range.begin <= part.begin && part.end <= range.end;
            });
            for (int sample = 0; sample < 20; ++sample) {
                const qel::Enve3d& box = part.box;
                const qel::XPnt3d point(random.number(box.xmin, box.xmax), random.number(box.ymin, box.ymax),
                                        random.number(box.zmin, box.zmax));
                const glm::dvec4 clip = held.clip(point);
                if (clip.w > 0.0 &&
                    std::max({std::abs(clip.x), std::abs(clip.y), std::abs(clip.z)}) < clip.w) {
                    ASSERT_TRUE(isDrawn) << "camera " << round;
                    ++seen;
                }
            }
        }
    }
    EXPECT_GT(seen, 5000U);
    EXPECT_GT(left, 60 * parts.size() * kElements / 3);
}

TEST_F(PartsInView, HaveAsManyElementsAsTheirShareOfTheView) {
    const double wide = 20.0;
    const std::vector<SpatialPart> parts{{0, 100'000, {-wide, 0.0, 0.0, wide, 0.0, wide}},
                                         {100'000, 200'000, {0.0, wide / 2, 0.0, wide / 2, 0.0, wide / 2}}};
    look({0.0, -300.0, 0.0}, {0.0, 0.0, 0.0});
    const Ranges ranges = rangesOf(*view, parts, 10);
    ASSERT_EQ(ranges.size(), 2U);
    // A tenth of all, four fifths of it for the part that is twice as wide.
    EXPECT_NEAR(static_cast<double>(drawnOf(ranges)), 20'000.0, 2'000.0);
    EXPECT_NEAR(static_cast<double>(ranges[1].step) / static_cast<double>(ranges[0].step), 4.0, 0.5);
}

TEST_F(PartsInView, AreDrawnWholeWhereTheyAreLargeEnough) {
    const std::vector<SpatialPart> parts{{0, 100, {-50.0, 50.0, 0.0, 100.0, -50.0, 50.0}},
                                         {100, 10'100, {0.0, 0.5, 0.0, 0.5, 0.0, 0.5}}};
    look({0.0, -300.0, 0.0}, {0.0, 0.0, 0.0});
    const Ranges ranges = rangesOf(*view, parts, 2);
    ASSERT_EQ(ranges.size(), 2U);
    EXPECT_EQ(ranges[0], (DrawnRange{0, 100, 1}));
    EXPECT_GT(ranges[1].step, 2U);
    EXPECT_LE(ranges[1].step, 10'000U);
}

}  // namespace
