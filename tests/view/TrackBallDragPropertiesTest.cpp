#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "EyeOracle.h"
#include "QelGl.h"
#include "WatchedCamera.h"
#include "kit/GlSurface.h"

/// What a hand on the mouse expects of a drag, over many cameras.

namespace qel::test {

namespace {

struct Size {
    std::uint32_t width;
    std::uint32_t height;
};

constexpr Size kSizes[] = {{640, 480}, {480, 640}, {900, 100}, {101, 733}, {333, 331}, {64, 64}};
constexpr int kCamerasOfASize = 40;

struct RandomView {
    std::string name;
    double size;
    glm::dvec3 center;
};

class TrackBallDragProperties : public ::testing::TestWithParam<bool> {
  protected:
    double between(double lower, double upper) {
        return std::uniform_real_distribution<double>(lower, upper)(random);
    }

    glm::dvec3 direction() {
        std::normal_distribution<double> number;
        return glm::normalize(glm::dvec3(number(random), number(random), number(random)));
    }

    /// A camera that looks at a model from somewhere. One in three models lies around a coordinate of a
    /// million; there it is large enough for a pixel to be more than a step of OpenGL's single precision,
    /// which is a sixteenth of a unit. A model of ten units there would jump by many pixels: hosts subtract
    /// an origin first.
    RandomView place(const Size& size, int round, bool upIsPerpendicular) {
        const bool farOut = round % 3 == 0;
        const double model = farOut ? std::pow(10.0, between(2.5, 4.6)) : std::pow(10.0, between(-1.0, 5.0));
        glm::dvec3 middle = direction() * model * between(0.0, 3.0);
        if (farOut) {
            middle = glm::dvec3(1e6, -1e6, 1e6) + direction() * 1e5;
        }
        const double half = model * 0.5 / std::sqrt(3.0);
        camera->onResize(size.width, size.height);
        camera->setPerspective();
        camera->setExtent({middle.x - half, middle.x + half, middle.y - half, middle.y + half,
                           middle.z - half, middle.z + half},
                          false);
        const glm::dvec3 back = direction();
        const double away = model * between(1.2, 4.0);
        const glm::dvec3 target = middle + direction() * model * 0.1;
        const glm::dvec3 eye = target + back * away;
        glm::dvec3 up = glm::normalize(glm::cross(back, direction()));
        if (!upIsPerpendicular) {
            up = (up + back * between(-0.8, 0.8)) * between(0.2, 5.0);
        }
        camera->setCamera(asPoint(eye), asPoint(target), asPoint(up));
        const glm::dvec3 center = middle + direction() * model * 0.2;
        // A frame without anything drawn: the depth is that of the extent.
        camera->refreshDepth();
        if (GetParam()) {
            camera->updateOrthoBox(false);
            camera->setOrtho();
            camera->refreshDepth();
        }
        camera->setRotationCenter(center.x, center.y, center.z);
        return {std::to_string(size.width) + " x " + std::to_string(size.height) + ", camera " +
                    std::to_string(round),
                model, center};
    }

    /// Radius of the sphere in pixels.
    double radiusPx(const RandomView& view) {
        const XPnt3d image = camera->projectPnt(asPoint(view.center));
        double beside[3] = {};
        camera->mapToSphere(image.x + 0.5, image.y, beside);
        return 0.5 / beside[0];
    }

