#include <cmath>
#include <limits>

#include "ExtremeNumbers.h"
#include "OverlayScene.h"

namespace qel::test {

namespace {

struct LabelCase {
    const char* name;
    XPnt3d point;
};

class TrackBallLabels : public OverlayTest {
  protected:
    /// All calls of a label at a point whose pixel is given.
    Calls labelled(const XPnt3d& pixel, double dx, double dy, const char* text) const {
        Calls all{call("gluProject", anyArguments),
                  call("glMatrixMode", GL_PROJECTION),
                  call("glLoadIdentity"),
                  call("gluOrtho2D", 0, 400, 0, 300),
                  call("glMatrixMode", GL_MODELVIEW),
                  call("glLoadIdentity"),
                  call("glIsEnabled", GL_DEPTH_TEST),
                  call("glDisable", GL_DEPTH_TEST),
                  call("glIsEnabled", GL_TEXTURE_2D),
                  call("glDisable", GL_TEXTURE_2D),
                  call("glRasterPos2f", static_cast<float>(pixel.x + dx), static_cast<float>(pixel.y + dy)),
                  call("printText", text)};
        append(all, viewLoaded());
        append(all, {call("glEnable", GL_TEXTURE_2D), call("glEnable", GL_DEPTH_TEST)});
        return all;
    }
};

TEST_F(TrackBallLabels, AreWrittenInPixelsBesideTheirPoint) {
    glEnable(GL_DEPTH_TEST);
    for (const bool ortho : {false, true}) {
        if (ortho) {
            becomeOrthographic();
        }
        const XPnt3d pixel = camera->project(5.0, 6.0, 7.0);
        const glm::dvec2 seen = EyeOracle(*camera).pixel({5.0, 6.0, 7.0});
        EXPECT_NEAR(pixel.x, seen.x, 1e-2);
        EXPECT_NEAR(pixel.y, seen.y, 1e-2);
        const CallTrace trace;
        EXPECT_EQ(camera->drawLabel(5.0, 6.0, 7.0, 3.25, -4.5, "P%d: %s %.1f%%", 17, "peak", 12.5), 0);
        EXPECT_TRUE(callsMatch(trace.glCallsAndNotes(), labelled(pixel, 3.25, -4.5, "P17: peak 12.5%")));
    }
}

TEST_F(TrackBallLabels, SetPercentSignsOfTheirValuesAsTheyAre) {
    EXPECT_EQ(camera->drawLabel(0.0, 0.0, 0.0, 0.0, 0.0, "%s", "100 %s %n"), 0);
    EXPECT_EQ(display->written, std::vector<std::string>{"100 %s %n"});
}

TEST_F(TrackBallLabels, AreCutAt255Characters) {
    const std::string longText(700, 'x');
    EXPECT_EQ(camera->drawLabel(0.0, 0.0, 0.0, 0.0, 0.0, "<%s>", longText.c_str()), 0);
    EXPECT_EQ(display->written, std::vector<std::string>{"<" + std::string(254, 'x')});
}

TEST_F(TrackBallLabels, OfPointsOutsideTheDepthOfTheViewAreLeftOut) {
    // The extent of 20 units gives clipping distances of 0.043 and 693 units from the eye at (60, -50, 70).
    for (const LabelCase& hidden : {LabelCase{"behind the viewer", {120.0, -100.0, 140.0}},
                                    {"just behind the eye", {61.0, -51.0, 71.0}},
                                    {"before the near plane", {59.99, -49.99, 69.985}},
                                    {"beyond the far plane", {-1500.0, 1300.0, -1700.0}}}) {
        SCOPED_TRACE(hidden.name);
        const StateSnapshot before = StateSnapshot::take();
        const CallTrace trace;
        EXPECT_EQ(camera->drawLabel(hidden.point.x, hidden.point.y, hidden.point.z, 0.0, 0.0, "text"), -1);
        EXPECT_TRUE(callsMatch(trace.glCallsAndNotes(), {call("gluProject", anyArguments)}));
        EXPECT_TRUE(changesOnly(before, StateSnapshot::take()));
    }
    EXPECT_TRUE(display->written.empty());
}

TEST_F(TrackBallLabels, AreNotWrittenWhereTheirPlaceIsNoNumber) {
    const CallTrace trace;
    EXPECT_EQ(camera->drawLabel(kNaN, 0.0, 0.0, 0.0, 0.0, "text"), -1);
    EXPECT_EQ(camera->drawLabel(0.0, 0.0, 0.0, kNaN, 0.0, "text"), -1);
    EXPECT_EQ(camera->drawLabel(0.0, 0.0, 0.0, 0.0, std::numeric_limits<double>::infinity(), "text"), -1);
    EXPECT_TRUE(trace.calls().empty());
}

TEST_F(TrackBallLabels, WithoutAFormatLeaveThePixelCoordinates) {
    const StateSnapshot before = StateSnapshot::take();
    const char* const nothing = nullptr;
    EXPECT_EQ(camera->drawLabel(0.0, 0.0, 0.0, 0.0, 0.0, nothing), -1);
    const StateSnapshot after = StateSnapshot::take();
    EXPECT_TRUE(changesOnly(before, after, {"GL_PROJECTION_MATRIX", "GL_MODELVIEW_MATRIX"}));
    const std::vector<double> identity{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    EXPECT_EQ(after.at("GL_MODELVIEW_MATRIX"), identity);
    const std::vector<double> pixels{2.0 / 400.0, 0, 0, 0, 0, 2.0 / 300.0, 0, 0, 0, 0, -1, 0, -1, -1, 0, 1};
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        EXPECT_NEAR(after.at("GL_PROJECTION_MATRIX")[i], pixels[i], 1e-8) << i;
    }
    EXPECT_TRUE(display->written.empty());
}

TEST_F(TrackBallLabels, LeaveTheViewAsItWas) {
    const StateSnapshot before = StateSnapshot::take();
    EXPECT_EQ(camera->drawLabel(0.0, 0.0, 0.0, 0.0, 0.0, "text"), 0);
    EXPECT_TRUE(changesOnly(before, StateSnapshot::take(), {"GL_CURRENT_RASTER_*"}));
}

TEST_F(TrackBallLabels, BeginAtThePixelOfTheirPoint) {
    glDisable(GL_LIGHTING);
    glDisable(GL_TEXTURE_2D);
    glColor3f(1.0F, 1.0F, 1.0F);
    for (const auto& [dx, dy] : {std::pair{0.0, 0.0}, {12.0, -7.0}}) {
        surface.clear();
        const glm::dvec2 pixel = EyeOracle(*camera).pixel({5.0, 6.0, 7.0});
        EXPECT_EQ(camera->drawLabel(5.0, 6.0, 7.0, dx, dy, "ab"), 0);
        const Picture frame = look("label");
        const PixelArea expected{static_cast<int>(pixel.x + dx), static_cast<int>(pixel.y + dy),
                                 WritingDisplay::kStep + WritingDisplay::kWidth, WritingDisplay::kHeight};
        EXPECT_EQ(frame.boundsOf(kWhite), expected);
    }
}

TEST_F(TrackBallLabels, AreWrittenOverTheScene) {
    glDisable(GL_LIGHTING);
    glDisable(GL_TEXTURE_2D);
    glEnable(GL_DEPTH_TEST);
    // A red wall before the point.
    glColor3f(1.0F, 0.0F, 0.0F);
    const EyeOracle oracle(*camera);
    glBegin(GL_QUADS);
    for (const auto& [x, y] : {std::pair{-30.0, -30.0}, {30.0, -30.0}, {30.0, 30.0}, {-30.0, 30.0}}) {
        const glm::dvec3 corner = oracle.eye + oracle.inModel({x, y, -50.0});
        glVertex3d(corner.x, corner.y, corner.z);
    }
    glEnd();
    glColor3f(1.0F, 1.0F, 1.0F);
    EXPECT_EQ(camera->drawLabel(0.0, 0.0, 0.0, 0.0, 0.0, "a"), 0);
    EXPECT_EQ(look("label-over-scene").countOf(kWhite),
              static_cast<std::size_t>(WritingDisplay::kWidth * WritingDisplay::kHeight));
}

}  // namespace

}  // namespace qel::test
