#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>

#include "GlOracle.h"
#include "host/ViewSubject.h"

namespace qel::test {
namespace {

const double kThird = 1.0 / std::sqrt(3.0);
const double kSixth = 1.0 / std::sqrt(6.0);

struct StandardViewCase {
    const char* name;
    std::uint32_t view;
    /// From the target towards the eye.
    XPnt3d direction;
    XPnt3d up;
};

const StandardViewCase kViews[] = {
    {"FromAbove", 0, {0.0, 0.0, 1.0}, {0.0, 1.0, 0.0}},
    {"FromBelow", 1, {0.0, 0.0, -1.0}, {0.0, -1.0, 0.0}},
    {"FromTheBack", 2, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}},
    {"FromTheFront", 3, {0.0, -1.0, 0.0}, {0.0, 0.0, 1.0}},
    {"FromTheRight", 4, {1.0, 0.0, 0.0}, {0.0, 0.0, 1.0}},
    {"FromTheLeft", 5, {-1.0, 0.0, 0.0}, {0.0, 0.0, 1.0}},
    {"FromTheUpperCorner", 6, {kThird, kThird, kThird}, {-kSixth, -kSixth, 2.0 * kSixth}},
    {"FromTheLowerCorner", 7, {-kThird, -kThird, -kThird}, {-kSixth, -kSixth, 2.0 * kSixth}},
};

/// Its diagonal is 9.
const Enve3d kModel{-1.0, 3.0, 10.0, 14.0, 5.0, 12.0};
const XPnt3d kMiddle(1.0, 12.0, 8.5);

class TrackBallStandardViews : public ::testing::TestWithParam<StandardViewCase> {
  protected:
    TrackBallStandardViews() {
        view->setExtent(kModel, false);
        view->setCamera({3.0, 4.0, 5.0}, {-6.0, 7.0, 8.0}, {0.5, 0.5, 0.5});
    }

    ViewSubject view{200, 100};
    const double distance = 4.5 / kTanHalf;
};

TEST_P(TrackBallStandardViews, LooksAtTheMiddleOfTheModelFromItsSide) {
    EXPECT_EQ(view->setStandardView(GetParam().view), 1);
    EXPECT_TRUE(isExactly(view->getTarget(), kMiddle));
    EXPECT_TRUE(isCloseTo(view->getEye(), kMiddle + GetParam().direction * distance, 1e-12));
    EXPECT_TRUE(isCloseTo(view->getUp(), GetParam().up, 1e-15));
}

TEST_P(TrackBallStandardViews, HasAUnitUpVectorAcrossTheLineOfSight) {
    view->setStandardView(GetParam().view);
    const XPnt3d up = view->getUp();
    EXPECT_NEAR(up.norm(), 1.0, 1e-15);
    EXPECT_NEAR(dot(up, view->getEye() - view->getTarget()), 0.0, 1e-14 * distance);
}

TEST_P(TrackBallStandardViews, IsLoadedIntoOpenGl) {
    view->setStandardView(GetParam().view);
    const glm::dmat4 expected = lookAt(kMiddle + GetParam().direction * distance, kMiddle, GetParam().up);
    EXPECT_TRUE(matrixIsNear(GlView::current().modelview, expected, kGlRounding));
    EXPECT_TRUE(view->isBoxVisible(kModel));
}

TEST_P(TrackBallStandardViews, KeepsTheProjection) {
    view->setOrtho();
    view->setStandardView(GetParam().view);
    EXPECT_TRUE(view->isOrtho());
    EXPECT_EQ(view->isPlanView(), GetParam().view < 2);
    EXPECT_EQ(view->isLevelView(), GetParam().view >= 2 && GetParam().view < 6);
    view->setPerspective();
    view->setStandardView(GetParam().view);
    EXPECT_FALSE(view->isOrtho());
}

INSTANTIATE_TEST_SUITE_P(, TrackBallStandardViews, ::testing::ValuesIn(kViews),
                         [](const auto& tested) { return tested.param.name; });

TEST(TrackBallStandardViewsAboveSeven, IsNotRefusedAndStaysFinite) {
    const ViewSubject view(200, 100);
    view->setExtent(kModel, false);
    for (const std::uint32_t number : {8U, 9U, 1000U, UINT32_MAX}) {
        EXPECT_EQ(view->setStandardView(number), 1);
        EXPECT_TRUE(isExactly(view->getEye(), kMiddle));
        EXPECT_TRUE(isExactly(view->getTarget(), kMiddle));
        EXPECT_TRUE(isExactly(view->getUp(), {}));
        const GlView held = GlView::current();
        for (int i = 0; i < 16; ++i) {
            ASSERT_TRUE(std::isfinite(held.modelview[i]));
            ASSERT_TRUE(std::isfinite(held.projection[i]));
        }
    }
}

TEST(TrackBallStandardViewsAboveSeven, IsLeftByTheNextOne) {
    const ViewSubject view(200, 100);
    view->setExtent(kModel, false);
    view->setStandardView(8);
    view->setStandardView(ViewFront);
    const XPnt3d front = view->getEye();
    EXPECT_LT(front.y, kMiddle.y);
    EXPECT_TRUE(view->isBoxVisible(kModel));
    EXPECT_TRUE(view->isPntInView(kMiddle.x, kMiddle.y, kMiddle.z));
}

}  // namespace
}  // namespace qel::test
