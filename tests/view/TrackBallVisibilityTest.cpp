#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "CQelTrackBall.h"
#include "GlOracle.h"
#include "RandomCameras.h"
#include "host/ViewSubject.h"

namespace qel::test {
namespace {

/// The largest of the point's normalised device coordinates: below 1 inside the view. Behind the eye it is
/// far above.
double clipShare(const GlView& held, const XPnt3d& point) {
    const glm::dvec4 clip = held.clip(point);
    const double largest = std::max({std::fabs(clip.x), std::fabs(clip.y), std::fabs(clip.z)});
    return clip.w > 0.0 ? largest / clip.w : 1e9;
}

TEST(TrackBallVisibilityOfAPoint, AgreesWithClipCoordinates) {
    const ViewSubject view(200, 100);
    RandomCameras random(80);
    int inside = 0;
    int outside = 0;
    for (int round = 0; round < 40; ++round) {
        random.place(*view);
        chooseProjection(*view, round);
        const GlView held = GlView::current();
        for (int sample = 0; sample < 200; ++sample) {
            // Half of them somewhere, half of them near the view.
            const XPnt3d point = sample % 2 == 0
                                     ? random.point(150.0)
                                     : held.unProject(random.number(-100.0, 300.0),
                                                      random.number(-50.0, 150.0), random.number(0.5, 1.0));
            const double share = clipShare(held, point);
            // Nearer to a plane the test's tolerance and rounding decide.
            if (std::fabs(share - 1.0) > 1e-3) {
                ASSERT_EQ(view->isPntInView(point.x, point.y, point.z), share < 1.0) << share;
                ++(share < 1.0 ? inside : outside);
            }
        }
    }
    EXPECT_GT(inside, 500);
    EXPECT_GT(outside, 500);
}

struct PlaceCase {
    const char* name;
    double x, y, depth;
    bool inside;
};

constexpr PlaceCase kPlaces[] = {
    {"InTheMiddle", 100.0, 50.0, 0.9, true},
    {"NearTheRightPlane", 199.0, 50.0, 0.9, true},
    {"BeyondTheRightPlane", 201.0, 50.0, 0.9, false},
    {"BeyondTheLeftPlane", -1.0, 50.0, 0.9, false},
    {"BelowTheLowerPlane", 100.0, -1.0, 0.9, false},
    {"AboveTheUpperPlane", 100.0, 101.0, 0.9, false},
    {"BeyondTheFarPlane", 100.0, 50.0, 1.001, false},
    {"BeforeTheNearPlane", 100.0, 50.0, -0.1, false},
    {"JustBehindTheNearPlane", 100.0, 50.0, 0.001, true},
    {"JustBeforeTheFarPlane", 100.0, 50.0, 0.999, true},
    {"InTheLowerLeftCorner", 1.0, 1.0, 0.5, true},
    {"InTheUpperRightCorner", 199.0, 99.0, 0.999, true},
};

class TrackBallVisibilityOfAPlace : public ::testing::TestWithParam<PlaceCase> {};

TEST_P(TrackBallVisibilityOfAPlace, IsInsideAllSixPlanesOrNot) {
    const ViewSubject view(200, 100);
    view->setNearPlane(1.0);
    view->setFarPlane(100.0);
    view->setCamera({10.0, 20.0, 30.0}, {1.0, 2.0, 3.0}, {0.0, 0.0, 1.0});
    for (int round = 0; round < 2; ++round) {
        chooseProjection(*view, round);
        const PlaceCase& place = GetParam();
        const XPnt3d point = GlView::current().unProject(place.x, place.y, place.depth);
        EXPECT_EQ(view->isPntInView(point.x, point.y, point.z), place.inside);
    }
}

INSTANTIATE_TEST_SUITE_P(, TrackBallVisibilityOfAPlace, ::testing::ValuesIn(kPlaces),
                         [](const auto& tested) { return tested.param.name; });

TEST(TrackBallVisibilityOfAPoint, IsNotBehindTheEye) {
    const ViewSubject view(200, 100);
    view->setNearPlane(1.0);
    view->setFarPlane(100.0);
    view->setCamera({0.0, 0.0, 10.0}, {}, {0.0, 1.0, 0.0});
    EXPECT_TRUE(view->isPntInView(0.0, 0.0, 0.0));
    EXPECT_FALSE(view->isPntInView(0.0, 0.0, 10.5));
    EXPECT_FALSE(view->isPntInView(0.0, 0.0, 30.0));
    EXPECT_FALSE(view->isPntInView(std::nan(""), 0.0, 0.0));
}

/// The rectangle of the corners before the far plane, computed by glm.
struct Image {
    double xmin = 1e300, xmax = -1e300, ymin = 1e300, ymax = -1e300;
    bool any = false;

