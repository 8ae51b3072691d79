#include <gtest/gtest.h>

#include <cstdint>

#include "CQelTransform2d.h"
#include "Monkey.h"
#include "QelGl.h"
#include "QelRefPtr.h"
#include "kit/GlSurface.h"

namespace qel::test {
namespace {

using TransformOperation = MonkeyOperation<CQelTransform2d>;

constexpr TransformOperation kTransformOperations[] = {
    {"setAnchorPoint", [](CQelTransform2d& t, WildArguments& w) { t.setAnchorPoint(w.point()); }},
    {"setModelExtent", [](CQelTransform2d& t, WildArguments& w) { t.setModelExtent(w.box()); }},
    {"setDeviceExtent", [](CQelTransform2d& t, WildArguments& w) { t.setDeviceExtent(w.box()); }},
    {"setViewExtent", [](CQelTransform2d& t, WildArguments& w) { t.setViewExtent(w.box()); }},
    {"setModeValue", [](CQelTransform2d& t, WildArguments& w) { t.setModeValue(w.whole()); }},
    {"setParamA", [](CQelTransform2d& t, WildArguments& w) { t.setParamA(w.real()); }},
    {"setParamD", [](CQelTransform2d& t, WildArguments& w) { t.setParamD(w.real()); }},
    {"setDepthPicking", [](CQelTransform2d& t, WildArguments& w) { t.setDepthPicking(w.flag()); }},
    {"setFitPending", [](CQelTransform2d& t, WildArguments& w) { t.setFitPending(w.flag()); }},
    {"applyProjection", [](CQelTransform2d& t, WildArguments&) { t.applyProjection(); }},
    {"resizeViewport", [](CQelTransform2d& t, WildArguments&) { t.resizeViewport(); }},
    {"fitExtentToDevice",
     [](CQelTransform2d& t, WildArguments& w) {
         const DeviceRect rectangle{w.whole(), w.whole(), w.whole(), w.whole()};
         Enve3d extent = w.box();
         t.fitExtentToDevice(rectangle, extent, extent);
     }},
    {"worldToDevice",
     [](CQelTransform2d& t, WildArguments& w) {
         std::int32_t x = 0;
         std::int32_t y = 0;
         const XPnt3d point = w.point();
         t.worldToDevice(point, w.pick(9) == 0 ? nullptr : &x, w.pick(9) == 0 ? nullptr : &y);
         t.projectPoint(point, x, y);
     }},
    {"deviceToWorld",
     [](CQelTransform2d& t, WildArguments& w) {
         XPnt3d point;
         const std::int32_t x = w.pixel();
         const std::int32_t y = w.pixel();
         t.deviceToWorld(x, y, point);
         t.unprojectPixel(x, y);
     }},
    {"getModelExtent",
     [](CQelTransform2d& t, WildArguments&) {
         t.getModelExtent();
         t.getViewExtent();
         t.getDeviceExtent();
         t.getOrigin();
     }},
};

class TransformMonkey : public ::testing::TestWithParam<std::uint64_t> {};

TEST_P(TransformMonkey, EndsWithATransformThatWorks) {
    const GlSurface surface(200, 100);
    const ref_ptr<CQelTransform2d> transform(new CQelTransform2d());
    letMonkeyPlay<CQelTransform2d>(
        *transform, kTransformOperations, GetParam(), [] {},
        [&](const TransformOperation&, const WildArguments&) {
            ASSERT_EQ(transform->referenceCount(), 1);
            glGetError();
        });
    transform->setFitPending(false);
    transform->setDepthPicking(false);
    transform->setModelExtent({100.0, 300.0, 500.0, 600.0, 0.0, 0.0});
    transform->setViewExtent({100.0, 300.0, 500.0, 600.0, 0.0, 0.0});
    transform->setDeviceExtent({0.0, 200.0, 0.0, 100.0, 0.0, 0.0});
    transform->resizeViewport();
    std::int32_t x = 0;
    std::int32_t y = 0;
    transform->worldToDevice({150.5, 525.5, 0.0}, &x, &y);
    EXPECT_EQ(x, 50);
    EXPECT_EQ(y, 25);
    XPnt3d point;
    transform->deviceToWorld(50, 75, point);
    EXPECT_NEAR(point.x, 150.0, 1e-4);
    EXPECT_NEAR(point.y, 525.0, 1e-4);
}

INSTANTIATE_TEST_SUITE_P(Seed, TransformMonkey, ::testing::ValuesIn(monkeySeeds()),
                         ::testing::PrintToStringParamName());

}  // namespace
}  // namespace qel::test
