#include <cmath>

#include "GlOracle.h"
#include "OverlayScene.h"
#include "host/ViewSubject.h"

namespace qel::test {

namespace {

struct ViewportCase {
    const char* name;
    /// In window pixels: lower-left corner and size.
    int x, y, width, height;
};

const ViewportCase kViewports[] = {
    {"Whole", 0, 0, 200, 150},         {"Half", 0, 0, 100, 75},
    {"Twice", 0, 0, 400, 300},         {"AnotherAspect", 0, 0, 400, 60},
    {"Elsewhere", 150, 100, 200, 150}, {"APartEnlarged", -250, -100, 600, 400},
};

constexpr int kWidth = 200;
constexpr int kHeight = 150;

/// A view of 200 x 150 pixels in a window of 400 x 300, shown through a viewport of any size and place, as a
/// capture does it. What does not depend on pixels must be as in the whole view.
class TrackBallViewport : public ::testing::TestWithParam<ViewportCase> {
  protected:
    TrackBallViewport() {
        camera->setDisplay(display.get());
        camera->onResize(kWidth, kHeight);
        camera->setExtent({-10.0, 10.0, -10.0, 10.0, -10.0, 10.0}, false);
        camera->setCamera({60.0, -50.0, 70.0}, {2.0, 1.0, -1.0}, {0.0, 0.0, 1.0});
        camera->setRotationCenter(1.0, -2.0, 3.0);
        glColor3f(1.0F, 1.0F, 1.0F);
    }

    ~TrackBallViewport() override {
        camera->setDisplay(nullptr);
        expectNoGlErrorButTheMissingBackBuffer();
    }

    void showThroughViewport() {
        const ViewportCase& shown = GetParam();
        camera->setViewport(shown.x, shown.y, shown.width, shown.height);
    }

    /// Where the viewport puts a pixel of the view.
    static glm::dvec2 windowOf(double x, double y) {
        const ViewportCase& shown = GetParam();
        return {shown.x + x * shown.width / kWidth, shown.y + y * shown.height / kHeight};
    }

    /// What an operation answers or draws in the whole view and through the viewport, in this order.
    template <class Operation>
    auto inBoth(Operation operation) {
        camera->setViewport(0, 0, kWidth, kHeight);
        const auto whole = operation();
        showThroughViewport();
        return std::pair(whole, operation());
    }

    /// The model point under a pixel of the viewport in force, as deep as the target.
    XPnt3d pointUnder(double x, double y) const {
        return camera->unProject(x, y, camera->projectPnt(camera->getTarget()).z);
    }

    Picture lookAtWindow() const {
        glViewport(0, 0, surface.width(), surface.height());
        return Picture::ofFrame();
    }

    /// The first numbers of the last call of a function.
    static glm::dvec3 numbersOf(const CallTrace& trace, const char* name) {
        const std::string last = trace.callsOf(name).back();
        glm::dvec3 numbers;
        EXPECT_EQ(std::sscanf(last.c_str() + last.find('('), "(%lf, %lf, %lf", &numbers[0], &numbers[1],
                              &numbers[2]),
                  3);
        return numbers;
    }

    void chooseProjectionOf(bool ortho) {
        ortho ? camera->setOrtho() : camera->setPerspective();
        camera->refreshDepth();
        camera->updateView();
    }