    Image(const GlView& held, const Enve3d& box) {
        for (int corner = 0; corner < 8; ++corner) {
            const XPnt3d point((corner & 1) != 0 ? box.xmax : box.xmin,
                               (corner & 2) != 0 ? box.ymax : box.ymin,
                               (corner & 4) != 0 ? box.zmax : box.zmin);
            const glm::dvec3 window =
                glm::project(asGlm(point), held.modelviewMatrix(), held.projectionMatrix(),
                             glm::dvec4(0.0, 0.0, 200.0, 100.0));
            if (window.z < 1.0) {
                any = true;
                xmin = std::min(xmin, window.x);
                xmax = std::max(xmax, window.x);
                ymin = std::min(ymin, window.y);
                ymax = std::max(ymax, window.y);
            }
        }
    }

    bool meets(double x0, double y0, double x1, double y1) const {
        return any && xmin <= x1 && x0 <= xmax && ymin <= y1 && y0 <= ymax;
    }
};

TEST(TrackBallVisibilityOfABoxInRect, AgreesWithTheProjectionOfItsCorners) {
    const ViewSubject view(200, 100);
    RandomCameras random(81);
    int met = 0;
    int missed = 0;
    for (int round = 0; round < 40; ++round) {
        random.place(*view);
        chooseProjection(*view, round);
        const GlView held = GlView::current();
        for (int sample = 0; sample < 50; ++sample) {
            const Enve3d box = random.box(sample % 2 == 0 ? 100.0 : 20.0);
            const double x = random.number(-100.0, 250.0);
            const double y = random.number(-50.0, 120.0);
            const double right = x + random.number(0.0, 80.0);
            const double top = y + random.number(0.0, 60.0);
            const Image image(held, box);
            ASSERT_EQ(view->isBoxInRect(Enve2d(x, y, right, top), box), image.meets(x, y, right, top));
            ASSERT_EQ(view->isBoxVisible(box), image.meets(0.0, 0.0, 200.0, 100.0));
            ++(image.meets(x, y, right, top) ? met : missed);
        }
    }
    EXPECT_GT(met, 100);
    EXPECT_GT(missed, 100);
}

class TrackBallVisibilityOfABox : public ::testing::Test {
  protected:
    TrackBallVisibilityOfABox() {
        view->setNearPlane(1.0);
        view->setFarPlane(100.0);
        view->setCamera({0.0, 0.0, 50.0}, {}, {0.0, 1.0, 0.0});
    }

