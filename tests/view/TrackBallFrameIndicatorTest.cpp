#include <cmath>
#include <limits>

#include "ExtremeNumbers.h"
#include "OverlayScene.h"

namespace qel::test {

namespace {

class TrackBallFrameIndicator : public OverlayTest {
  protected:
    static constexpr bool kOver = false;
    static constexpr bool kTested = true;

    double reach() const {
        const EyeOracle oracle(*camera);
        return camera->isOrtho() ? 200.0 * oracle.unitsPerPixel(-1.0)
                                 : glm::length(at - oracle.eye) * kTanHalf;
    }

    double length(double size) const { return camera->isOrtho() ? reach() * 0.05 : reach() * 0.0025 * size; }

    /// The tips of a frame whose first two directions are given.
    glm::dmat3 tips(const glm::dvec3& x, const glm::dvec3& y, double size) const {
        glm::dmat3 all;
        all[0] = at + glm::normalize(x) * length(size);
        all[1] = at + glm::normalize(y) * length(size);
        all[2] = at + glm::normalize(glm::cross(x, y)) * length(size);
        return all;
    }

    std::int32_t draw(const glm::dvec3& x, const glm::dvec3& y, float size, bool depthTest) const {
        return camera->drawFrame(at.x, at.y, at.z, asPoint(x), asPoint(y), size, depthTest);
    }

    static Calls begin(bool depthTest) {
        return {call("glIsEnabled", GL_LIGHTING),
                call("glDisable", GL_LIGHTING),
                call("glIsEnabled", GL_DEPTH_TEST),
                call(depthTest ? "glEnable" : "glDisable", GL_DEPTH_TEST),
                call("glGetFloatv", GL_CURRENT_COLOR, out),
                colorOf({1.0F, 1.0F, 1.0F}),
                call("glIsEnabled", GL_TEXTURE_2D),
                call("glDisable", GL_TEXTURE_2D)};
    }

    static Calls end() {
        return {call("glEnable", GL_TEXTURE_2D), call("glColor4f", 0.5, 0.25, 0.75, 0.125),
                call("glDisable", GL_DEPTH_TEST), call("glEnable", GL_LIGHTING)};
    }

    static Calls drawn(const CallTrace& trace) {
        Calls all = trace.glCallsAndNotes();
        std::erase_if(all, [](const std::string& text) {
            return text.starts_with("gluProject(") || text.starts_with("gluUnProject(");
        });
        return all;
    }

