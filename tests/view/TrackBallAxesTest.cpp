#include <cmath>

#include "OverlayScene.h"

namespace qel::test {

namespace {

/// The inset of the tripod from the right and the upper edge, in pixels.
constexpr double kInset = 40.0;
class TrackBallAxes : public OverlayTest {
  protected:
    /// Place and size of the tripod: where it stands, how long its lines are, and how long the axes of the
    /// model.
    struct Tripod {
        glm::dvec3 anchor;
        double length;
        double reach;
    };

    Tripod expected() const {
        const EyeOracle oracle(*camera);
        const glm::dvec2 corner(400.0 - kInset, 300.0 - kInset);
        if (camera->isOrtho()) {
            // Half of the depth range: in the middle between the clipping planes.
            const double z = -0.5 * (camera->getNearPlane() + camera->getFarPlane());
            const glm::dvec3 middle = oracle.eye + oracle.inModel({0.0, 0.0, z});
            const double right = 200.0 * oracle.unitsPerPixel(z);
            return {oracle.pointUnder(corner, middle), right * 0.05, right};
        }
        const glm::dvec3 anchor = oracle.pointUnder(corner, asGlm(camera->getTarget()));
        const double reach = glm::length(anchor - oracle.eye) * kTanHalf;
        return {anchor, reach * 0.04, reach};
    }

    Calls before(const Tripod& tripod) const {
        const glm::dvec3& at = tripod.anchor;
        // Window depth is given in single precision, and a step of it is long far away.
        const double tolerance = tripod.reach * 2e-3;
        return {call("glIsEnabled", GL_LIGHTING),
                call("glDisable", GL_LIGHTING),
                call("glIsEnabled", GL_DEPTH_TEST),
                call("glDisable", GL_DEPTH_TEST),
                call("glGetFloatv", GL_CURRENT_COLOR, out),
                colorOf({1.0F, 1.0F, 1.0F}),
                call("glLineWidth", 2),
                call("glTranslated", about(at.x, tolerance), about(at.y, tolerance), about(at.z, tolerance))};
    }

    static Calls after() {
        return {call("glColor4f", 0.5, 0.25, 0.75, 0.125), call("glDisable", GL_DEPTH_TEST),
                call("glEnable", GL_LIGHTING)};
    }

    /// All but the projections, which leave nothing behind.
    static Calls drawn(const CallTrace& trace) {
        Calls all = trace.glCallsAndNotes();
        std::erase_if(all, [](const std::string& text) {
            return text.starts_with("gluProject(") || text.starts_with("gluUnProject(");
        });
        return all;
    }

    /// The length of the tripod's lines as they were drawn: z, the first of them, ends there.
    static double drawnLength(const CallTrace& trace) {
        double length = 0.0;
        std::sscanf(trace.calls("glVertex3d")[1].c_str(), "glVertex3d(0, 0, %lf)", &length);
        return length;
    }