    GlSurface surface{900, 733};
    std::mt19937 random{2024};
    ref_ptr<CQelTrackBall> camera{new CQelTrackBall};
};

TEST_P(TrackBallDragProperties, TheFrontOfTheModelFollowsARotation) {
    for (const Size& size : kSizes) {
        for (int round = 0; round < kCamerasOfASize; ++round) {
            const RandomView view = place(size, round, false);
            SCOPED_TRACE(view.name);
            const EyeOracle before(*camera);
            const double radius = radiusPx(view);
            const double modelRadius = radius * before.unitsPerPixel(before.inEye(view.center).z);
            const glm::dvec3 front =
                view.center + before.inModel(glm::dvec3(0.0, 0.0, 1.0)) * modelRadius * 0.3;
            const glm::dvec2 from = before.pixel(view.center);
            const double angle = between(0.0, 2.0 * 3.14159);
            for (const glm::dvec2& way :
                 {glm::dvec2(1.0, 0.0), glm::dvec2(0.0, 1.0), glm::dvec2(std::cos(angle), std::sin(angle))}) {
                camera->onButtonDown(DragRotate, from.x, from.y);
                camera->onMouseMove(from.x + way.x * radius * 0.1, from.y + way.y * radius * 0.1);
                const glm::dvec2 moved = EyeOracle(*camera).pixel(front) - before.pixel(front);
                // Twice the sine of the angle on the sphere, times the share of the radius; a perspective
                // looks at it from nearer.
                EXPECT_GT(glm::dot(moved, way), radius * 0.05);
                EXPECT_LT(glm::dot(moved, way), radius * 0.12);
                camera->onMouseMove(from.x, from.y);
                camera->onButtonUp();
            }
        }
    }
}

TEST_P(TrackBallDragProperties, TheModelTurnsByTwiceTheAngleOnTheSphere) {
    for (const Size& size : kSizes) {
        for (int round = 0; round < kCamerasOfASize; ++round) {
            const RandomView view = place(size, round, false);
            SCOPED_TRACE(view.name);
            const EyeOracle before(*camera);
            const glm::dvec2 middle = before.pixel(view.center);
            // The outline ends at half the view or at half the model's diagonal.
            const double units = before.unitsPerPixel(before.inEye(view.center).z);
            const double radius = std::min(before.width * 0.5, view.size * 0.5 / units);
            const auto onSphere = [&](const glm::dvec2& at) {
                const glm::dvec2 inside = (at - middle) / radius;
                const double depth = std::sqrt(std::max(0.0, 1.0 - glm::dot(inside, inside)));
                return before.inModel(glm::normalize(glm::dvec3(inside.x, inside.y, depth)));
            };
            const glm::dvec2 from = middle + glm::dvec2(between(-1.4, 1.4), between(-1.4, 1.4)) * radius;
            const glm::dvec2 to = middle + glm::dvec2(between(-1.4, 1.4), between(-1.4, 1.4)) * radius;
            const glm::dvec3 axis = glm::cross(onSphere(from), onSphere(to));
            const ModelTurn turn{view.center, axis,
                                 2.0 * std::atan2(glm::length(axis), glm::dot(onSphere(from), onSphere(to)))};
            const XPnt3d expectedEye = asPoint(turn.place(before.eye));
            const XPnt3d expectedTarget = asPoint(turn.place(asGlm(camera->getTarget())));
            const XPnt3d expectedUp = asPoint(turn.direction(glm::normalize(asGlm(camera->getUp()))));
            const double reach = dist(camera->getEye(), asPoint(view.center));
            camera->onButtonDown(DragRotate, from.x, from.y);
            camera->onMouseMove(to.x, to.y);
            camera->onButtonUp();
            // OpenGL's single precision moves the image of the centre, and with it both ends of the drag.
            const double stepOfAFloat = std::max(glm::length(before.eye), reach) * 1.2e-7 / (units * radius);
            const double tolerance = 2e-5 + 20.0 * stepOfAFloat;
            EXPECT_TRUE(isNear(camera->getEye(), expectedEye, reach * tolerance));
            EXPECT_TRUE(isNear(camera->getTarget(), expectedTarget, reach * tolerance));
            EXPECT_TRUE(isNear(camera->getUp(), expectedUp, tolerance));
        }
    }
}

TEST_P(TrackBallDragProperties, PanningKeepsTheGrabbedPointUnderTheCursor) {
    double worst = 0.0;
    for (const Size& size : kSizes) {
        for (int round = 0; round < kCamerasOfASize; ++round) {
            const RandomView view = place(size, round, true);
            SCOPED_TRACE(view.name);
            const EyeOracle before(*camera);
            std::uniform_int_distribution<std::int32_t> x(0, static_cast<std::int32_t>(size.width) - 1);
            std::uniform_int_distribution<std::int32_t> y(0, static_cast<std::int32_t>(size.height) - 1);
            glm::ivec2 cursor(x(random), y(random));
            const glm::dvec3 grabbed = before.pointUnder(glm::dvec2(cursor), view.center);
            camera->onButtonDown(DragPan, cursor.x, cursor.y);
            for (int move = 0; move < 5; ++move) {
                cursor = {x(random), y(random)};
                camera->onMouseMove(cursor.x, cursor.y);
                const double off = glm::length(EyeOracle(*camera).pixel(grabbed) - glm::dvec2(cursor));
                EXPECT_LT(off, 1.0) << "move " << move;
                worst = std::max(worst, off);
            }
            camera->onButtonUp();
        }
    }
    RecordProperty("largest_distance_in_pixels", std::to_string(worst));
}

TEST_P(TrackBallDragProperties, BackAtThePressTheCameraIsThatOfThePress) {
    for (const Size& size : kSizes) {
        for (int round = 0; round < kCamerasOfASize; ++round) {
            const RandomView view = place(size, round, true);
            SCOPED_TRACE(view.name);
            std::uniform_int_distribution<std::int32_t> pixel(-200, 1000);
            for (const std::int32_t button : {DragPan, DragRotate}) {
                const Placement before(*camera);
                const EyeOracle oracle(*camera);
                const std::int32_t x = pixel(random);
                const std::int32_t y = pixel(random);
                camera->onButtonDown(button, x, y);
                camera->onMouseMove(pixel(random), pixel(random));
                camera->onMouseMove(x, y);
                // A rotation starts from the press at each move and loses a last bit to the centre's
                // coordinates; a pan comes back on the way it went, with units of a pixel that OpenGL's
                // matrices of floats give: both ends of two spans, a few steps each.
                const double lastBits = (view.size + before.eye.norm()) * 1e-15;
                const double stepOfAFloat = before.eye.norm() * 1.2e-7;
                const double ofAPixel =
                    0.01 * oracle.unitsPerPixel(oracle.inEye(view.center).z) + 10.0 * stepOfAFloat;
                const double tolerance = button == DragRotate ? lastBits : ofAPixel;
                EXPECT_TRUE(isNear(camera->getEye(), before.eye, tolerance)) << button;
                EXPECT_TRUE(isNear(camera->getTarget(), before.target, tolerance)) << button;
                EXPECT_TRUE(isNear(camera->getUp(), before.up, 1e-15)) << button;
                camera->onButtonUp();
            }
        }
    }
}

TEST_P(TrackBallDragProperties, NoDragMakesTheCameraNotANumber) {
    std::uniform_int_distribution<std::int32_t> any(std::numeric_limits<std::int32_t>::min());
    for (const Size& size : kSizes) {
        for (int round = 0; round < kCamerasOfASize; ++round) {
            const RandomView view = place(size, round, false);
            SCOPED_TRACE(view.name);
            for (const std::int32_t button : {DragRotate, DragPan, DragZoom}) {
                camera->onButtonDown(button, any(random), any(random));
                camera->onMouseMove(any(random), any(random));
                camera->onButtonUp();
                ASSERT_TRUE(isFinitePlacement(Placement(*camera))) << button << ": " << Placement(*camera);
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(, TrackBallDragProperties, ::testing::Bool(),
                         [](const ::testing::TestParamInfo<bool>& kind) {
                             return kind.param ? "Orthographic" : "Perspective";
                         });

using TrackBallDragPropertiesOfAZoom = TrackBallDragProperties;

TEST_P(TrackBallDragPropertiesOfAZoom, KeepsThePointUnderTheCursor) {
    for (const Size& size : kSizes) {
        for (int round = 0; round < kCamerasOfASize; ++round) {
            const RandomView view = place(size, round, false);
            SCOPED_TRACE(view.name);
            const EyeOracle before(*camera);
            std::uniform_int_distribution<std::int32_t> x(0, static_cast<std::int32_t>(size.width) - 1);
            std::uniform_int_distribution<std::int32_t> y(0, static_cast<std::int32_t>(size.height) - 1);
            const glm::ivec2 cursor(x(random), y(random));
            const glm::dvec3 seen = before.pointUnder(glm::dvec2(cursor), view.center);
            camera->onButtonDown(DragZoom, cursor.x, cursor.y);
            double height = cursor.y;
            for (const double way : {40.0, 25.0, -70.0, 60.0}) {
                height += way;
                camera->onMouseMove(static_cast<double>(x(random)), height);
                ASSERT_LT(EyeOracle(*camera).inEye(seen).z, 0.0);
                EXPECT_LT(glm::length(EyeOracle(*camera).pixel(seen) - glm::dvec2(cursor)), 1.0) << way;
            }
            camera->onButtonUp();
        }
    }
}

TEST_P(TrackBallDragPropertiesOfAZoom, KeepsThePickedPointOfADrawnSceneUnderTheCursor) {
    int tried = 0;
    for (int round = 0; round < 60; ++round) {
        const Size& size = kSizes[static_cast<std::size_t>(round) % std::size(kSizes)];
        const RandomView view = place(size, round, false);
        SCOPED_TRACE(view.name);
        // A triangle through the model that faces the viewer more or less.
        const EyeOracle before(*camera);
        surface.clear();
        camera->restoreViewport();
        camera->updateView();
        glEnable(GL_DEPTH_TEST);
        glBegin(GL_TRIANGLES);
        for (const auto& [x, y, z] : {std::tuple{-1.0, -1.0, 0.2}, {1.0, -1.0, -0.2}, {0.0, 1.5, 0.1}}) {
            const glm::dvec3 corner = view.center + before.inModel({x, y, z}) * view.size * 0.4;
            glVertex3d(corner.x, corner.y, corner.z);
        }
        glEnd();
        camera->refreshDepth();
        const glm::dvec2 middle = before.pixel(view.center);
        const std::int32_t x = static_cast<std::int32_t>(middle.x);
        const std::int32_t y = static_cast<std::int32_t>(middle.y);
        const XPnt3d picked = camera->getModelPntAt(x, y);
        if (x < 0 || y < 0 || middle.x >= size.width || middle.y >= size.height) {
            continue;
        }
        ++tried;
        ASSERT_TRUE(picked.isValid());
        for (const float factor : {0.08F, 0.3F, -0.2F}) {
            camera->zoomAt(factor, x, y);
            EXPECT_LT(glm::length(EyeOracle(*camera).pixel(asGlm(picked)) - glm::dvec2(x, y)), 1.0) << factor;
        }
    }
    EXPECT_GT(tried, 25);
}

INSTANTIATE_TEST_SUITE_P(, TrackBallDragPropertiesOfAZoom, ::testing::Values(false),
                         [](const ::testing::TestParamInfo<bool>&) { return "Perspective"; });

}  // namespace

}  // namespace qel::test
