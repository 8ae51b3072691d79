#include <cmath>
#include <initializer_list>
#include <memory>
#include <numbers>
#include <vector>

#include "AllBenches.h"
#include "FrameByHand.h"

/// The brackets of a frame at 1920 x 1080 without anything drawn between them.

namespace qel::bench {

namespace {

constexpr int kWidth = 1920;
constexpr int kHeight = 1080;
constexpr int kSmallWidth = 64;
constexpr int kSmallHeight = 36;
constexpr double kInsetPx = 40.0;
constexpr double kTripodShare = 0.04;
constexpr float kBeyondFull = 255.0F;

struct FrameScene {
    explicit FrameScene(Size size)
        : rig(size == Size::Full ? kWidth : kSmallWidth, size == Size::Full ? kHeight : kSmallHeight),
          color(static_cast<std::size_t>(rig.width()) * static_cast<std::size_t>(rig.height()) * 4),
          depth(color.size() / 4),
          depthOfCamera(color.size() / 4) {
        // The cache is filled once, so that nothing grows while it is measured.
        rig.display().finishFrame();
        rig.camera().updateView();
    }

    Rig rig;
    BareView view{rig};
    std::vector<float> color;
    std::vector<float> depth;
    std::vector<float> depthOfCamera;
};

using SharedScene = std::shared_ptr<FrameScene>;

void linePair(const XPnt3d& tip, float red, float green, float blue) {
    glColor3f(red, green, blue);
    glVertex3d(0.0, 0.0, 0.0);
    vertexAt(tip);
}

void letterAt(const BareView& view, const XPnt3d& tip, float red, float green, float blue,
              const char* letter) {
    glColor3f(red, green, blue);
    glRasterPos3f(static_cast<float>(tip.x), static_cast<float>(tip.y), static_cast<float>(tip.z));
    printLetters(view, letter);
}

void directions(double length) {
    glBegin(GL_LINES);
    linePair({0.0, 0.0, length}, 0.0F, 0.0F, 1.0F);
    linePair({0.0, length, 0.0}, 0.0F, 1.0F, 0.0F);
    linePair({length, 0.0, 0.0}, 1.0F, 0.0F, 0.0F);
    glEnd();
}

void axesByHand(BareView& view) {
    const bool wasLit = switched(GL_LIGHTING, false);
    const bool wasTested = switched(GL_DEPTH_TEST, false);
    const KeptColor oldColor = coloured(QelColor3f(1.0F, 1.0F, 1.0F));
    readMatrices(view);
    const double depth = projected(view, view.target).z;
    const XPnt3d anchor = unProjected(view, view.width - kInsetPx, view.height - kInsetPx, depth);
    const double reach =
        (anchor - view.eye).norm() * std::tan(view.fieldOfView * 0.5 * std::numbers::pi / 180.0);
    const double length = reach * kTripodShare;
    glLineWidth(2.0F);
    glTranslated(anchor.x, anchor.y, anchor.z);
    directions(length);
    letterAt(view, {0.0, 0.0, length}, 0.0F, 0.0F, kBeyondFull, "Z");
    letterAt(view, {0.0, length, 0.0}, 0.0F, kBeyondFull, 0.0F, "Y");
    letterAt(view, {length, 0.0, 0.0}, kBeyondFull, 0.0F, 0.0F, "X");
    loadCamera(view);
    glEnable(GL_DEPTH_TEST);
    colourBack(oldColor);
    switchTo(GL_DEPTH_TEST, wasTested);
    switchTo(GL_LIGHTING, wasLit);
}

/// What a careful host looks at before pixels are read or drawn as they are. Here none of it is set.
void askForPixelTransfer() {
    GLfloat value = 0.0F;
    for (const GLenum name : std::initializer_list<GLenum>{
             GL_MAP_COLOR, GL_RED_SCALE, GL_RED_BIAS, GL_GREEN_SCALE, GL_GREEN_BIAS, GL_BLUE_SCALE,
             GL_BLUE_BIAS, GL_ALPHA_SCALE, GL_ALPHA_BIAS, GL_DEPTH_SCALE, GL_DEPTH_BIAS}) {
        glGetFloatv(name, &value);
    }
}

void askForEffects() {
    for (const GLenum name : std::initializer_list<GLenum>{
             GL_ALPHA_TEST, GL_BLEND, GL_COLOR_LOGIC_OP, GL_SCISSOR_TEST, GL_STENCIL_TEST, GL_FOG,
             GL_TEXTURE_1D, GL_TEXTURE_2D, GL_CLIP_PLANE0, GL_CLIP_PLANE1, GL_CLIP_PLANE2, GL_CLIP_PLANE3,
             GL_CLIP_PLANE4, GL_CLIP_PLANE5}) {
        if (glIsEnabled(name) != GL_FALSE) {
            GLint width = 0;
            glGetTexLevelParameteriv(name, 0, GL_TEXTURE_WIDTH, &width);
        }
    }
    GLfloat zoom = 0.0F;
    glGetFloatv(GL_ZOOM_X, &zoom);
    glGetFloatv(GL_ZOOM_Y, &zoom);
}

void unpackByHand() {
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    GLint value = 0;
    for (const GLenum name : std::initializer_list<GLenum>{GL_UNPACK_SWAP_BYTES, GL_UNPACK_ROW_LENGTH,
                                                           GL_UNPACK_SKIP_ROWS, GL_UNPACK_SKIP_PIXELS}) {
        glGetIntegerv(name, &value);
    }
}

void finishFrameByHand(FrameScene& scene) {
    const GLsizei width = scene.rig.width();
    const GLsizei height = scene.rig.height();
    makeCurrent(scene.view);
    glReadBuffer(GL_BACK);
    packed([&] {
        askForPixelTransfer();
        glReadPixels(0, 0, width, height, GL_DEPTH_COMPONENT, GL_FLOAT, scene.depth.data());
        glGetError();
        glReadPixels(0, 0, width, height, GL_RGBA, GL_FLOAT, scene.color.data());
        glGetError();
    });
    const bool wasTextured = switched(GL_TEXTURE_2D, false);
    axesByHand(scene.view);
    SwapBuffers(scene.view.dc);
    glReadBuffer(GL_BACK);
    packed(
        [&] { glReadPixels(0, 0, width, height, GL_DEPTH_COMPONENT, GL_FLOAT, scene.depthOfCamera.data()); });
    switchTo(GL_TEXTURE_2D, wasTextured);
}

void writeCacheByHand(const FrameScene& scene) {
    const GLsizei width = scene.rig.width();
    const GLsizei height = scene.rig.height();
    unpackByHand();
    askForPixelTransfer();
    glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_FALSE);
    const bool wasTested = switched(GL_DEPTH_TEST, true);
    glDepthFunc(GL_ALWAYS);
    glDepthMask(GL_TRUE);
    glRasterPos2d(0.0, 0.0);
    glDrawPixels(width, height, GL_DEPTH_COMPONENT, GL_FLOAT, scene.depth.data());
    glGetError();
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glClearColor(0.0F, 0.0F, 0.0F, 0.0F);
    const bool wasTestedForColor = switched(GL_DEPTH_TEST, false);
    glDrawPixels(width, height, GL_RGBA, GL_FLOAT, scene.color.data());
    glGetError();
    switchTo(GL_DEPTH_TEST, wasTestedForColor);
    glPopClientAttrib();
    glPopAttrib();
    switchTo(GL_DEPTH_TEST, wasTested);
}

void restoreCacheByHand(const FrameScene& scene) {
    loadPixels(scene.view);
    askForEffects();
    glDrawBuffer(GL_BACK);
    glPushAttrib(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
    writeCacheByHand(scene);
}

template <class Module, class Bare>
void addBracket(Operations& all, const char* name, Module module, Bare bare, Kind kind = Kind::FrameBracket) {
    const auto prepare = [module, bare](Size size) {
        const auto scene = std::make_shared<FrameScene>(size);
        Forms forms;
        forms.module = repeated([scene, module] { module(scene->rig.display()); });
        forms.bare = repeated([scene, bare] { bare(*scene); });
        forms.settle = Rig::finish;
        return forms;
    };
    all.push_back({name, "call", kind, prepare});
}

}  // namespace

void addFrameBenches(Operations& all) {
    addBracket(
        all, "beginFrame", [](IQelDisplay& display) { display.beginFrame(0); },
        [](FrameScene& scene) { beginFrameByHand(scene.view); });
    addBracket(
        all, "updateView", [](IQelDisplay& display) { display.updateView(); },
        [](FrameScene& scene) { loadCamera(scene.view); }, Kind::CameraLoad);
    addBracket(
        all, "beginDraw and endDraw",
        [](IQelDisplay& display) {
            display.beginDraw();
            display.endDraw();
        },
        [](FrameScene& scene) {
            beginDrawByHand(scene.view);
            endDrawByHand();
        });
    addBracket(
        all, "beginDraw and endFrame",
        [](IQelDisplay& display) {
            display.beginDraw();
            display.endFrame();
        },
        [](FrameScene& scene) {
            beginDrawByHand(scene.view);
            endFrameByHand(scene.view);
        });
    addBracket(
        all, "finishFrame", [](IQelDisplay& display) { display.finishFrame(); }, finishFrameByHand);
    addBracket(
        all, "restoreCache and endDraw",
        [](IQelDisplay& display) {
            display.restoreCache();
            display.endDraw();
        },
        [](FrameScene& scene) {
            restoreCacheByHand(scene);
            endDrawByHand();
        });
}

}  // namespace qel::bench
