#include "QelHostKit.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "ExtremeNumbers.h"
#include "QelArrayElements.h"
#include "host/ViewSubject.h"
#include "kit/CallTrace.h"

namespace qel::test {
namespace {

TEST(HostKitGeometries, SayTheirKinds) {
    const struct {
        ref_ptr<IQelGeometry> geometry;
        GeometryKind kind;
    } cases[] = {
        {new qel::HostPoint({}), GeometryKind::Point},
        {new qel::HostPolyline({}), GeometryKind::Polyline},
        {new qel::HostPolygon({}), GeometryKind::Polygon},
        {new qel::HostRing({}), GeometryKind::Ring},
        {new qel::HostCurve({}), GeometryKind::Curve},
        {new qel::HostSegment({}, {}), GeometryKind::LineSegment},
        {new qel::HostBall({}, 1.0), GeometryKind::Ball},
    };
    for (const auto& [geometry, kind] : cases) {
        EXPECT_EQ(geometry->geometryType(), static_cast<std::int32_t>(kind));
        EXPECT_EQ(geometry->referenceCount(), 1);
    }
}

TEST(HostKitGeometries, LendTheirPointsInPlace) {
    const ref_ptr<IQelCurve> curves[] = {new qel::HostCurve({{1, 2, 3}, {4, 5, 6}}),
                                         new qel::HostRing({{1, 2, 3}, {4, 5, 6}})};
    for (const ref_ptr<IQelCurve>& curve : curves) {
        const ref_ptr<IQelPointArray> lent = curve->pointArray();
        ASSERT_EQ(lent->count(), 2);
        EXPECT_EQ(lent->points()[0].z, 3.0);
        EXPECT_EQ(lent->points()[1].x, 4.0);
        EXPECT_EQ(curve->pointArray()->points(), lent->points());
    }
}

TEST(HostKitGeometries, HaveNoPartsOutsideTheirRange) {
    const ref_ptr<qel::HostPolyline> polyline = new qel::HostPolyline({{{1, 2, 3}}, {{4, 5, 6}, {7, 8, 9}}});
    ASSERT_EQ(polyline->partCount(), 2);
    EXPECT_EQ(polyline->part(1)->pointArray()->count(), 2);
    EXPECT_EQ(polyline->part(2), nullptr);
    EXPECT_EQ(polyline->part(-1), nullptr);
    const ref_ptr<qel::HostPolygon> polygon = new qel::HostPolygon({{{1, 2, 3}}});
    ASSERT_EQ(polygon->ringCount(), 1);
    EXPECT_EQ(polygon->ring(0)->pointArray()->points()->y, 2.0);
    EXPECT_EQ(polygon->ring(1), nullptr);
    EXPECT_EQ(polygon->ring(-1), nullptr);
}

TEST(HostKitGeometries, KeepTheirPlaces) {
    const ref_ptr<qel::HostBall> ball = new qel::HostBall({1, 2, 3}, 4.0);
    EXPECT_EQ(ball->radius(), 4.0);
    EXPECT_EQ(ball->center().y, 2.0);
    const ref_ptr<qel::HostPoint> point = new qel::HostPoint({1, 2, 3});
    EXPECT_EQ(point->position.z, 3.0);
    const ref_ptr<qel::HostSegment> segment = new qel::HostSegment({1, 2, 3}, {4, 5, 6});
    EXPECT_EQ(segment->start.x, 1.0);
    EXPECT_EQ(segment->end.z, 6.0);
}

TEST(HostKitArrays, LendTheirElementsInPlace) {
    const ref_ptr<qel::HostArray<ArrayIndex>> indices = new qel::HostArray<ArrayIndex>({7, 8, 9});
    EXPECT_EQ(indices->count(), 3);
    EXPECT_EQ(indices->data()[2], 9U);
    indices->content().push_back(10);
    EXPECT_EQ(indices->count(), 4);
    EXPECT_EQ(indices->data(), indices->content().data());
}

TEST(HostKitArrays, HaveNoMemoryWhenTheyAreEmpty) {
    const ref_ptr<qel::HostArray<ArrayIndex>> none = new qel::HostArray<ArrayIndex>({});
    EXPECT_EQ(none->count(), 0);
    EXPECT_EQ(none->data(), nullptr);
    const ref_ptr<IQelPointArray> nowhere = new qel::HostPointArray({});
    EXPECT_EQ(nowhere->count(), 0);
    EXPECT_EQ(nowhere->points(), nullptr);
}

TEST(HostKitClippingPlanes, EncloseTheBoxSeenFromOutside) {
    const ViewSubject view;
    view->setCamera({0, -100, 0}, {0, 0, 0}, {0, 0, 1});
    qel::fitClippingPlanes(*view, {-3, 3, -4, 4, -12, 12});  // a diagonal of 26
    EXPECT_DOUBLE_EQ(view->getNearPlane(), 80.5);
    EXPECT_DOUBLE_EQ(view->getFarPlane(), 119.5);
}

TEST(HostKitClippingPlanes, EncloseABoxBesideTheAxisOfTheView) {
    const ViewSubject view;
    view->setCamera({0, 0, 0}, {0, 100, 0}, {0, 0, 1});
    qel::fitClippingPlanes(*view, {297, 303, 396, 404, -12, 12});  // 400 ahead, 500 away
    EXPECT_DOUBLE_EQ(view->getNearPlane(), 95.0);
    EXPECT_DOUBLE_EQ(view->getFarPlane(), 419.5);
    view->setCamera({0, 0, 0}, {0, 400, 0}, {0, 0, 1});
    qel::fitClippingPlanes(*view, {297, 303, 396, 404, -12, 12});
    EXPECT_DOUBLE_EQ(view->getNearPlane(), 380.0);
}

TEST(HostKitClippingPlanes, LeaveNothingOfABoxBehindTheEye) {
    const ViewSubject view;
    view->setCamera({0, 0, 0}, {0, 40, 0}, {0, 0, 1});
    qel::fitClippingPlanes(*view, {-3, 3, -104, -96, -12, 12});
    EXPECT_DOUBLE_EQ(view->getNearPlane(), 0.0325);
    EXPECT_DOUBLE_EQ(view->getFarPlane(), 42.0);
}

TEST(HostKitClippingPlanes, MeasureTheDistanceOfTheBoxWhereTheTargetIsTheEye) {
    const ViewSubject view;
    view->setCamera({0, -100, 0}, {0, -100, 0}, {0, 0, 1});
    qel::fitClippingPlanes(*view, {-3, 3, -4, 4, -12, 12});
    EXPECT_DOUBLE_EQ(view->getFarPlane(), 119.5);
}

TEST(HostKitClippingPlanes, StayInFrontOfAnEyeInsideTheBox) {
    const ViewSubject view;
    view->setCamera({0, -1, 0}, {0, 0, 0}, {0, 0, 1});
    qel::fitClippingPlanes(*view, {-3, 3, -4, 4, -12, 12});
    EXPECT_DOUBLE_EQ(view->getNearPlane(), 0.0325);
    EXPECT_DOUBLE_EQ(view->getFarPlane(), 20.5);
}

TEST(HostKitClippingPlanes, EncloseATargetThatLiesOutsideTheBox) {
    const Enve3d box{-3, 3, -4, 4, -12, 12};
    const ViewSubject view;
    view->setCamera({0, -100, 0}, {0, -60, 0}, {0, 0, 1});
    qel::fitClippingPlanes(*view, box);
    EXPECT_DOUBLE_EQ(view->getNearPlane(), 38.0);
    EXPECT_DOUBLE_EQ(view->getFarPlane(), 119.5);
    view->setCamera({0, -100, 0}, {0, 100, 0}, {0, 0, 1});
    qel::fitClippingPlanes(*view, box);
    EXPECT_DOUBLE_EQ(view->getNearPlane(), 80.5);
    EXPECT_DOUBLE_EQ(view->getFarPlane(), 210.0);
}

TEST(HostKitClippingPlanes, KeepTheTargetBetweenThem) {
    const ViewSubject view;
    for (const double distance : {20.0, 60.0, 100.0, 200.0}) {
        view->setCamera({0, -100, 0}, {0, distance - 100, 0}, {0, 0, 1});
        qel::fitClippingPlanes(*view, {-3, 3, -4, 4, -12, 12});
        view->updateView();
        const double depth = view->projectPnt(view->getTarget()).z;
        EXPECT_GT(depth, 0.0) << distance;
        EXPECT_LT(depth, 1.0) << distance;
    }
}

TEST(HostKitClippingPlanes, AreLoadedWithTheNextView) {
    const ViewSubject view;
    const CallTrace trace;
    qel::fitClippingPlanes(*view, {-1, 1, -1, 1, -1, 1});
    EXPECT_TRUE(trace.calls().empty());
    view->updateView();
    EXPECT_EQ(trace.count("gluPerspective"), 1U);
}

TEST(HostKitClippingPlanes, StandAroundTheTargetOfASinglePoint) {
    const ViewSubject view;
    view->setCamera({0, -100, 0}, {0, 0, 0}, {0, 0, 1});
    qel::fitClippingPlanes(*view, {0, 0, 0, 0, 0, 0});
    EXPECT_DOUBLE_EQ(view->getNearPlane(), 95.0);
    EXPECT_DOUBLE_EQ(view->getFarPlane(), 105.0);
}

TEST(HostKitClippingPlanes, IgnoreAnInvalidBox) {
    const ViewSubject view;
    Enve3d invalid;
    invalid.setInvalid();
    for (const Enve3d& box : {invalid, Enve3d{0, kNaN, 0, 1, 0, 1}, Enve3d{0, 1, 0, 1, 0, kNaN}}) {
        qel::fitClippingPlanes(*view, box);
        EXPECT_EQ(view->getNearPlane(), 0.001);
        EXPECT_EQ(view->getFarPlane(), 50000.0);
    }
}

}  // namespace
}  // namespace qel::test
