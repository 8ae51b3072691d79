#include <algorithm>
#include <cmath>

#include "OverlayScene.h"

namespace qel::test {

namespace {

constexpr int kSegments = 80;
/// A step of the rings, as the single-precision number it is.
constexpr double kStep = 0.07853981852531433;

using Segments = std::vector<std::pair<glm::dvec3, glm::dvec3>>;

bool isFarFrom(const glm::dvec2& at, const glm::dvec2& from, const glm::dvec2& to) {
    const glm::dvec2 along = to - from;
    const double share = std::clamp(glm::dot(at - from, along) / glm::dot(along, along), 0.0, 1.0);
    return glm::length(from + share * along - at) > 3.0;
}

/// The rings of a drag, worked out from where the camera and the mouse are.
class TrackBallOverlays : public OverlayTest {
  protected:
    TrackBallOverlays() { press = {150.0, 190.0}; }

    void drag(double x, double y) {
        radiusPx = [&] {
            const XPnt3d middle = camera->projectPnt(asPoint(center));
            double beside[3] = {};
            camera->mapToSphere(middle.x + 0.5, middle.y, beside);
            return 0.5 / beside[0];
        }();
        camera->onButtonDown(DragRotate, press.x, press.y);
        camera->onMouseMove(x, y);
        settle();
        const EyeOracle oracle(*camera);
        radius = radiusPx * oracle.unitsPerPixel(oracle.inEye(center).z);
        start = oracle.inModel(onSphere(press));
        current = oracle.inModel(onSphere({x, y}));
        towardsEye = asGlm(camera->getEye()) - asGlm(camera->getTarget());
    }

    glm::dvec3 onSphere(const glm::dvec2& at) const {
        const glm::dvec2 off = (at - EyeOracle(*camera).pixel(center)) / radiusPx;
        return glm::length(off) >= 1.0 ? glm::dvec3(off.x / glm::length(off), off.y / glm::length(off), 0.0)
                                       : glm::dvec3(off.x, off.y, std::sqrt(1.0 - glm::dot(off, off)));
    }

    Segments facing() const {
        const glm::dvec3 up = asGlm(camera->getUp());
        return ring(glm::normalize(glm::cross(towardsEye, up)), up);
    }

    /// All segments of the great circle through both points, beginning at the first one, away from the
    /// second.
    Segments turning() const {
        return ring(start, -glm::normalize(current - start * glm::dot(start, current)));
    }

    Segments ring(const glm::dvec3& first, const glm::dvec3& second) const {
        Segments all;
        for (int i = 0; i < kSegments; ++i) {
            const auto at = [&](int step) -> glm::dvec3 {
                return center + radius * (first * std::cos(step * kStep) + second * std::sin(step * kStep));
            };
            all.emplace_back(at(i), at(i + 1));
        }
        return all;
    }

    /// Segment `i` of 80, counted from 0, is drawn: it begins on the viewer's side, or is one of every two.
    bool isDrawn(const Segments& all, int i) const {
        const glm::dvec3 from = all[static_cast<std::size_t>(i)].first - center;
        const double side = glm::dot(from, towardsEye) / (radius * glm::length(towardsEye));
        // None so near the edge that rounding could decide.
        EXPECT_GT(std::fabs(side), 1e-4);
        return side > 0.0 || i % 2 == 1;
    }

    /// True if nothing of the rings is drawn near the middle of segment `i`.
    bool isAlone(const Segments& circle, int i, const EyeOracle& oracle) const {
        Segments drawn = facing();
        drawn.emplace_back(center, center + radius * start);
        drawn.emplace_back(center, center + radius * current);
        for (int other = 0; other < kSegments; ++other) {
            if (isDrawn(circle, other)) {
                drawn.push_back(circle[static_cast<std::size_t>(other)]);
            }
        }
        const auto& gap = circle[static_cast<std::size_t>(i)];
        const glm::dvec2 at = (oracle.pixel(gap.first) + oracle.pixel(gap.second)) * 0.5;
        return std::all_of(drawn.begin(), drawn.end(), [&](const auto& segment) {
            return isFarFrom(at, oracle.pixel(segment.first), oracle.pixel(segment.second));
        });
    }

    double tolerance() const { return radius * 2e-5; }

