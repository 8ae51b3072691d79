#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "CQelTransform2d.h"
#include "ExtremeNumbers.h"
#include "QelGl.h"
#include "QelRefPtr.h"
#include "kit/CallTrace.h"
#include "kit/GlSurface.h"

namespace qel::test {
namespace {
constexpr std::int32_t kNowhere = std::numeric_limits<std::int32_t>::min();
using Transform = ref_ptr<CQelTransform2d>;

Enve3d deviceOf(int width, int height) {
    return {0.0, double(width), 0.0, double(height), 0.0, 0.0};
}

/// A view of a model on a surface of its size.
struct View {
    GlSurface surface;
    Transform transform{new CQelTransform2d()};

    View(int width, int height, const Enve3d& model, const Enve3d& shown) : surface(width, height) {
        transform->setModelExtent(model);
        transform->setViewExtent(shown);
        transform->setDeviceExtent(deviceOf(width, height));
        transform->resizeViewport();
    }
};

TEST(TransformPropertiesOfCalls, OfAProjectionReadTheMatricesAndSubtractTheOrigin) {
    const View view(40, 20, {1e6, 1e6 + 40, 2e6, 2e6 + 20, 5, 9}, {1e6, 1e6 + 40, 2e6, 2e6 + 20, 5, 9});
    const CallTrace trace;
    std::int32_t x = 0;
    std::int32_t y = 0;
    view.transform->projectPoint({1e6 + 3.5, 2e6 + 4.5, 6}, x, y);
    EXPECT_TRUE(
        callsMatch(trace.calls(),
                   {call("glGetDoublev", GL_PROJECTION_MATRIX, out),
                    call("glGetDoublev", GL_MODELVIEW_MATRIX, out), call("glGetIntegerv", GL_VIEWPORT, out),
                    call("gluProject", 3.5, 4.5, 1, any, any, values({0, 0, 40, 20}), out, out, out)}));
    EXPECT_EQ(x, 3);
    EXPECT_EQ(y, 4);
}

TEST(TransformPropertiesOfCalls, OfAPixelReadTheDepthAlwaysAndFlipTheRow) {
    const View view(40, 20, deviceOf(40, 20), deviceOf(40, 20));
    for (const bool picking : {false, true}) {
        view.surface.depth(0, 0);
        view.transform->setDepthPicking(picking);
        const CallTrace trace;
        view.transform->unprojectPixel(7, 5);
        EXPECT_TRUE(callsMatch(
            trace.calls("glRead", "glGet", "glu"),
            {call("glGetIntegerv", GL_PACK_SWAP_BYTES, out), call("glGetIntegerv", GL_PACK_ROW_LENGTH, out),
             call("glGetIntegerv", GL_PACK_SKIP_ROWS, out), call("glGetIntegerv", GL_PACK_SKIP_PIXELS, out),
             call("glGetIntegerv", GL_PACK_ALIGNMENT, out),
             call("glReadPixels", 7, 15, 1, 1, GL_DEPTH_COMPONENT, GL_FLOAT, any),
             call("glGetDoublev", GL_PROJECTION_MATRIX, out), call("glGetDoublev", GL_MODELVIEW_MATRIX, out),
             call("glGetIntegerv", GL_VIEWPORT, out),
             // Of an empty buffer the depth is 1.
             call("gluUnProject", 7, 15, picking ? 1 : 0, any, any, any, out, out, out)}));
    }
}

TEST(TransformPropertiesOfFit, KeepsTheCentreHoldsTheExtentAndHasTheShapeOfAnyWindow) {
    const Transform transform = new CQelTransform2d();
    std::mt19937 random(4711);
    std::uniform_real_distribution<double> share(0.001, 1.0);
    for (int round = 0; round < 2000; ++round) {
        const auto left = static_cast<std::int32_t>(random() % 500);
        const auto top = static_cast<std::int32_t>(random() % 500);
        const auto width = static_cast<std::int32_t>(1 + random() % 4000);
        const auto height = static_cast<std::int32_t>(1 + random() % 4000);
        const double x = share(random) * 1e4;
        const double y = -share(random) * 1e4;
        const Enve3d source{x, x + share(random), y, y + share(random), 1.0, 2.0};
        Enve3d fitted;
        EXPECT_TRUE(transform->fitExtentToDevice({left, left + width, top, top + height}, source, fitted));
        const double slack = 1e-9;
        EXPECT_NEAR(fitted.Width() * height, fitted.HightY() * width, slack * width * height);
        EXPECT_NEAR(fitted.xmin + fitted.xmax, source.xmin + source.xmax, slack);
        EXPECT_NEAR(fitted.ymin + fitted.ymax, source.ymin + source.ymax, slack);
        EXPECT_GE(fitted.Width(), source.Width() - slack);
        EXPECT_GE(fitted.HightY(), source.HightY() - slack);
        // No wider than it must be.
        EXPECT_NEAR(std::min(fitted.Width() - source.Width(), fitted.HightY() - source.HightY()), 0.0, slack);
    }
}

TEST(TransformPropertiesOfFit, MayWriteIntoItsSource) {
    const Transform transform = new CQelTransform2d();
    Enve3d extent{0, 10, 0, 10, 3, 4};
    transform->fitExtentToDevice({0, 200, 0, 100}, extent, extent);
    EXPECT_DOUBLE_EQ(extent.Width(), 20.0);
    EXPECT_DOUBLE_EQ(extent.HightY(), 10.0);
}

TEST(TransformPropertiesOfFit, ToAWindowWithoutASizeIsInfiniteOrNoNumber) {
    const Transform transform = new CQelTransform2d();
    const Enve3d source{0, 10, 0, 20, 3, 4};
    const double infinity = std::numeric_limits<double>::infinity();
    Enve3d fitted;
    // Infinitely many units for each pixel, and as many times nothing is no number.
    EXPECT_TRUE(transform->fitExtentToDevice({5, 5, 0, 100}, source, fitted));
    EXPECT_TRUE(std::isnan(fitted.xmin) && std::isnan(fitted.xmax));
    EXPECT_EQ(fitted.ymin, -infinity);
    EXPECT_EQ(fitted.ymax, infinity);
    EXPECT_TRUE(transform->fitExtentToDevice({0, 100, 7, 7}, source, fitted));
    EXPECT_EQ(fitted.xmin, -infinity);
    EXPECT_EQ(fitted.xmax, infinity);
    EXPECT_TRUE(std::isnan(fitted.ymin) && std::isnan(fitted.ymax));
    EXPECT_TRUE(transform->fitExtentToDevice({}, source, fitted));
    EXPECT_TRUE(std::isnan(fitted.xmin) && std::isnan(fitted.ymax));
    EXPECT_EQ(fitted.zmin, 3.0);
    EXPECT_EQ(fitted.zmax, 4.0);
}

TEST(TransformPropertiesOfFit, IsDoneOnceWhateverTheWindow) {
    const View view(40, 20, deviceOf(40, 20), deviceOf(40, 20));
    view.transform->setDeviceExtent({});
    view.transform->setFitPending(true);
    EXPECT_TRUE(view.transform->resizeViewport());
    EXPECT_TRUE(std::isnan(view.transform->getViewExtent().xmax));
    std::int32_t x = 0;
    std::int32_t y = 0;
    view.transform->projectPoint({7, 8, 0}, x, y);
    view.transform->unprojectPixel(3, 4);
    // A view of another shape than the window's: it is not widened.
    view.transform->setDeviceExtent(deviceOf(40, 20));
    view.transform->setViewExtent(deviceOf(40, 40));
    view.transform->resizeViewport();
    EXPECT_EQ(view.transform->getViewExtent().xmax, 40.0);
    view.transform->projectPoint({7.5, 8.5, 0}, x, y);
    EXPECT_EQ(x, 7);
    EXPECT_EQ(y, 4);
}

TEST(TransformPropertiesOfFit, OfAWildDeviceRectangleUsesTheOneConversionToIntegers) {
    const View view(40, 20, deviceOf(40, 20), deviceOf(40, 20));
    view.transform->setDeviceExtent({0, 1e300, 0, kNaN, 0, 0});
    const CallTrace trace;
    view.transform->resizeViewport();
    EXPECT_TRUE(callsMatch(trace.callsOf("glViewport"), {call("glViewport", 0, 0, kNowhere, kNowhere)}));
    view.transform->unprojectPixel(3, 4);
    EXPECT_TRUE(callsMatch(trace.callsOf("gluUnProject"),
                           {call("gluUnProject", 3, kNowhere, any, any, any, any, out, out, out)}));
}

struct Shape {
    int width;
    int height;
};

class TransformPropertiesOfShapes : public ::testing::TestWithParam<Shape> {};

/// On the pixel whose middle the point is; with depth picking, on what was drawn there.
TEST_P(TransformPropertiesOfShapes, BringEveryPixelBackWithAndWithoutDepthPicking) {
    const auto [width, height] = GetParam();
    constexpr double kLeft = 4.2e5;
    constexpr double kBottom = 5.6e6;
    constexpr double kUnit = 0.25;
    const Enve3d shown{kLeft, kLeft + width * kUnit, kBottom, kBottom + height * kUnit, 100, 140};
    View view(width, height, shown, shown);
    glEnable(GL_DEPTH_TEST);
    constexpr double kDrawnAt = 30.0;
    glBegin(GL_QUADS);
    for (const auto& [x, y] : {std::pair{0, 0}, {width, 0}, {width, height}, {0, height}}) {
        glVertex3d(x * kUnit, y * kUnit, kDrawnAt);
    }
    glEnd();
    std::mt19937 random(99);
    for (const bool picking : {false, true}) {
        view.transform->setDepthPicking(picking);
        for (int round = 0; round < 40; ++round) {
            const auto column = static_cast<std::int32_t>(random() % static_cast<unsigned>(width));
            const auto row = static_cast<std::int32_t>(1 + random() % static_cast<unsigned>(height));
            XPnt3d point;
            view.transform->deviceToWorld(column, row, point);
            // The corner of the pixel, to a hundredth of it.
            EXPECT_NEAR(point.x, kLeft + column * kUnit, kUnit * 0.01);
            EXPECT_NEAR(point.y, kBottom + (height - row) * kUnit, kUnit * 0.01);
            if (picking) {
                EXPECT_NEAR(point.z, 100 + kDrawnAt, 6040.0 / (1 << 24) * 4.0);
            }
            std::int32_t x = 0;
            std::int32_t y = 0;
            view.transform->worldToDevice(point + XPnt3d(kUnit / 2, kUnit / 2, 0), &x, &y);
            EXPECT_EQ(x, column);
            EXPECT_EQ(y, height - row);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Of, TransformPropertiesOfShapes,
                         ::testing::Values(Shape{1, 1}, Shape{1, 97}, Shape{97, 1}, Shape{640, 3},
                                           Shape{3, 480}, Shape{33, 33}, Shape{317, 211}),
                         [](const auto& tested) {
                             return std::to_string(tested.param.width) + "x" +
                                    std::to_string(tested.param.height);
                         });

/// What the local origin is for: in single precision the points of such a model would be metres apart.
TEST(TransformPropertiesOfDetail, OfHalfAMillimetreIsSeenFarFromTheOrigin) {
    constexpr double kPixel = 0.0005;
    for (const double far : {1e6, 1e7, -2.003e7, 1e8}) {
        SCOPED_TRACE(far);
        // The model spans a kilometre, the view shows its corner.
        const View view(200, 100, {far, far + 1000, far, far + 1000, 0, 1},
                        {far, far + 200 * kPixel, far, far + 100 * kPixel, 0, 1});
        for (int pixel = 0; pixel < 100; ++pixel) {
            std::int32_t x = 0;
            std::int32_t y = 0;
            view.transform->projectPoint({far + (pixel + 0.5) * kPixel, far + (pixel + 0.5) * kPixel, 0}, x,
                                         y);
            EXPECT_EQ(x, pixel);
            EXPECT_EQ(y, pixel);
        }
    }
}

}  // namespace
}  // namespace qel::test
