#include "CacheFixture.h"
#include "kit/GlSurface.h"
#include "kit/StateSnapshot.h"

namespace qel::test {
namespace {

/// Something that a host has set and that would change the copy of its frame, or hide it.
struct Effect {
    const char* name;
    void (*set)();
    /// What is switched off for it, in the order of the calls.
    Calls switchedOff;
    /// The attributes that are pushed besides those of the buffers.
    GLbitfield pushed;
};

void nameTexture(GLenum target) {
    const GLubyte darkRed[] = {100, 0, 0, 255};
    glTexParameteri(target, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    if (target == GL_TEXTURE_1D) {
        glTexImage1D(target, 0, GL_RGBA, 1, 0, GL_RGBA, GL_UNSIGNED_BYTE, darkRed);
    } else {
        glTexImage2D(target, 0, GL_RGBA, 1, 1, 0, GL_RGBA, GL_UNSIGNED_BYTE, darkRed);
    }
    glEnable(target);
}

std::vector<Effect> allEffects() {
    return {
        {"Scissor",
         [] {
             glEnable(GL_SCISSOR_TEST);
             glScissor(10, 10, 30, 20);
         },
         {call("glDisable", GL_SCISSOR_TEST)},
         GL_ENABLE_BIT},
        {"Fog",
         [] {
             glEnable(GL_FOG);
             glFogf(GL_FOG_DENSITY, 100);
         },
         {call("glDisable", GL_FOG)},
         GL_ENABLE_BIT},
        {"AlphaTest",
         [] {
             glEnable(GL_ALPHA_TEST);
             glAlphaFunc(GL_NEVER, 0);
         },
         {call("glDisable", GL_ALPHA_TEST)},
         0},
        {"Blending",
         [] {
             glEnable(GL_BLEND);
             glBlendFunc(GL_ONE, GL_ONE);
         },
         {call("glDisable", GL_BLEND)},
         0},
        {"LogicOperation",
         [] {
             glEnable(GL_COLOR_LOGIC_OP);
             glLogicOp(GL_COPY_INVERTED);
         },
         {call("glDisable", GL_COLOR_LOGIC_OP)},
         0},
        {"Stencil",
         [] {
             glEnable(GL_STENCIL_TEST);
             glStencilFunc(GL_NEVER, 1, 1);
         },
         {call("glDisable", GL_STENCIL_TEST)},
         GL_ENABLE_BIT},
        {"ClippingPlane",
         [] {
             const GLdouble plane[] = {0, 0, 0, -1};
             glEnable(GL_CLIP_PLANE3);
             glClipPlane(GL_CLIP_PLANE3, plane);
         },
         {call("glDisable", GL_CLIP_PLANE3)},
         GL_ENABLE_BIT},
        {"Texture1D", [] { nameTexture(GL_TEXTURE_1D); }, {call("glDisable", GL_TEXTURE_1D)}, GL_ENABLE_BIT},
        {"Texture2D", [] { nameTexture(GL_TEXTURE_2D); }, {call("glDisable", GL_TEXTURE_2D)}, GL_ENABLE_BIT},
        {"TextureWithoutAnImage", [] { glEnable(GL_TEXTURE_2D); }, {}, 0},
        {"Zoom", [] { glPixelZoom(2, -0.5F); }, {call("glPixelZoom", 1, 1)}, GL_PIXEL_MODE_BIT},
        {"ColourScale",
         [] {
             glPixelTransferf(GL_GREEN_SCALE, 0.25F);
             glPixelTransferf(GL_BLUE_BIAS, 0.5F);
         },
         {call("glPixelTransferf", GL_GREEN_SCALE, 1), call("glPixelTransferf", GL_BLUE_BIAS, 0)},
         0},
        {"DepthScale",
         [] {
             glPixelTransferf(GL_DEPTH_SCALE, 0.5F);
             glPixelTransferf(GL_DEPTH_BIAS, 0.125F);
         },
         {call("glPixelTransferf", GL_DEPTH_SCALE, 1), call("glPixelTransferf", GL_DEPTH_BIAS, 0)},
         0},
        {"ColourMaps",
         [] {
             const GLfloat swapped[] = {1, 0};
             glPixelMapfv(GL_PIXEL_MAP_R_TO_R, 2, swapped);
             glPixelTransferi(GL_MAP_COLOR, GL_TRUE);
         },
         {call("glPixelTransferf", GL_MAP_COLOR, 0)},
         0},
    };
}

/// What stands in the back buffer, whatever the host does to pixels that it reads.
Frame frameAsItIs(int width, int height) {
    const CallTrace::Pause unrecorded;
    glPushAttrib(GL_PIXEL_MODE_BIT);
    glPixelTransferi(GL_MAP_COLOR, GL_FALSE);
    for (const GLenum name : std::initializer_list<GLenum>{GL_GREEN_SCALE, GL_DEPTH_SCALE}) {
        glPixelTransferf(name, 1);
    }
    for (const GLenum name : std::initializer_list<GLenum>{GL_BLUE_BIAS, GL_DEPTH_BIAS}) {
        glPixelTransferf(name, 0);
    }
    Frame frame = Frame::ofBackBuffer(width, height);
    glPopAttrib();
    return frame;
}

void clearAllOfIt() {
    const CallTrace::Pause unrecorded;
    glPushAttrib(GL_SCISSOR_BIT);
    glDisable(GL_SCISSOR_TEST);
    glClearColor(0, 1, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glPopAttrib();
}

class ScreenDisplayCacheEffects : public ::testing::TestWithParam<Effect> {
  protected:
    static constexpr int kWidth = 80;
    static constexpr int kHeight = 60;

    ScreenDisplayCacheEffects() {
        display->attachDC(number32(surface.dc()), number32(surface.rc()));
        display->setViewSize(kWidth, kHeight);
        display->setShowOverlay2(false);
        display->getTrackBall()->setExtent({-20.0, 20.0, -20.0, 20.0, -40.0, 40.0}, false);
        // The display itself blends in a lent context.
        glDisable(GL_BLEND);
    }

    Frame drawFrame() {
        display->beginFrame(0);
        display->beginDraw();
        display->getTrackBall()->updateView();
        drawScene();
        display->endDraw();
        return frameAsItIs(kWidth, kHeight);
    }

    GlSurface surface{kWidth, kHeight};
    HeldDisplay display;
};

TEST_P(ScreenDisplayCacheEffects, OfTheHostLeaveTheCopyAsItWasDrawnAndAreBackAfterwards) {
    const Frame drawn = drawFrame();
    GetParam().set();
    display->finishFrame();
    clearAllOfIt();
    const StateSnapshot before = StateSnapshot::take();
    CallTrace trace;

    display->restoreCache();

    const Calls calls = trace.calls("glDisable", "glPixelZoom", "glPixelTransferf", "glColorMask");
    Calls expected = GetParam().switchedOff;
    append(expected, {call("glColorMask", 0, 0, 0, 0)});
    EXPECT_TRUE(
        callsMatch({calls.begin(), calls.begin() + static_cast<std::ptrdiff_t>(expected.size())}, expected));
    EXPECT_TRUE(
        callsMatch(trace.callsOf("glPushAttrib"),
                   {call("glPushAttrib", GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GetParam().pushed)}));
    EXPECT_TRUE(changesOnly(before, StateSnapshot::take(),
                            {"GL_PROJECTION_MATRIX", "GL_MODELVIEW_MATRIX", "GL_CURRENT_RASTER_*"}));
    const Frame restored = frameAsItIs(kWidth, kHeight);
    EXPECT_EQ(differing(restored.color, drawn.color, kColorStep), 0U);
    EXPECT_EQ(differing(restored.depth, drawn.depth, kDepthStep), 0U);
    display->endDraw();
}

INSTANTIATE_TEST_SUITE_P(As, ScreenDisplayCacheEffects, ::testing::ValuesIn(allEffects()),
                         [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
}  // namespace qel::test