    /// The tip of an axis of the tripod in pixels: 0 is x.
    glm::dvec2 tip(int axis, double share = 1.0) const {
        const Tripod tripod = expected();
        return EyeOracle(*camera).pixel(tripod.anchor + glm::dmat3(1.0)[axis] * tripod.length * share);
    }
};

TEST_F(TrackBallAxes, AreATripodNearTheCornerWithItsLetters) {
    for (const bool ortho : {false, true}) {
        SCOPED_TRACE(ortho ? "orthographic" : "perspective");
        if (ortho) {
            becomeOrthographic();
        }
        const Tripod tripod = expected();
        const CallTrace trace;
        EXPECT_EQ(camera->drawAxes(), 0);
        Calls all = before(tripod);
        const glm::dmat3 tips = glm::dmat3(tripod.length);
        append(all, directions(glm::dvec3(0.0), tips, tripod.length * 1e-3));
        append(all, letters(tips, tripod.length * 1e-3));
        append(all, viewLoaded());
        all.push_back(call("glEnable", GL_DEPTH_TEST));
        append(all, after());
        EXPECT_TRUE(callsMatch(drawn(trace), all));
        EXPECT_EQ(trace.calls("glVertex3d(0, 0, 0)").size(), 3U);
    }
}

TEST_F(TrackBallAxes, AreFollowedByTheAxesOfTheModelOnDemand) {
    camera->setOverlayOption(true);
    for (const bool ortho : {false, true}) {
        SCOPED_TRACE(ortho ? "orthographic" : "perspective");
        if (ortho) {
            becomeOrthographic();
        }
        const Tripod tripod = expected();
        const CallTrace trace;
        camera->drawAxes();
        Calls all = viewLoaded();
        append(all, {call("glEnable", GL_DEPTH_TEST), call("glLineWidth", 1)});
        append(all, directions(glm::dvec3(0.0), glm::dmat3(tripod.reach), tripod.reach * 1e-3));
        append(all, after());
        Calls end = drawn(trace);
        end.erase(end.begin(), end.end() - static_cast<std::ptrdiff_t>(all.size()));
        EXPECT_TRUE(callsMatch(end, all));
    }
}

TEST_F(TrackBallAxes, StandWhereTheTripodsFloatsSay) {
    // The letters stand at the length of the lines in single precision.
    const CallTrace trace;
    camera->drawAxes();
    const double length = drawnLength(trace);
    EXPECT_EQ(trace.calls("glRasterPos3f")[0], call("glRasterPos3f", 0, 0, static_cast<float>(length)));
    EXPECT_EQ(trace.calls("glRasterPos3f")[1], call("glRasterPos3f", 0, static_cast<float>(length), 0));
    EXPECT_EQ(trace.calls("glRasterPos3f")[2], call("glRasterPos3f", static_cast<float>(length), 0, 0));
}

TEST_F(TrackBallAxes, LeaveTheViewAndOnlyTheirLineWidth) {
    for (const bool ortho : {false, true}) {
        for (const bool option : {false, true}) {
            for (const bool depthTest : {false, true}) {
                if (ortho && !camera->isOrtho()) {
                    becomeOrthographic();
                }
                camera->setOverlayOption(option);
                (depthTest ? glEnable : glDisable)(GL_DEPTH_TEST);
                const StateSnapshot before = StateSnapshot::take();
                camera->drawAxes();
                EXPECT_TRUE(
                    changesOnly(before, StateSnapshot::take(), {"GL_LINE_WIDTH", "GL_CURRENT_RASTER_*"}));
                EXPECT_EQ(StateSnapshot::take().at("GL_LINE_WIDTH")[0], option ? 1.0 : 2.0);
            }
        }
    }
}

TEST_F(TrackBallAxes, AreTheViewsOwnMatricesAfterwardsForTheCameraToo) {
    for (const bool ortho : {false, true}) {
        if (ortho) {
            becomeOrthographic();
        }
        const XPnt3d before = camera->project(3.0, 4.0, 5.0);
        camera->drawAxes();
        EXPECT_TRUE(same(camera->project(3.0, 4.0, 5.0), before)) << ortho;
    }
}

TEST_F(TrackBallAxes, ShowEachDirectionInItsColourWithItsLetter) {
    glDisable(GL_TEXTURE_2D);
    for (const bool ortho : {false, true}) {
        SCOPED_TRACE(ortho ? "orthographic" : "perspective");
        if (ortho) {
            becomeOrthographic();
        }
        surface.clear();
        camera->drawAxes();
        const Picture frame = look(ortho ? "tripod-orthographic" : "tripod-perspective");
        const Rgba colors[] = {kRed, kGreen, kBlue};
        for (int axis = 0; axis < 3; ++axis) {
            const Rgba& color = colors[axis];
            for (const double share : {0.3, 0.6, 0.9}) {
                EXPECT_TRUE(isLit(frame, tip(axis, share), color)) << axis << " at " << share;
            }
            // The block that stands for its letter, of which a later one may cover a part.
            EXPECT_TRUE(isLit(frame, tip(axis) + glm::dvec2(3.0, 4.0), color, 3)) << axis;
        }
        // Nothing anywhere else, in particular not at the origin of the model.
        const auto bounds = frame.boundsOtherThan(kBlack);
        ASSERT_TRUE(bounds.has_value());
        EXPECT_GE(bounds->x, 330);
        EXPECT_GE(bounds->y, 230);
        EXPECT_EQ(frame.countOf(kRed) + frame.countOf(kGreen) + frame.countOf(kBlue),
                  frame.countOtherThan(kBlack));
    }
}

TEST_F(TrackBallAxes, AreOfTheSameSizeInPixelsFromAnyDistance) {
    glDisable(GL_TEXTURE_2D);
    std::vector<PixelArea> areas;
    for (const double distance : {20.0, 100.0, 600.0}) {
        surface.clear();
        const glm::dvec3 back = glm::normalize(glm::dvec3(3.0, -2.0, 2.5));
        camera->setCamera(asPoint(back * distance), {}, {0.0, 0.0, 1.0});
        const CallTrace trace;
        camera->drawAxes();
        areas.push_back(Picture::ofFrame().boundsOtherThan(kBlack).value_or(PixelArea{}));
        // 4 % of half the view's height at the depth of the tripod, as the distance goes; a corner of the
        // view is further away than its middle by a tenth.
        const double pixels = drawnLength(trace) / EyeOracle(*camera).unitsPerPixel(-distance);
        EXPECT_NEAR(pixels, 0.04 * 150.0, 0.04 * 150.0 * 0.12) << distance;
    }
    for (const PixelArea& area : areas) {
        EXPECT_NEAR(area.x, areas[0].x, 1);
        EXPECT_NEAR(area.y, areas[0].y, 1);
        EXPECT_NEAR(area.width, areas[0].width, 1);
        EXPECT_NEAR(area.height, areas[0].height, 1);
    }
}

TEST_F(TrackBallAxes, OfTheModelAreHiddenByTheSceneAndTheTripodIsNot) {
    glDisable(GL_TEXTURE_2D);
    glDisable(GL_LIGHTING);
    glEnable(GL_DEPTH_TEST);
    camera->setOverlayOption(true);
    const EyeOracle oracle(*camera);
    const auto drawWall = [&](double z) {
        surface.clear();
        glColor3f(1.0F, 1.0F, 1.0F);
        glBegin(GL_QUADS);
        for (const auto& [x, y] : {std::pair{-99.0, -99.0}, {99.0, -99.0}, {99.0, 99.0}, {-99.0, 99.0}}) {
            const glm::dvec3 corner = oracle.eye + oracle.inModel({x, y, z});
            glVertex3d(corner.x, corner.y, corner.z);
        }
        glEnd();
    };
    const glm::dvec2 onAxis = oracle.pixel({5.0, 0.0, 0.0});
    drawWall(-300.0);
    camera->drawAxes();
    const Picture behind = look("axes-before-scene");
    EXPECT_TRUE(isLit(behind, onAxis, kRed));
    drawWall(-20.0);
    camera->drawAxes();
    const Picture before = look("axes-behind-scene");
    EXPECT_FALSE(isLit(before, onAxis, kRed, 3));
    EXPECT_TRUE(isLit(before, tip(0, 0.6), kRed));
}

}  // namespace

}  // namespace qel::test
