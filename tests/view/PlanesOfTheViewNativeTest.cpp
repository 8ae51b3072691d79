#include <gtest/gtest.h>

#include "QelPredicates.h"
#include "host/ViewSubject.h"

// The linker leads the calls of qel::isPntInFront to the first of these, and calls of the second to the
// function itself.
std::int32_t countPlane(const qel::XPnt3d& a, const qel::XPnt3d& b, const qel::XPnt3d& c,
                        const qel::XPnt3d& point,
                        double tolerance) __asm__("__wrap__ZN3qel12isPntInFrontERKNS_6XPnt3dES2_S2_S2_d");
std::int32_t judgePlane(const qel::XPnt3d& a, const qel::XPnt3d& b, const qel::XPnt3d& c,
                        const qel::XPnt3d& point,
                        double tolerance) __asm__("__real__ZN3qel12isPntInFrontERKNS_6XPnt3dES2_S2_S2_d");

namespace {
int judgedPlanes = 0;
}

std::int32_t countPlane(const qel::XPnt3d& a, const qel::XPnt3d& b, const qel::XPnt3d& c,
                        const qel::XPnt3d& point, double tolerance) {
    ++judgedPlanes;
    return judgePlane(a, b, c, point, tolerance);
}

namespace qel::test {
namespace {

int planesToJudge(IQelTrackBall& view, const XPnt3d& point, bool inside) {
    judgedPlanes = 0;
    EXPECT_EQ(view.isPntInView(point.x, point.y, point.z), inside);
    return judgedPlanes;
}

TEST(PlanesOfTheView, AreJudgedUpToTheFirstThatAPointLiesBehind) {
    const ViewSubject view(200, 100);
    view->setNearPlane(1.0);
    view->setFarPlane(100.0);
    view->setCamera({0.0, 0.0, 10.0}, {}, {0.0, 1.0, 0.0});
    EXPECT_EQ(planesToJudge(*view, {0.0, 0.0, 0.0}, true), 6);
    // Right of the view, left of it, below and above: the planes in their order.
    EXPECT_EQ(planesToJudge(*view, {50.0, 0.0, 0.0}, false), 1);
    EXPECT_EQ(planesToJudge(*view, {-50.0, 0.0, 0.0}, false), 2);
    EXPECT_EQ(planesToJudge(*view, {0.0, -50.0, 0.0}, false), 3);
    EXPECT_EQ(planesToJudge(*view, {0.0, 50.0, 0.0}, false), 4);
    EXPECT_EQ(planesToJudge(*view, {0.0, 0.0, -95.0}, false), 5);
    EXPECT_EQ(planesToJudge(*view, {0.0, 0.0, 9.5}, false), 6);
}

}  // namespace
}  // namespace qel::test