    GlSurface surface{400, 300};
    ref_ptr<WritingDisplay> display{new WritingDisplay};
    ref_ptr<CQelTrackBall> camera{new CQelTrackBall};
};

TEST_P(TrackBallViewport, LabelsBeginAtTheProjectedPixelOfTheirPoint) {
    const XPnt3d point = pointUnder(110.0, 80.0);
    showThroughViewport();
    const glm::dvec2 expected = windowOf(110.0, 80.0);
    const XPnt3d pixel = camera->projectPnt(point);
    ASSERT_NEAR(pixel.x, expected.x, 1e-2);
    ASSERT_NEAR(pixel.y, expected.y, 1e-2);
    for (const auto& [dx, dy] : {std::pair{0.25, 0.25}, {12.25, -7.75}}) {
        surface.clear();
        showThroughViewport();
        EXPECT_EQ(camera->drawLabel(point.x, point.y, point.z, dx, dy, "a"), 0);
        const PixelArea written{static_cast<int>(pixel.x + dx), static_cast<int>(pixel.y + dy),
                                WritingDisplay::kWidth, WritingDisplay::kHeight};
        EXPECT_EQ(lookAtWindow().boundsOf(kWhite), written);
    }
}

TEST_P(TrackBallViewport, TheTripodStandsWhereItStandsInTheWholeView) {
    for (const bool ortho : {false, true}) {
        chooseProjectionOf(ortho);
        const auto [whole, shown] = inBoth([&] {
            const CallTrace trace;
            camera->drawAxes();
            return numbersOf(trace, "glTranslated");
        });
        EXPECT_LT(glm::distance(whole, shown), 1e-4);
        const XPnt3d anchor = camera->project(shown.x, shown.y, shown.z);
        const glm::dvec2 expected = windowOf(kWidth - 40.0, kHeight - 40.0);
        EXPECT_NEAR(anchor.x, expected.x, 1e-2);
        EXPECT_NEAR(anchor.y, expected.y, 1e-2);
    }
}

TEST_P(TrackBallViewport, QuestionsOfVisibilityAreAboutTheViewportInForce) {
    const XPnt3d inside = pointUnder(190.0, 140.0);
    const XPnt3d outside = pointUnder(210.0, 140.0);
    const auto boxAround = [](const XPnt3d& p) {
        return Enve3d{p.x - 0.1, p.x + 0.1, p.y - 0.1, p.y + 0.1, p.z - 0.1, p.z + 0.1};
    };
    showThroughViewport();
    EXPECT_TRUE(camera->isPntInView(inside.x, inside.y, inside.z));
    EXPECT_FALSE(camera->isPntInView(outside.x, outside.y, outside.z));
    EXPECT_TRUE(camera->isBoxVisible(boxAround(inside)));
    EXPECT_FALSE(camera->isBoxVisible(boxAround(outside)));
}

TEST_P(TrackBallViewport, MeasuresOfTheViewAreThoseOfTheWholeView) {
    for (const bool ortho : {false, true}) {
        chooseProjectionOf(ortho);
        const auto [wholeShare, share] = inBoth([&] {
            return camera->getScreenCoverage({-1.0, 1.0, -1.0, 1.0, -1.0, 1.0});
        });
        EXPECT_GT(wholeShare, 0.0F);
        EXPECT_NEAR(share, wholeShare, 1e-5F);
        const auto [wholePixels, pixels] = inBoth([&] { return camera->getPixelsPerUnit(); });
        EXPECT_GT(wholePixels, 0.0F);
        EXPECT_NEAR(pixels, wholePixels, 1e-3F * wholePixels);
    }
}

TEST_P(TrackBallViewport, TheOrthographicBoxIsBuiltFromTheMiddleOfTheView) {
    const auto [whole, shown] = inBoth([&] {
        camera->setPerspective();
        camera->updateOrthoBox(false);
        const CallTrace trace;
        camera->setOrtho();
        return numbersOf(trace, "glOrtho");
    });
    EXPECT_LT(glm::distance(whole, shown), 1e-3 * glm::length(whole));
}

TEST_P(TrackBallViewport, TheTrackballSphereAndItsDragsFollowTheMouseInTheViewport) {
    const auto dragged = [&](std::int32_t button, const glm::dvec2& from, const glm::dvec2& to) {
        camera->setCamera({60.0, -50.0, 70.0}, {2.0, 1.0, -1.0}, {0.0, 0.0, 1.0});
        camera->updateSphereRadius();
        camera->onButtonDown(button, from.x, from.y);
        camera->onMouseMove(to.x, to.y);
        camera->onButtonUp();
        return Placement(*camera);
    };
    for (const std::int32_t button : {DragPan, DragRotate}) {
        camera->setViewport(0, 0, kWidth, kHeight);
        const Placement whole = dragged(button, {90.0, 60.0}, {130.0, 85.0});
        showThroughViewport();
        const Placement shown = dragged(button, windowOf(90.0, 60.0), windowOf(130.0, 85.0));
        // A pan counts whole pixels of the window.
        const double tolerance =
            button == DragPan ? 2.0 / static_cast<double>(camera->getPixelsPerUnit()) : 1e-2;
        EXPECT_TRUE(isNear(shown.eye, whole.eye, tolerance)) << button;
        EXPECT_TRUE(isNear(shown.target, whole.target, tolerance)) << button;
    }
}

TEST_P(TrackBallViewport, APickNextToAnObjectFindsItInTheViewportInForce) {
    showThroughViewport();
    const ViewportCase& shown = GetParam();
    const int right = std::min(shown.x + shown.width, surface.width());
    const int top = std::min(shown.y + shown.height, surface.height());
    // Ten pixels from the upper right corner of what is seen.
    drawAtDepth(right - shown.x - 12, top - shown.y - 12, right - shown.x - 8, top - shown.y - 8, 0.5);
    ASSERT_NEAR(surface.depth(right - 10, top - 10), 0.5F, 1e-6F);
    const XPnt3d expected =
        camera->unProject(right - 16.0, top - 10.0, static_cast<double>(surface.depth(right - 10, top - 10)));
    EXPECT_TRUE(isExactly(camera->pickModelPnt(right - 16.0, top - 10.0), expected));
    EXPECT_FALSE(camera->getModelPntAt(right - 16.0, top - 10.0).isValid());
    EXPECT_TRUE(isExactly(camera->getModelPntAt(right - 10.0, top - 10.0),
                          camera->unProject(right - 10.0, top - 10.0,
                                            static_cast<double>(surface.depth(right - 10, top - 10)))));
}

TEST_P(TrackBallViewport, TheSphereKeepsItsSizeInTheModel) {
    const auto [whole, shown] = inBoth([&] {
        camera->setCamera({60.0, -50.0, 70.0}, {2.0, 1.0, -1.0}, {0.0, 0.0, 1.0});
        camera->updateSphereRadius();
        camera->onButtonDown(DragRotate, 100, 75);
        camera->onMouseMove(110, 80);
        const CallTrace trace;
        camera->drawTrackBall();
        camera->onButtonUp();
        return numbersOf(trace, "glVertex3d");
    });
    const glm::dvec3 center(1.0, -2.0, 3.0);
    const double radius = glm::distance(whole, center);
    EXPECT_NEAR(glm::distance(shown, center), radius, 1e-3 * radius);
}

INSTANTIATE_TEST_SUITE_P(, TrackBallViewport, ::testing::ValuesIn(kViewports),
                         [](const auto& tested) { return tested.param.name; });

TEST(TrackBallViewportMissing, AnswersAndStaysFinite) {
    const GlSurface surface(64, 64);
    const ref_ptr<CQelTrackBall> camera(new CQelTrackBall);
    camera->onResize(64, 64);
    camera->setViewport(0, 0, 0, 0);
    const float pixels = camera->getPixelsPerUnit();
    EXPECT_TRUE(std::isfinite(pixels));
    EXPECT_EQ(camera->drawLabel(0.0, 0.0, 0.0, 0.0, 0.0, "text"), 0);
    camera->onButtonDown(DragRotate, 10, 10);
    camera->onMouseMove(20, 20);
    camera->onButtonUp();
    EXPECT_TRUE(isFinitePlacement(Placement(*camera)));
    expectNoGlErrorButTheMissingBackBuffer();
}

}  // namespace

}  // namespace qel::test
