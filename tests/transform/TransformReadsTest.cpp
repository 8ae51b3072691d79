#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "CQelTransform2d.h"
#include "QelGl.h"
#include "QelRefPtr.h"
#include "kit/CallTrace.h"
#include "kit/GlSurface.h"

namespace qel::test {
namespace {

/// A planar view with a rectangle drawn over all of it, at a known depth.
class TransformReads : public ::testing::Test {
  protected:
    TransformReads() {
        transform->setDeviceExtent({0.0, 200.0, 0.0, 100.0, 0.0, 0.0});
        transform->setViewExtent({0.0, 20.0, 0.0, 10.0, 0.0, 0.0});
        transform->resizeViewport();
        transform->setDepthPicking(true);
        glEnable(GL_DEPTH_TEST);
        glTranslated(0.0, 0.0, kHeightDrawn);
        glRectd(0.0, 0.0, 20.0, 10.0);
        glTranslated(0.0, 0.0, -kHeightDrawn);
    }

    double heightAt(std::int32_t x, std::int32_t y) {
        XPnt3d point;
        transform->deviceToWorld(x, y, point);
        return point.z;
    }

    static constexpr double kHeightDrawn = 750.0;
    /// Two steps of a 24-bit depth buffer over the 6000 units of the depth range.
    static constexpr double kStep = 6000.0 / (1 << 24) * 2.0;

    GlSurface surface{200, 100};
    ref_ptr<CQelTransform2d> transform{new CQelTransform2d()};
};

TEST_F(TransformReads, TakesNoNoticeOfTheLayoutThatTheHostReadsWith) {
    constexpr GLenum kLayouts[] = {GL_PACK_SKIP_PIXELS, GL_PACK_SKIP_ROWS, GL_PACK_ROW_LENGTH};
    for (const GLenum layout : kLayouts) {
        glPixelStorei(layout, 3);
    }
    glPixelStorei(GL_PACK_SWAP_BYTES, GL_TRUE);
    EXPECT_NEAR(heightAt(100, 50), kHeightDrawn, kStep);
    GLint skipped = 0;
    glGetIntegerv(GL_PACK_SKIP_PIXELS, &skipped);
    EXPECT_EQ(skipped, 3);
}

TEST_F(TransformReads, AsksNoDriverForPixelsThatNoWindowHas) {
    constexpr std::int32_t kFar[] = {std::numeric_limits<std::int32_t>::max(),
                                     std::numeric_limits<std::int32_t>::min(), 1 << 25};
    for (const std::int32_t far : kFar) {
        const CallTrace trace;
        heightAt(far, 50);
        heightAt(100, far);
        EXPECT_EQ(trace.count("glReadPixels"), 0U) << far;
        EXPECT_EQ(trace.count("gluUnProject"), 2U) << far;
    }
}

TEST_F(TransformReads, FindsBackgroundBeyondAnyBuffer) {
    constexpr double kFarPlane = 3000.0;
    ASSERT_NEAR(heightAt(100, 50), kHeightDrawn, kStep);
    EXPECT_NEAR(heightAt(1 << 25, 50), kFarPlane, kStep);
    EXPECT_NEAR(heightAt(100, std::numeric_limits<std::int32_t>::min()), kFarPlane, kStep);
    EXPECT_NEAR(heightAt(300, 50), kFarPlane, kStep) << "right of the window";
    EXPECT_NEAR(heightAt(100, -50), kFarPlane, kStep) << "above the window";
}

}  // namespace
}  // namespace qel::test
