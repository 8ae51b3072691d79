#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "Monkey.h"
#include "QelGl.h"
#include "host/ViewSubject.h"

namespace qel::test {
namespace {

using CameraOperation = MonkeyOperation<IQelTrackBall>;

/// Sizes that a window can have, and some that none has.
std::uint32_t viewSide(WildArguments& wild) {
    constexpr std::uint32_t kImpossible[] = {0U, 0x80000000U, 0xFFFFFFFFU};
    return wild.pick(8) == 0 ? kImpossible[wild.pick(3)] : static_cast<std::uint32_t>(1 + wild.pick(300));
}

constexpr CameraOperation kCameraOperations[] = {
    {"onResize",
     [](IQelTrackBall& v, WildArguments& w) {
         const std::uint32_t width = viewSide(w);
         v.onResize(width, viewSide(w));
     }},
    {"onButtonDown",
     [](IQelTrackBall& v, WildArguments& w) {
         const std::int32_t button = w.pick(6) == 0 ? w.whole() : static_cast<std::int32_t>(w.pick(4));
         const std::int32_t x = w.pixel();
         v.onButtonDown(button, x, w.pixel());
     }},
    {"onMouseMove",
     [](IQelTrackBall& v, WildArguments& w) {
         const std::int32_t x = w.pixel();
         v.onMouseMove(x, w.pixel());
     }},
    {"onButtonUp", [](IQelTrackBall& v, WildArguments&) { v.onButtonUp(); }},
    {"getDragButton", [](IQelTrackBall& v, WildArguments&) { v.getDragButton(); }},
    {"applyMotion",
     [](IQelTrackBall& v, WildArguments& w) {
         double values[6];
         for (double& value : values) {
             value = w.real();
         }
         v.applyMotion(w.pick(20) == 0 ? nullptr : values);
     }},
    {"setCamera",
     [](IQelTrackBall& v, WildArguments& w) {
         const XPnt3d eye = w.point();
         const XPnt3d target = w.point();
         v.setCamera(eye, target, w.point());
     }},
    {"updateSphereRadius", [](IQelTrackBall& v, WildArguments&) { v.updateSphereRadius(); }},
    {"drawTrackBall", [](IQelTrackBall& v, WildArguments&) { v.drawTrackBall(); }},
    {"drawAxes", [](IQelTrackBall& v, WildArguments&) { v.drawAxes(); }},
    {"drawFrame",
     [](IQelTrackBall& v, WildArguments& w) {
         const XPnt3d at = w.point();
         const XPnt3d x = w.point();
         const XPnt3d y = w.point();
         const float size = w.single();
         v.drawFrame(at.x, at.y, at.z, x, y, size, w.flag());
     }},
    {"drawLabel",
     [](IQelTrackBall& v, WildArguments& w) {
         const XPnt3d at = w.point();
         const XPnt2d beside = w.flatPoint();
         if (w.pick(10) == 0) {
             v.drawLabel(at.x, at.y, at.z, beside.x, beside.y, nullptr);
         } else {
             v.drawLabel(at.x, at.y, at.z, beside.x, beside.y, "%s", w.text().c_str());
         }
     }},
    {"isBusy", [](IQelTrackBall& v, WildArguments&) { v.isBusy(); }},
    {"refreshDepth", [](IQelTrackBall& v, WildArguments&) { v.refreshDepth(); }},
    {"setRotationCenter",
     [](IQelTrackBall& v, WildArguments& w) {
         const XPnt3d center = w.point();
         v.setRotationCenter(center.x, center.y, center.z);
     }},
    {"setRotationCenterAt",
     [](IQelTrackBall& v, WildArguments& w) {
         const std::int32_t x = w.pixel();
         v.setRotationCenterAt(x, w.pixel());
     }},
    {"setOrthoView",
     [](IQelTrackBall& v, WildArguments& w) {
         const XPnt3d target = w.point();
         const XPnt3d direction = w.point();
         const XPnt3d up = w.point();
         v.setOrthoView(target, direction, up, w.box());
     }},
    {"setOrtho", [](IQelTrackBall& v, WildArguments&) { v.setOrtho(); }},
    {"setPerspective", [](IQelTrackBall& v, WildArguments&) { v.setPerspective(); }},
    {"moveBy",
     [](IQelTrackBall& v, WildArguments& w) {
         const XPnt3d by = w.point();
         v.moveBy(by.x, by.y, by.z);
     }},
    {"pan",
     [](IQelTrackBall& v, WildArguments& w) {
         const double x = w.real();
         v.pan(x, w.real());
     }},
    {"setStandardView",
     [](IQelTrackBall& v, WildArguments& w) { v.setStandardView(static_cast<std::uint32_t>(w.whole())); }},
    {"zoomToExtent",
     [](IQelTrackBall& v, WildArguments& w) {
         const Enve3d box = w.box();
         v.zoomToExtent(box, w.flag());
     }},
    {"zoomToModel", [](IQelTrackBall& v, WildArguments& w) { v.zoomToModel(w.flag()); }},
    {"setExtent",
     [](IQelTrackBall& v, WildArguments& w) {
         const Enve3d box = w.box();
         v.setExtent(box, w.flag());
     }},
    {"zoomAt",
     [](IQelTrackBall& v, WildArguments& w) {
         const float factor = w.single();
         const std::int32_t x = w.pixel();
         v.zoomAt(factor, x, w.pixel());
     }},
    {"isPlanView", [](IQelTrackBall& v, WildArguments&) { v.isPlanView(); }},
    {"isLevelView", [](IQelTrackBall& v, WildArguments&) { v.isLevelView(); }},
    {"setOverlayOption", [](IQelTrackBall& v, WildArguments& w) { v.setOverlayOption(w.flag()); }},
    {"updateView", [](IQelTrackBall& v, WildArguments&) { v.updateView(); }},
    {"setFieldOfView", [](IQelTrackBall& v, WildArguments& w) { v.setFieldOfView(w.real()); }},
    {"setNearPlane", [](IQelTrackBall& v, WildArguments& w) { v.setNearPlane(w.real()); }},
    {"setFarPlane", [](IQelTrackBall& v, WildArguments& w) { v.setFarPlane(w.real()); }},
    {"getPixelsPerUnit", [](IQelTrackBall& v, WildArguments&) { v.getPixelsPerUnit(); }},
    {"setViewport",
     [](IQelTrackBall& v, WildArguments& w) {
         const std::int32_t x = w.pixel();
         const std::int32_t y = w.pixel();
         const std::int32_t width = w.pixel();
         v.setViewport(x, y, width, w.pixel());
     }},
    {"getViewport", [](IQelTrackBall& v, WildArguments&) { v.getViewport(); }},
    {"getModelviewMatrix", [](IQelTrackBall& v, WildArguments&) { v.getModelviewMatrix(); }},
    {"getProjectionMatrix", [](IQelTrackBall& v, WildArguments&) { v.getProjectionMatrix(); }},
    {"getModelPntAt",
     [](IQelTrackBall& v, WildArguments& w) {
         const double x = w.real();
         v.getModelPntAt(x, w.real());
     }},
    {"unProject", [](IQelTrackBall& v, WildArguments& w) { v.unProjectPnt(w.point()); }},
    {"pickModelPnt",
     [](IQelTrackBall& v, WildArguments& w) {
         const double x = w.real();
         v.pickModelPnt(x, w.real());
     }},
    {"project", [](IQelTrackBall& v, WildArguments& w) { v.projectPnt(w.point()); }},
    {"isBoxInRect",
     [](IQelTrackBall& v, WildArguments& w) {
         const Enve2d rect = w.rect();
         v.isBoxInRect(rect, w.box());
     }},
    {"isBoxVisible", [](IQelTrackBall& v, WildArguments& w) { v.isBoxVisible(w.box()); }},
    {"isPntInView",
     [](IQelTrackBall& v, WildArguments& w) {
         const XPnt3d at = w.point();
         v.isPntInView(at.x, at.y, at.z);
     }},
    {"getScreenCoverage", [](IQelTrackBall& v, WildArguments& w) { v.getScreenCoverage(w.box()); }},
    {"getMode", [](IQelTrackBall& v, WildArguments&) { v.getMode(); }},
    {"lookAtTriangle",
     [](IQelTrackBall& v, WildArguments& w) {
         const PNT3D a = w.plainPoint();
         const PNT3D b = w.plainPoint();
         v.lookAtTriangle(a, b, w.plainPoint());
     }},
    {"zoomInRect", [](IQelTrackBall& v, WildArguments& w) { v.zoomInRect(w.pixelRect()); }},
    {"zoomOutRect", [](IQelTrackBall& v, WildArguments& w) { v.zoomOutRect(w.pixelRect()); }},
};

/// Every field that a host can ask for.
std::vector<double> fieldsOf(IQelTrackBall& view) {
    std::vector<double> fields;
    for (const XPnt3d& point : {view.getEye(), view.getTarget(), view.getUp()}) {
        fields.insert(fields.end(), {point.x, point.y, point.z});
    }
    const Enve3d box = view.getExtent();
    fields.insert(fields.end(), {box.xmin, box.xmax, box.ymin, box.ymax, box.zmin, box.zmax});
    fields.insert(fields.end(), {view.getFieldOfView(), view.getNearPlane(), view.getFarPlane()});
    fields.insert(fields.end(),
                  {static_cast<double>(view.getWidth()), static_cast<double>(view.getHeight())});
    fields.push_back(view.isOrtho() ? 1.0 : 0.0);
    fields.push_back(view.getOverlayOption() ? 1.0 : 0.0);
    fields.push_back(view.getDragButton());
    return fields;
}

class CameraMonkey : public ::testing::TestWithParam<std::uint64_t> {
  protected:
    // The matrices print when they cannot be inverted; that is shown only with a failure.
    void SetUp() override { ::testing::internal::CaptureStdout(); }
    void TearDown() override {
        const std::string printed = ::testing::internal::GetCapturedStdout();
        if (HasFailure()) {
            std::puts(printed.substr(0, 1000).c_str());
        }
        // A wild camera makes OpenGL refuse projections; that is its business.
        glGetError();
    }
};

TEST_P(CameraMonkey, LeavesAFiniteCameraAndRefusedCallsChangeNoField) {
    ViewSubject view;
    view->setExtent({-1.0, 1.0, -1.0, 1.0, -1.0, 1.0}, true);
    std::vector<double> before;
    letMonkeyPlay<IQelTrackBall>(
        *view, kCameraOperations, GetParam(), [&] { before = fieldsOf(*view); },
        [&](const CameraOperation&, const WildArguments& wild) {
            const std::vector<double> after = fieldsOf(*view);
            for (std::size_t field = 0; field < after.size(); ++field) {
                ASSERT_TRUE(std::isfinite(after[field])) << "field " << field;
            }
            if (!wild.isSound()) {
                ASSERT_EQ(after, before);
            }
        });
    // A host that goes on with its work afterwards finds a camera that works.
    view->onButtonUp();
    view->onResize(200, 100);
    view->setPerspective();
    view->setFieldOfView(27.0);
    view->setExtent({-1.0, 1.0, -1.0, 1.0, -1.0, 1.0}, false);
    view->setStandardView(ViewRight);
    const XPnt3d middle = view->project(0.0, 0.0, 0.0);
    EXPECT_NEAR(middle.x, 100.0, 1e-3);
    EXPECT_NEAR(middle.y, 50.0, 1e-3);
    EXPECT_TRUE(view->isPntInView(0.0, 0.0, 0.0));
    glGetError();
}

INSTANTIATE_TEST_SUITE_P(Seed, CameraMonkey, ::testing::ValuesIn(monkeySeeds()),
                         ::testing::PrintToStringParamName());

}  // namespace
}  // namespace qel::test
