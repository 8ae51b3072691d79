#include "CaptureFixture.h"
#include "HostState.h"
#include "kit/Picture.h"
#include "kit/StateSnapshot.h"

namespace qel::test {
namespace {

using ScreenCaptureState = Capture;

/// What a snapshot leaves out: texture coordinates that are generated, maps of pixels and of evaluators, and
/// what came with OpenGL 1.2.
std::vector<double> furtherState() {
    std::vector<double> all;
    const auto add = [&all](const auto* values, int count) { all.insert(all.end(), values, values + count); };
    for (const GLenum coordinate : std::initializer_list<GLenum>{GL_S, GL_T, GL_R, GL_Q}) {
        GLdouble plane[4] = {};
        GLint mode = 0;
        glGetTexGeniv(coordinate, GL_TEXTURE_GEN_MODE, &mode);
        add(&mode, 1);
        for (const GLenum name : std::initializer_list<GLenum>{GL_OBJECT_PLANE, GL_EYE_PLANE}) {
            glGetTexGendv(coordinate, name, plane);
            add(plane, 4);
        }
    }
    GLfloat colors[8] = {};
    glGetPixelMapfv(GL_PIXEL_MAP_G_TO_G, colors);
    add(colors, 8);
    for (const GLenum map : std::initializer_list<GLenum>{GL_MAP1_VERTEX_3, GL_MAP2_COLOR_4}) {
        GLdouble values[32] = {};
        glGetMapdv(map, GL_DOMAIN, values);
        glGetMapdv(map, GL_COEFF, values + 4);
        add(values, 32);
    }
    GLdouble grid[6] = {};
    glGetDoublev(GL_MAP1_GRID_DOMAIN, grid);
    glGetDoublev(GL_MAP2_GRID_DOMAIN, grid + 2);
    add(grid, 6);
    GLint control = 0;
    glGetIntegerv(kLightModelColorControl, &control);
    add(&control, 1);
    all.push_back(glIsEnabled(kRescaleNormal));
    return all;
}

/// The pixel store of the host would lead the reading astray.
std::vector<double> furtherStatePlainlyPacked() {
    glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
    for (const GLenum name : std::initializer_list<GLenum>{GL_PACK_ROW_LENGTH, GL_PACK_SKIP_ROWS,
                                                           GL_PACK_SKIP_PIXELS, GL_PACK_SWAP_BYTES}) {
        glPixelStorei(name, 0);
    }
    std::vector<double> all = furtherState();
    glPopClientAttrib();
    return all;
}

TEST_F(ScreenCaptureState, IsThatOfTheWindowButForWhatCannotBeCarriedOver) {
    windowFrame();
    for (const bool hostSetsState : {false, true}) {
        SCOPED_TRACE(hostSetsState);
        if (hostSetsState) {
            setEverythingOfAHost();
            ASSERT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
            glEnable(GL_SCISSOR_TEST);
            glScissor(1, 2, 3, 4);
        }
        // The rig stands in eye coordinates, so both contexts get it under the same camera.
        camera().updateView();
        display.own().setupLights();
        const StateSnapshot ofWindow = StateSnapshot::take();
        const std::vector<double> furtherOfWindow = furtherStatePlainlyPacked();
        ASSERT_EQ(begin(kWidth, kHeight), 0);
        EXPECT_TRUE(
            changesOnly(ofWindow, StateSnapshot::take(),
                        // A section has one buffer and pixels of its own; where text was drawn is no setting.
                        {"GL_DRAW_BUFFER", "GL_READ_BUFFER", "GL_SCISSOR_TEST", "GL_SCISSOR_BOX",
                         "GL_CURRENT_RASTER_*"}));
        EXPECT_EQ(furtherStatePlainlyPacked(), furtherOfWindow);
        display->saveBitmap();
        EXPECT_TRUE(changesOnly(ofWindow, StateSnapshot::take()));
        EXPECT_EQ(furtherStatePlainlyPacked(), furtherOfWindow);
    }
}

TEST_F(ScreenCaptureState, IsTakenWithoutTheHostsPendingError) {
    glEnable(GL_LINE);
    ASSERT_EQ(begin(16, 12), 0);
    EXPECT_EQ(pendingError(), static_cast<GLenum>(GL_NO_ERROR));
    display->saveBitmap();
    EXPECT_EQ(pendingError(), static_cast<GLenum>(GL_INVALID_ENUM));
}

/// A wall with one normal for all, which the host sets once and for ever.
void drawWall() {
    glEnable(GL_LIGHTING);
    glColor3f(1, 1, 1);
    glRectd(-15, -12, 15, 12);
}

TEST_F(ScreenCaptureState, LightsWhatIsDrawnWithTheNormalOfTheHost) {
    glNormal3d(0.8, 0, 0.6);
    const auto drawFrame = [this] {
        display->beginFrame(0);
        camera().updateView();
        drawWall();
    };
    drawFrame();
    const Picture inWindow = Picture::ofFrame({0, 0, kWidth, kHeight}, GL_BACK);
    ASSERT_EQ(begin(kWidth, kHeight), 0);
    drawWall();
    display->saveBitmap();
    EXPECT_LT(compare(inWindow, pictureOf(file), 2).share, 0.005);
    glNormal3d(0, 0, 1);
    drawFrame();
    EXPECT_GT(compare(inWindow, Picture::ofFrame({0, 0, kWidth, kHeight}, GL_BACK), 2).share, 0.2);
}

}  // namespace
}  // namespace qel::test