    Calls expectedRings() const {
        Calls all{call("glIsEnabled", GL_LIGHTING), call("glDisable", GL_LIGHTING), call("glLineWidth", 1),
                  colorOf({1.0F, 1.0F, 1.0F}), call("glBegin", GL_LINES)};
        for (const auto& [from, to] : facing()) {
            append(all, {vertex(from, tolerance()), vertex(to, tolerance())});
        }
        append(all, {call("glEnd"), call("glBegin", GL_LINES)});
        const Segments circle = turning();
        for (int i = 0; i < kSegments; ++i) {
            if (isDrawn(circle, i)) {
                const auto& [from, to] = circle[static_cast<std::size_t>(i)];
                append(all, {vertex(from, tolerance()), vertex(to, tolerance())});
            }
        }
        append(all, {call("glEnd"), call("glDisable", GL_LIGHTING)});
        return all;
    }

    glm::dvec3 center{0.0, 0.0, 0.0};
    glm::dvec2 press;
    double radiusPx = 0.0;
    double radius = 0.0;
    glm::dvec3 start;
    glm::dvec3 current;
    glm::dvec3 towardsEye;
};

TEST_F(TrackBallOverlays, AreDrawnOnlyWhileTheModelIsBeingRotated) {
    const CallTrace trace;
    EXPECT_EQ(camera->drawTrackBall(), 1);
    for (const std::int32_t button : {1, 3, 7}) {
        camera->onButtonDown(button, 100, 100);
        camera->onMouseMove(100, 100);
        const std::size_t before = trace.calls().size();
        EXPECT_EQ(camera->drawTrackBall(), 1);
        EXPECT_EQ(trace.calls().size(), before);
    }
    camera->onButtonDown(DragRotate, 100, 100);
    camera->onButtonUp();
    EXPECT_EQ(camera->drawTrackBall(), 1);
    EXPECT_EQ(trace.count("glBegin"), 0U);
}

TEST_F(TrackBallOverlays, AreACircleThatFacesTheViewerTheCircleOfTheDragAndTwoRadii) {
    for (const bool ortho : {false, true}) {
        SCOPED_TRACE(ortho ? "orthographic" : "perspective");
        if (ortho) {
            becomeOrthographic();
        }
        drag(240.0, 130.0);
        const CallTrace trace;
        EXPECT_EQ(camera->drawTrackBall(), 1);
        Calls expected{call("glIsEnabled", GL_LIGHTING), call("glDisable", GL_LIGHTING)};
        append(expected, expectedRings());
        append(expected, {call("glLineWidth", 1), call("glBegin", GL_LINES)});
        for (const glm::dvec3& end : {start, current}) {
            append(expected, {colorOf({1.0F, 1.0F, 1.0F}), vertex(center, 0.0),
                              vertex(center + radius * end, tolerance())});
        }
        append(expected, {call("glEnd"), call("glEnable", GL_LIGHTING)});
        EXPECT_TRUE(callsMatch(trace.glCallsAndNotes(), expected));
    }
}

TEST_F(TrackBallOverlays, LieAboutTheRotationCentre) {
    center = {1234.0, -567.0, 89.0};
    camera->setExtent({1214.0, 1254.0, -587.0, -547.0, 69.0, 109.0}, false);
    camera->setRotationCenter(center.x, center.y, center.z);
    camera->setCamera({1300.0, -600.0, 150.0}, asPoint(center), {0.0, 0.0, 1.0});
    camera->updateSphereRadius();
    drag(260.0, 150.0);
    const CallTrace trace;
    camera->drawTrackBall();
    const Calls vertices = trace.calls("glVertex3d");
    EXPECT_TRUE(callMatches(vertices[vertices.size() - 2], vertex(center, 0.0)));
    const Segments ring = facing();
    for (std::size_t i = 0; i < ring.size(); ++i) {
        ASSERT_TRUE(callMatches(vertices[2 * i], vertex(ring[i].first, 1e-3))) << i << vertices[2 * i];
    }
}

TEST_F(TrackBallOverlays, AreRoundedToSinglePrecisionAboutTheCentre) {
    drag(240.0, 130.0);
    const CallTrace trace;
    camera->drawTrackBall();
    const Calls vertices = trace.calls("glVertex3d");
    // Every second vertex of the facing circle ends a segment. The centre is the origin, so what stands there
    // is the offset itself.
    for (std::size_t i = 1; i < 2 * kSegments; i += 2) {
        double x = 0.0;
        double y = 0.0;
        double z = 0.0;
        ASSERT_EQ(std::sscanf(vertices[i].c_str(), "glVertex3d(%lf, %lf, %lf)", &x, &y, &z), 3);
        EXPECT_EQ(x, static_cast<double>(static_cast<float>(x)));
        EXPECT_EQ(y, static_cast<double>(static_cast<float>(y)));
        EXPECT_EQ(z, static_cast<double>(static_cast<float>(z)));
    }
}

TEST_F(TrackBallOverlays, FacingCircleIsClosed) {
    drag(240.0, 130.0);
    const CallTrace trace;
    camera->drawTrackBall();
    const Calls vertices = trace.calls("glVertex3d");
    const glm::dvec3 first = facing().front().first;
    EXPECT_TRUE(callMatches(vertices[0], vertex(first, tolerance())));
    EXPECT_TRUE(callMatches(vertices[2 * kSegments - 1], vertex(first, tolerance())));
    for (std::size_t i = 2; i < 2 * kSegments; i += 2) {
        EXPECT_EQ(vertices[i], vertices[i - 1]);
    }
}

TEST_F(TrackBallOverlays, KeepTheFacingCircleAndTheRadiiBeforeTheMouseHasMoved) {
    drag(press.x, press.y);
    const CallTrace trace;
    camera->drawTrackBall();
    const Calls vertices = trace.calls("glVertex3d");
    const Segments ring = facing();
    for (std::size_t i = 0; i < ring.size(); ++i) {
        ASSERT_TRUE(callMatches(vertices[2 * i], vertex(ring[i].first, tolerance()))) << i;
    }
    const std::size_t count = vertices.size();
    EXPECT_TRUE(callMatches(vertices[count - 1], vertex(radius * start, tolerance())));
    EXPECT_EQ(vertices[count - 3], vertices[count - 1]);
    EXPECT_EQ(trace.count("glBegin"), 3U);
    // The drag's circle has no second direction: what is drawn of it lies on the line of the radius.
    for (std::size_t i = 2 * kSegments; i < count - 4; ++i) {
        glm::dvec3 at;
        ASSERT_EQ(std::sscanf(vertices[i].c_str(), "glVertex3d(%lf, %lf, %lf)", &at.x, &at.y, &at.z), 3);
        EXPECT_LT(glm::length(glm::cross(at, start)), tolerance()) << vertices[i];
    }
}

TEST_F(TrackBallOverlays, LeaveOnlyTheirLineWidthAndColour) {
    drag(240.0, 130.0);
    const StateSnapshot before = StateSnapshot::take();
    camera->drawTrackBall();
    EXPECT_TRUE(changesOnly(before, StateSnapshot::take(), {"GL_LINE_WIDTH", "GL_CURRENT_COLOR"}));
}

TEST_F(TrackBallOverlays, LookSolidInFrontAndDashedBehind) {
    for (const bool ortho : {false, true}) {
        SCOPED_TRACE(ortho ? "orthographic" : "perspective");
        if (ortho) {
            becomeOrthographic();
        }
        surface.clear();
        // An up that is perpendicular makes the facing circle round; the drag passes beside the middle, so
        // that its circle is seen from the side.
        camera->setCamera({60.0, -50.0, 70.0}, {}, {0.0, 0.8137, 0.5812});
        press = {140.0, 180.0};
        drag(255.0, 190.0);
        glDisable(GL_TEXTURE_2D);
        camera->drawTrackBall();
        const Picture frame = look(ortho ? "rings-orthographic" : "rings-perspective");
        const EyeOracle oracle(*camera);
        const auto middleOf = [&](const std::pair<glm::dvec3, glm::dvec3>& segment) {
            return (oracle.pixel(segment.first) + oracle.pixel(segment.second)) * 0.5;
        };
        for (const auto& segment : facing()) {
            EXPECT_TRUE(isLit(frame, middleOf(segment), kWhite));
        }
        for (const glm::dvec3& end : {start, current}) {
            EXPECT_TRUE(isLit(frame, oracle.pixel(center + radius * end * 0.5), kWhite));
        }
        const Segments circle = turning();
        int gaps = 0;
        int dashes = 0;
        int solid = 0;
        for (int i = 0; i < kSegments; ++i) {
            const auto& segment = circle[static_cast<std::size_t>(i)];
            const glm::dvec2 at = middleOf(segment);
            if (isDrawn(circle, i)) {
                EXPECT_TRUE(isLit(frame, at, kWhite)) << i;
                const bool isFront = glm::dot(segment.first - center, towardsEye) > 0.0;
                solid += isFront ? 1 : 0;
                dashes += isFront ? 0 : 1;
            } else if (isAlone(circle, i, oracle)) {
                EXPECT_FALSE(isLit(frame, at, kWhite)) << i;
                ++gaps;
            }
        }
        EXPECT_GE(solid, 39);
        EXPECT_LE(solid, 41);
        EXPECT_GE(dashes, 19);
        EXPECT_LE(dashes, 21);
        EXPECT_GE(gaps, 8);
        camera->onButtonUp();
    }
}

}  // namespace

}  // namespace qel::test