    glm::dvec3 at{4.0, -3.0, 5.0};
};

TEST_F(TrackBallFrameIndicator, IsThreeLinesInModelCoordinatesWithTheirLetters) {
    const glm::dvec3 x(2.0, 1.0, 0.0);
    const glm::dvec3 y(-3.0, 5.0, 1.0);
    for (const bool ortho : {false, true}) {
        for (const bool depthTest : {kOver, kTested}) {
            SCOPED_TRACE(std::string(ortho ? "orthographic" : "perspective") +
                         (depthTest ? ", tested" : ", over"));
            if (ortho && !camera->isOrtho()) {
                becomeOrthographic();
            }
            const double tolerance = reach() * 1e-6;
            const glm::dmat3 ends = tips(x, y, 30.0);
            const CallTrace trace;
            EXPECT_EQ(draw(x, y, 30.0F, depthTest), 0);
            Calls all = begin(depthTest);
            all.push_back(call("glLineWidth", 2));
            append(all, directions(at, ends, tolerance));
            append(all, letters(ends, tolerance));
            append(all, viewLoaded());
            append(all, end());
            EXPECT_TRUE(callsMatch(drawn(trace), all));
            EXPECT_EQ(trace.calls("glVertex3d(4, -3, 5)").size(), 3U);
        }
    }
}

TEST_F(TrackBallFrameIndicator, IsFollowedByTheAxesOfTheModelOnDemand) {
    camera->setOverlayOption(true);
    for (const bool ortho : {false, true}) {
        SCOPED_TRACE(ortho ? "orthographic" : "perspective");
        if (ortho) {
            becomeOrthographic();
        }
        const double expected = reach();
        const CallTrace trace;
        draw(glm::dvec3(1.0, 0.0, 0.0), glm::dvec3(0.0, 1.0, 0.0), 30.0F, kTested);
        Calls all = viewLoaded();
        all.push_back(call("glLineWidth", 1));
        append(all, directions(glm::dvec3(0.0), glm::dmat3(expected), expected * 1e-6));
        append(all, end());
        Calls last = drawn(trace);
        last.erase(last.begin(), last.end() - static_cast<std::ptrdiff_t>(all.size()));
        EXPECT_TRUE(callsMatch(last, all));
    }
}

TEST_F(TrackBallFrameIndicator, CountsItsSizeInPartsOfTheViewsHeight) {
    // A size of 400 is half the height of the view at the point's distance.
    camera->setCamera({4.0, -3.0, 105.0}, {4.0, -3.0, 5.0}, {0.0, 1.0, 0.0});
    settle();
    const CallTrace trace;
    draw(glm::dvec3(1.0, 0.0, 0.0), glm::dvec3(0.0, 1.0, 0.0), 400.0F, kOver);
    const double half = 100.0 * kTanHalf;
    EXPECT_TRUE(callMatches(trace.calls("glVertex3d")[5], vertex(at + glm::dvec3(half, 0.0, 0.0), 1e-9)));
}

TEST_F(TrackBallFrameIndicator, HasTheSameSizeInAnOrthographicViewWhateverIsAsked) {
    becomeOrthographic();
    Calls first;
    for (const float size : {30.0F, 1.0F, 4000.0F, -5.0F}) {
        const CallTrace trace;
        draw(glm::dvec3(1.0, 0.0, 0.0), glm::dvec3(0.0, 1.0, 0.0), size, kOver);
        if (first.empty()) {
            first = drawn(trace);
        }
        EXPECT_EQ(drawn(trace), first);
    }
}

TEST_F(TrackBallFrameIndicator, HasNoThirdDirectionForParallelOnes) {
    const CallTrace trace;
    draw({2.0, 0.0, 0.0}, {-7.0, 0.0, 0.0}, 30.0F, kOver);
    const Calls vertices = trace.calls("glVertex3d");
    const double reached = length(30.0);
    EXPECT_EQ(vertices[0], vertices[1]);
    EXPECT_TRUE(callMatches(vertices[3], vertex(at - glm::dvec3(reached, 0.0, 0.0), 1e-6)));
    EXPECT_TRUE(callMatches(vertices[5], vertex(at + glm::dvec3(reached, 0.0, 0.0), 1e-6)));
    EXPECT_EQ(trace.calls("glRasterPos3f")[0], call("glRasterPos3f", 4, -3, 5));
    EXPECT_EQ(display->written, (std::vector<std::string>{"Z", "Y", "X"}));
}

TEST_F(TrackBallFrameIndicator, IsNotDrawnWhereItsPlaceOrSizeIsNoNumber) {
    const CallTrace trace;
    EXPECT_EQ(camera->drawFrame(kNaN, 0.0, 0.0, {1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, 1.0F, false), 0);
    EXPECT_EQ(camera->drawFrame(0.0, 0.0, 0.0, {kNaN, 0.0, 0.0}, {0.0, 1.0, 0.0}, 1.0F, false), 0);
    EXPECT_EQ(camera->drawFrame(0.0, 0.0, 0.0, {1.0, 0.0, 0.0}, {0.0, kNaN, 0.0}, 1.0F, false), 0);
    EXPECT_EQ(camera->drawFrame(0.0, 0.0, 0.0, {1.0, 0.0, 0.0}, {0.0, 1.0, 0.0},
                                std::numeric_limits<float>::infinity(), false),
              0);
    EXPECT_TRUE(trace.calls().empty());
}

TEST_F(TrackBallFrameIndicator, LeavesTheViewAndOnlyItsLineWidth) {
    for (const bool option : {false, true}) {
        for (const bool depthTest : {kOver, kTested}) {
            for (const bool hostsTest : {false, true}) {
                camera->setOverlayOption(option);
                (hostsTest ? glEnable : glDisable)(GL_DEPTH_TEST);
                const StateSnapshot before = StateSnapshot::take();
                draw(glm::dvec3(1.0, 0.0, 0.0), glm::dvec3(0.0, 1.0, 0.0), 30.0F, depthTest);
                EXPECT_TRUE(
                    changesOnly(before, StateSnapshot::take(), {"GL_LINE_WIDTH", "GL_CURRENT_RASTER_*"}));
            }
        }
    }
}

TEST_F(TrackBallFrameIndicator, IsSeenThroughTheSceneOnlyWithoutTheDepthTest) {
    glDisable(GL_TEXTURE_2D);
    glDisable(GL_LIGHTING);
    at = glm::dvec3(0.0);
    const EyeOracle oracle(*camera);
    const glm::dmat3 ends = tips(glm::dvec3(1.0, 0.0, 0.0), glm::dvec3(0.0, 1.0, 0.0), 100.0);
    const Rgba colors[] = {kRed, kGreen, kBlue};
    struct Case {
        const char* name;
        double wall;
        bool depthTest;
        bool seen;
    };
    for (const Case& kind :
         {Case{"frame-before-scene", -300.0, kTested, true},
          Case{"frame-behind-scene", -20.0, kTested, false}, Case{"frame-over-scene", -20.0, kOver, true}}) {
        SCOPED_TRACE(kind.name);
        surface.clear();
        glEnable(GL_DEPTH_TEST);
        glColor3f(1.0F, 1.0F, 1.0F);
        glBegin(GL_QUADS);
        for (const auto& [x, y] : {std::pair{-99.0, -99.0}, {99.0, -99.0}, {99.0, 99.0}, {-99.0, 99.0}}) {
            const glm::dvec3 corner = oracle.eye + oracle.inModel({x, y, kind.wall});
            glVertex3d(corner.x, corner.y, corner.z);
        }
        glEnd();
        draw(glm::dvec3(1.0, 0.0, 0.0), glm::dvec3(0.0, 1.0, 0.0), 100.0F, kind.depthTest);
        const Picture frame = look(kind.name);
        for (int axis = 0; axis < 3; ++axis) {
            const Rgba& color = colors[axis];
            EXPECT_EQ(isLit(frame, oracle.pixel(ends[axis] * 0.5), color), kind.seen) << axis;
            EXPECT_EQ(isLit(frame, oracle.pixel(ends[axis]) + glm::dvec2(3.0, 4.0), color, 0), kind.seen)
                << axis;
        }
        EXPECT_EQ(frame.countOtherThan(kWhite) == 0, !kind.seen);
    }
}

}  // namespace

}  // namespace qel::test