    ViewSubject view{200, 100};
    const Enve2d everywhere{-1e9, -1e9, 1e9, 1e9};
};

TEST_F(TrackBallVisibilityOfABox, BehindTheFarPlaneIsNotSeenHoweverLargeTheRectangle) {
    const Enve3d behind{-1.0, 1.0, -1.0, 1.0, -70.0, -60.0};
    EXPECT_FALSE(view->isBoxInRect(everywhere, behind));
    EXPECT_FALSE(view->isBoxVisible(behind));
    EXPECT_EQ(view->getScreenCoverage(behind), 0.0F);
}

TEST_F(TrackBallVisibilityOfABox, PartlyBehindTheFarPlaneIsSeenByTheRest) {
    EXPECT_TRUE(view->isBoxVisible({-1.0, 1.0, -1.0, 1.0, -70.0, -10.0}));
}

TEST_F(TrackBallVisibilityOfABox, TouchingTheRectangleIsInIt) {
    const Enve3d box{0.0, 2.0, 0.0, 1.0, 0.0, 0.0};
    const XPnt3d corner = view->project(2.0, 1.0, 0.0);
    EXPECT_TRUE(view->isBoxInRect(Enve2d(corner.x, corner.y, 200.0, 100.0), box));
    EXPECT_FALSE(view->isBoxInRect(Enve2d(corner.x + 1e-9, 0.0, 200.0, 100.0), box));
    EXPECT_FALSE(view->isBoxInRect(Enve2d(0.0, corner.y + 1e-9, 200.0, 100.0), box));
}

TEST_F(TrackBallVisibilityOfABox, AroundTheWholeViewIsSeen) {
    EXPECT_TRUE(view->isBoxVisible({-1000.0, 1000.0, -1000.0, 1000.0, -10.0, 10.0}));
}

TEST_F(TrackBallVisibilityOfABox, MeetsNoInvalidRectangle) {
    Enve2d invalid;
    invalid.setInvalid();
    EXPECT_FALSE(view->isBoxInRect(invalid, {-1.0, 1.0, -1.0, 1.0, -1.0, 1.0}));
}

TEST_F(TrackBallVisibilityOfABox, WithoutAZRangeLiesAtZero) {
    const Enve3d flat{-1.0, 1.0, -1.0, 1.0, 2147483647.0, -2147483647.0};
    EXPECT_TRUE(view->isBoxVisible(flat));
    const XPnt3d corner = view->project(1.0, 1.0, 0.0);
    EXPECT_TRUE(view->isBoxInRect(Enve2d(corner.x - 0.1, corner.y - 0.1, 200.0, 100.0), flat));
    EXPECT_FALSE(view->isBoxInRect(Enve2d(corner.x + 0.1, corner.y + 0.1, 200.0, 100.0), flat));
}

const XPnt3d kQuad[] = {{0.0, 0.0, 2.0}, {10.0, 0.0, 2.0}, {10.0, 5.0, 2.0}, {0.0, 5.0, 2.0}};

bool throughQuad(const XPnt3d& from, const XPnt3d& to) {
    return isLineThroughQuad(from, to, kQuad[0], kQuad[1], kQuad[2], kQuad[3]);
}

struct LineCase {
    const char* name;
    XPnt3d from, to;
    bool through;
};

const LineCase kLines[] = {
    {"ThroughTheMiddle", {5.0, 2.0, 9.0}, {5.0, 2.0, 0.0}, true},
    {"FromBelow", {5.0, 2.0, -9.0}, {5.0, 2.0, 0.0}, true},
    {"EndingBefore", {5.0, 2.0, 9.0}, {5.0, 2.0, 8.0}, true},
    {"Slanting", {-5.0, 2.0, 12.0}, {5.0, 2.0, 2.0}, true},
    {"NearACorner", {0.001, 0.001, 9.0}, {0.001, 0.001, 0.0}, true},
    {"OnAnEdge", {5.0, 0.0, 9.0}, {5.0, 0.0, 0.0}, true},
    {"ThroughACorner", {10.0, 5.0, 9.0}, {10.0, 5.0, 0.0}, true},
    {"BeyondTheFirstEdge", {5.0, -0.001, 9.0}, {5.0, -0.001, 0.0}, false},
    {"BeyondTheSecondEdge", {10.001, 2.0, 9.0}, {10.001, 2.0, 0.0}, false},
    {"BeyondTheThirdEdge", {5.0, 5.001, 9.0}, {5.0, 5.001, 0.0}, false},
    {"BeyondTheFourthEdge", {-0.001, 2.0, 9.0}, {-0.001, 2.0, 0.0}, false},
    {"Parallel", {0.0, 2.0, 9.0}, {10.0, 2.0, 9.0}, false},
    {"InThePlane", {0.0, 2.0, 2.0}, {10.0, 2.0, 2.0}, false},
    {"NoLine", {5.0, 2.0, 2.0}, {5.0, 2.0, 2.0}, false},
};

class TrackBallVisibilityLineAndQuad : public ::testing::TestWithParam<LineCase> {};

TEST_P(TrackBallVisibilityLineAndQuad, MeetInsideOrNot) {
    EXPECT_EQ(throughQuad(GetParam().from, GetParam().to), GetParam().through);
}

INSTANTIATE_TEST_SUITE_P(, TrackBallVisibilityLineAndQuad, ::testing::ValuesIn(kLines),
                         [](const auto& tested) { return tested.param.name; });

TEST(TrackBallVisibilityLineThroughQuad, AgreesWithThePlaceInAParallelogram) {
    RandomCameras random(82);
    for (int round = 0; round < 2000; ++round) {
        const XPnt3d corner = random.point(50.0);
        const XPnt3d first = random.direction() * random.number(1.0, 30.0);
        XPnt3d second = random.direction() * random.number(1.0, 30.0);
        while (cross(first, second).norm() < 0.2 * first.norm() * second.norm()) {
            second = random.direction() * random.number(1.0, 30.0);
        }
        const double u = random.number(-0.5, 1.5);
        const double v = random.number(-0.5, 1.5);
        const bool inside = u > 0.0 && u < 1.0 && v > 0.0 && v < 1.0;
        const XPnt3d hit = corner + first * u + second * v;
        const XPnt3d along = random.direction();
        const bool slants = std::fabs(dot(along, cross(first, second))) > 0.05 * cross(first, second).norm();
        const bool clear =
            std::min({std::fabs(u), std::fabs(u - 1.0), std::fabs(v), std::fabs(v - 1.0)}) > 1e-4;
        if (slants && clear) {
            ASSERT_EQ(isLineThroughQuad(hit - along * 7.0, hit + along * 3.0, corner, corner + first,
                                        corner + first + second, corner + second),
                      inside);
        }
    }
}

TEST(TrackBallVisibilityLineThroughQuad, MissesAQuadThatIsNone) {
    const XPnt3d a(1.0, 1.0, 1.0);
    EXPECT_FALSE(isLineThroughQuad({1.0, 1.0, 9.0}, {1.0, 1.0, 0.0}, a, a, a, a));
    EXPECT_FALSE(isLineThroughQuad({1.0, 1.0, 9.0}, {1.0, 1.0, 0.0}, a, a * 2.0, a * 3.0, a * 4.0));
}

}  // namespace
}  // namespace qel::test
