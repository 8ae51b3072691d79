#include "CQelTrackBall.h"
#include "DisplayFixtureWindows.h"
#include "kit/Picture.h"
#include "kit/StateSnapshot.h"

namespace qel::test {
namespace {

class ScreenDisplayLights : public DisplayTest {
  protected:
    IQelTrackBall& camera() { return *display->getTrackBall(); }
};

TEST_F(ScreenDisplayLights, FollowTheCameraWithFixedColours) {
    camera().setCamera({3, 4, 5}, {1, 1, 1}, {0, 0, 1});
    const CallTrace trace;

    EXPECT_EQ(display.own().setupLights(), 0);

    EXPECT_TRUE(callsMatch(trace.calls(), lightsSet(values({2, 3, 4, 0}), values({-2000, -3000, -4000, 0}))));
}

TEST_F(ScreenDisplayLights, HaveNoDirectionWithTheEyeAtTheTarget) {
    camera().setCamera({7, 8, 9}, {7, 8, 9}, {0, 0, 1});
    const CallTrace trace;

    display.own().setupLights();

    EXPECT_TRUE(callsMatch(trace.calls(), lightsSet(values({0, 0, 0, 0}), values({0, 0, 0, 0}))));
}

TEST_F(ScreenDisplayLights, ChangeTheirDirectionsWhenTheCameraMovesAndTheNextFrameBegins) {
    const CallTrace trace;
    display->beginFrame(0);
    camera().setCamera({50, 0, 0}, {0, 0, 0}, {0, 0, 1});
    display->beginFrame(0);
    EXPECT_TRUE(callsMatch(trace.calls("glLightfv(16385, 4611", "glLightfv(16386, 4611"),
                           {call("glLightfv", GL_LIGHT1, GL_POSITION, values({0, 0, 100, 0})),
                            call("glLightfv", GL_LIGHT2, GL_POSITION, values({0, 0, -100000, 0})),
                            call("glLightfv", GL_LIGHT1, GL_POSITION, values({50, 0, 0, 0})),
                            call("glLightfv", GL_LIGHT2, GL_POSITION, values({-50000, 0, 0, 0}))}));
}

TEST_F(ScreenDisplayLights, AreWhatOpenGlHolds) {
    display->setOrtho2D();
    display.own().setupLights();
    const StateSnapshot held = StateSnapshot::take();
    using Values = StateSnapshot::Values;
    const auto single = [](Values numbers) {
        for (double& number : numbers) {
            number = static_cast<double>(static_cast<float>(number));
        }
        return numbers;
    };
    const struct {
        const char* name;
        Values expected;
    } cases[] = {
        {"GL_LIGHT_MODEL_AMBIENT", {0.2, 0.2, 0.2, 1}},
        {"GL_LIGHT_MODEL_TWO_SIDE", {0}},
        {"GL_LIGHT1", {1}},
        {"GL_LIGHT1 GL_AMBIENT", {0, 0, 0, 1}},
        {"GL_LIGHT1 GL_DIFFUSE", {0.1, 0.5, 0.8, 1}},
        {"GL_LIGHT1 GL_SPECULAR", {0.5, 0.5, 0.5, 1}},
        {"GL_LIGHT1 GL_POSITION", {0, 0, 100, 0}},
        {"GL_LIGHT1 GL_SPOT_EXPONENT", {0}},
        {"GL_LIGHT1 GL_SPOT_CUTOFF", {180}},
        {"GL_LIGHT2", {1}},
        {"GL_LIGHT2 GL_AMBIENT", {0, 0, 0, 1}},
        {"GL_LIGHT2 GL_DIFFUSE", {0.85, 0.85, 0.4, 1}},
        {"GL_LIGHT2 GL_SPECULAR", {0.5, 0.5, 0.5, 1}},
        {"GL_LIGHT2 GL_POSITION", {0, 0, -100000, 0}},
        {"GL_LIGHT2 GL_SPOT_EXPONENT", {0}},
        {"GL_LIGHT2 GL_SPOT_CUTOFF", {180}},
        {"GL_COLOR_MATERIAL", {1}},
        {"GL_COLOR_MATERIAL_FACE", {GL_FRONT_AND_BACK}},
        {"GL_COLOR_MATERIAL_PARAMETER", {GL_DIFFUSE}},
        {"GL_FRONT GL_AMBIENT", {0.5, 0.5, 0.5, 1}},
        {"GL_BACK GL_AMBIENT", {0.5, 0.5, 0.5, 1}},
        {"GL_FRONT GL_SPECULAR", {0.5, 0.5, 0.5, 1}},
        {"GL_BACK GL_EMISSION", {0, 0, 0, 1}},
        {"GL_FRONT GL_SHININESS", {100}},
        {"GL_BACK GL_SHININESS", {100}},
    };
    for (const auto& tested : cases) {
        EXPECT_EQ(held.at(tested.name), single(tested.expected)) << tested.name;
    }
}

TEST_F(ScreenDisplayLights, LeaveLightZeroAndLightingAsTheyWere) {
    for (const bool enabled : {false, true}) {
        const auto set = enabled ? &glEnable : &glDisable;
        set(GL_LIGHT0);
        set(GL_LIGHTING);
        const StateSnapshot before = StateSnapshot::take();
        display.own().setupLights();
        EXPECT_TRUE(
            changesOnly(before, StateSnapshot::take(),
                        {"GL_LIGHT1*", "GL_LIGHT2*", "GL_LIGHT_MODEL_AMBIENT", "GL_LIGHT_MODEL_TWO_SIDE",
                         "GL_COLOR_MATERIAL*", "GL_FRONT GL_*", "GL_BACK GL_*"}));
        EXPECT_EQ(glIsEnabled(GL_LIGHT0) != GL_FALSE, enabled);
    }
}

TEST_F(ScreenDisplayLights, MakeTheDiffuseColourOfFacesFollowTheDrawingColour) {
    display.own().setupLights();
    glColor3f(0.25F, 0.5F, 1.0F);
    for (const GLenum face : std::initializer_list<GLenum>{GL_FRONT, GL_BACK}) {
        GLfloat diffuse[4] = {};
        glGetMaterialfv(face, GL_DIFFUSE, diffuse);
        EXPECT_EQ(diffuse[0], 0.25F);
        EXPECT_EQ(diffuse[1], 0.5F);
        EXPECT_EQ(diffuse[2], 1.0F);
    }
}

/// One white triangle across the middle of the view, with a normal.
void drawFace(double nx, double ny, double nz) {
    glColor3f(1, 1, 1);
    glBegin(GL_TRIANGLES);
    glNormal3d(nx, ny, nz);
    glVertex3d(-20, -20, 0);
    glVertex3d(20, -20, 0);
    glVertex3d(0, 20, 0);
    glEnd();
}

TEST_F(ScreenDisplayLights, ShineFromTheViewerInBlueAndFromBehindInYellow) {
    const struct {
        const char* name;
        double normal[3];
        Rgba expected;
    } cases[] = {
        // Ambient 0.2 x 0.5, the light's diffuse colour, and the highlight 0.5 x 0.5 of a face that looks at
        // the viewer.
        {"towards the viewer", {0, 0, 1}, {115, 217, 255, 255}},
        // At 60 degrees: half the diffuse colour, and a highlight that has faded away.
        {"aslant", {0.8660254, 0, 0.5}, {38, 89, 128, 255}},
        {"aslant from behind", {0.8660254, 0, -0.5}, {134, 134, 77, 255}},
        {"sideways", {1, 0, 0}, {26, 26, 26, 255}},
    };
    for (const auto& tested : cases) {
        display->beginFrame(0);
        display->beginDraw();
        display->getGL()->enable(GL_LIGHTING);
        drawFace(tested.normal[0], tested.normal[1], tested.normal[2]);
        const Rgba pixel = Picture::ofFrame().at(kWidth / 2, kHeight / 2);
        display->endDraw();
        // Two steps of 255 for the rounding of the driver.
        EXPECT_LE(difference(pixel, tested.expected), 2)
            << tested.name << ": " << ::testing::PrintToString(pixel);
    }
}

}  // namespace
}  // namespace qel::test
