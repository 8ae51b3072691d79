#include <gtest/gtest.h>

#include "CQelTranform.h"
#include "CQelTransform2d.h"
#include "QelRefPtr.h"
#include "QelStatus.h"

namespace qel::test {
namespace {

using Transform = ref_ptr<CQelTransform2d>;

Transform newTransform() {
    return new CQelTransform2d();
}

void expectEqual(const Enve3d& actual, const Enve3d& expected) {
    EXPECT_EQ(actual.xmin, expected.xmin);
    EXPECT_EQ(actual.xmax, expected.xmax);
    EXPECT_EQ(actual.ymin, expected.ymin);
    EXPECT_EQ(actual.ymax, expected.ymax);
    EXPECT_EQ(actual.zmin, expected.zmin);
    EXPECT_EQ(actual.zmax, expected.zmax);
}

TEST(TransformState, SaysWhatItIs) {
    const Transform transform = newTransform();
    EXPECT_EQ(static_cast<std::uint32_t>(transform->getKind()), 0xFFFFFFFFU);
    EXPECT_EQ(transform->isPlanar(), 1);
    EXPECT_FALSE(transform->hasRotation());
    EXPECT_FALSE(transform->isPerspective());
    EXPECT_EQ(transform->reservedSlot26(), kNotImplemented);
    EXPECT_EQ(transform->reservedSlot29(), 0);
}

TEST(TransformState, KeepsNoAnchorPoint) {
    const Transform transform = newTransform();
    EXPECT_FALSE(transform->setAnchorPoint({1.0, 2.0, 3.0}));
    const XPnt3d anchor = transform->getAnchorPoint();
    EXPECT_EQ(anchor.x, 0.0);
    EXPECT_EQ(anchor.y, 0.0);
    EXPECT_EQ(anchor.z, 0.0);
}

TEST(TransformState, TakesTheMinimumCornerOfTheModelAsItsOrigin) {
    const Transform transform = newTransform();
    const Enve3d model{10.0, 20.0, 100.0, 200.0, 5.0, 6.0};
    EXPECT_EQ(transform->setModelExtent(model), 0);
    const XPnt3d origin = transform->getOrigin();
    EXPECT_EQ(origin.x, 10.0);
    EXPECT_EQ(origin.y, 100.0);
    EXPECT_EQ(origin.z, 5.0);
    expectEqual(transform->getModelExtent(), model);
}

TEST(TransformState, GivesBackTheViewExtentInOrder) {
    const Transform transform = newTransform();
    transform->setModelExtent({10.0, 20.0, 100.0, 200.0, 5.0, 6.0});
    EXPECT_EQ(transform->setViewExtent({18.0, 12.0, 180.0, 120.0, 6.0, 5.0}), 0);
    expectEqual(transform->getViewExtent(), {12.0, 18.0, 120.0, 180.0, 5.0, 6.0});
}

TEST(TransformState, MovesAnEarlierViewExtentWithTheOrigin) {
    const Transform transform = newTransform();
    transform->setViewExtent({1.0, 2.0, 3.0, 4.0, 5.0, 6.0});
    transform->setModelExtent({10.0, 20.0, 100.0, 200.0, 1000.0, 2000.0});
    expectEqual(transform->getViewExtent(), {11.0, 12.0, 103.0, 104.0, 1005.0, 1006.0});
}

TEST(TransformState, KeepsFlatModelsFlat) {
    const Transform transform = newTransform();
    const Enve3d flat{10.0, 20.0, 100.0, 200.0, 2147483647.0, -2147483647.0};
    transform->setModelExtent(flat);
    EXPECT_EQ(transform->getOrigin().z, 0.0);
    expectEqual(transform->getModelExtent(), flat);
}

TEST(TransformState, StoresTheDeviceRectangleAsGiven) {
    const Transform transform = newTransform();
    const Enve3d upsideDown{5.0, 1.0, 9.0, 2.0, 0.0, 0.0};
    EXPECT_EQ(transform->setDeviceExtent(upsideDown), 0);
    expectEqual(transform->getDeviceExtent(), upsideDown);
}

TEST(TransformState, KeepsTheHostsNumbers) {
    const Transform transform = newTransform();
    EXPECT_EQ(transform->getModeValue(), 0);
    EXPECT_EQ(transform->getParamA(), 0.0);
    EXPECT_EQ(transform->setModeValue(-7), 0);
    EXPECT_EQ(transform->setParamA(1.5), 0);
    EXPECT_EQ(transform->setParamB(2.5), 0);
    EXPECT_EQ(transform->setParamC(3.5), 0);
    EXPECT_EQ(transform->setParamD(4.5), 0);
    EXPECT_EQ(transform->getModeValue(), -7);
    EXPECT_EQ(transform->getParamA(), 1.5);
    EXPECT_EQ(transform->getParamB(), 2.5);
    EXPECT_EQ(transform->getParamC(), 3.5);
    EXPECT_EQ(transform->getParamD(), 4.5);
}

TEST(TransformState, AnswersFalseWhenDepthPickingIsSet) {
    const Transform transform = newTransform();
    EXPECT_FALSE(transform->getDepthPicking());
    EXPECT_FALSE(transform->setDepthPicking(true));
    EXPECT_TRUE(transform->getDepthPicking());
}

TEST(TransformState, CopiesEverythingButTheReferences) {
    const Transform original = newTransform();
    original->setModelExtent({10.0, 20.0, 100.0, 200.0, 5.0, 6.0});
    original->setParamC(8.0);
    const Transform copy = new CQelTransform2d(*original);
    expectEqual(copy->getModelExtent(), original->getModelExtent());
    EXPECT_EQ(copy->getParamC(), 8.0);
    EXPECT_EQ(copy->referenceCount(), 1);
}

TEST(TransformState, IsSupported) {
    CQelTranform answer;
    EXPECT_EQ(answer.isSupported(), 1);
    CQelTranform copy(answer);
    copy = answer;
    EXPECT_EQ(copy.isSupported(), 1);
}

}  // namespace
}  // namespace qel::test
