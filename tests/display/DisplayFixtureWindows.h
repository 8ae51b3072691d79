#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <QString>
#include <cstdint>
#include <string>

#include "CQelScreenDisplay.h"
#include "QelDisplay64t.h"
#include "QelGl.h"
#include "kit/CallTrace.h"
#include "kit/Census.h"
#include "kit/TestWindow.h"
#include "kit/WindowHandles.h"
#include "kit/WindowsText.h"

/// What the tests of the OpenGL display share: a display with a window, and the calls it is expected to make.

namespace qel::test {

inline constexpr GLsizei kFontLists = 96;
inline constexpr GLuint kFirstCharacter = 32;

/// A handle as the display hands it to the system: 32 bits of it, widened with their sign.
inline HDC widened(std::uintptr_t handle) {
    return handleFromNumber<HDC>(number32(handle));
}

inline HGLRC currentContext() {
    const CallTrace::Pause unrecorded;
    return wglGetCurrentContext();
}

inline GLenum pendingError() {
    const CallTrace::Pause unrecorded;
    return glGetError();
}

/// Adds calls to the end of a list.
inline void append(Calls& list, const Calls& more) {
    list.insert(list.end(), more.begin(), more.end());
}

/// A display of the finished library and the reference that a host holds on it.
class HeldDisplay {
  public:
    HeldDisplay() = default;
    HeldDisplay(const HeldDisplay&) = delete;
    HeldDisplay& operator=(const HeldDisplay&) = delete;

    IQelDisplay* operator->() const { return display.get(); }
    IQelDisplay& operator*() const { return *display; }

    void release() { display.reset(); }

    /// The same display with the slot that it adds to its interface.
    CQelScreenDisplay& own() const { return static_cast<CQelScreenDisplay&>(*display); }

    void attach(const TestWindow& window, bool stereo = false) const {
        display->attachWindow(number32(window.hwnd()), stereo);
        display->setViewSize(window.width(), window.height());
    }

  private:
    ref_ptr<IQelDisplay> display = adopt(newScreenDisplay());
};

/// What the process holds once it has drawn: of the first context, font and bitmap the system keeps something
/// for itself.
inline Census censusAfterFirstUse() {
    static const bool used = [] {
        const TestWindow window;
        const HeldDisplay display;
        display.attach(window);
        Enve2d extent(0, 0, 256, 256);
        return display->beginCapture(16, 16, &extent, QString("first.bmp")) == 0;
    }();
    EXPECT_TRUE(used);
    return Census::now();
}

/// The state of a context when it has just been made.
inline Calls initialState() {
    return {call("glShadeModel", GL_SMOOTH), call("glHint", GL_PERSPECTIVE_CORRECTION_HINT, GL_NICEST),
            call("glCullFace", GL_BACK), call("glEnable", GL_AUTO_NORMAL), call("glEnable", GL_NORMALIZE)};
}

/// What CGL adds to it.
inline Calls initialTests() {
    return {call("glEnable", GL_TEXTURE_2D), call("glClearDepth", 1), call("glEnable", GL_DEPTH_TEST)};
}

/// The font in the current context, as 96 lists.
inline Calls fontBuilt(HDC dc) {
    return {
        call("glGenLists", kFontLists),
        call("CreateFontW", -18, 0, 0, 0, 100, 0, 0, 0, 0, 4, 0, 4, 0, "Segoe UI"),
        call("SelectObject", dc, any),
        call("wglUseFontBitmapsW", dc, kFirstCharacter, kFontLists, any),
        call("glGetError"),
        call("GetCharWidth32W", dc, kFirstCharacter, kFirstCharacter, out),
        call("glNewList", any, GL_COMPILE),
        call("glBitmap", 0, 0, 0, 0, any, 0, any),
        call("glEndList"),
        call("SelectObject", dc, any),
        call("DeleteObject", any),
    };
}

/// A light of the rig.
inline Calls lightSet(GLenum light, const Verbatim& diffuse, const Verbatim& direction) {
    return {
        call("glLightfv", light, GL_AMBIENT, values({0, 0, 0, 1})),
        call("glLightfv", light, GL_DIFFUSE, diffuse),
        call("glLightfv", light, GL_SPECULAR, values({0.5F, 0.5F, 0.5F, 1})),
        call("glLightfv", light, GL_POSITION, direction),
        call("glLighti", light, GL_SPOT_EXPONENT, 0),
        call("glLighti", light, GL_SPOT_CUTOFF, 180),
        call("glEnable", light),
    };
}

/// The whole rig for a camera: `head` shines from the viewer's side, `back` against the viewer.
inline Calls lightsSet(const Verbatim& head, const Verbatim& back) {
    constexpr GLenum kFaces = GL_FRONT_AND_BACK;
    const Verbatim grey = values({0.5F, 0.5F, 0.5F, 1});
    Calls all{call("glLightModelfv", GL_LIGHT_MODEL_AMBIENT, values({0.2F, 0.2F, 0.2F, 1}))};
    append(all, lightSet(GL_LIGHT1, values({0.1F, 0.5F, 0.8F, 1}), head));
    append(all, lightSet(GL_LIGHT2, values({0.85F, 0.85F, 0.4F, 1}), back));
    append(
        all,
        {call("glMaterialfv", kFaces, GL_AMBIENT, grey), call("glMaterialfv", kFaces, GL_DIFFUSE, grey),
         call("glMaterialfv", kFaces, GL_SPECULAR, grey),
         call("glMaterialfv", kFaces, GL_SHININESS, values({100})),
         call("glMaterialfv", kFaces, GL_EMISSION, values({0, 0, 0, 1})), call("glEnable", GL_COLOR_MATERIAL),
         call("glColorMaterial", kFaces, GL_DIFFUSE), call("glLightModeli", GL_LIGHT_MODEL_TWO_SIDE, 0)});
    return all;
}

/// A display that has made a context for a window of its own. The camera stands at (0, 0, 100) and looks at
/// the origin.
class DisplayTest : public ::testing::Test {
  protected:
    static constexpr int kWidth = 160;
    static constexpr int kHeight = 120;

    DisplayTest() {
        display.attach(window);
        context = currentContext();
    }

    std::string makesCurrent() const { return call("wglMakeCurrent", widened(window.dc()), context); }
    std::string swaps() const { return call("SwapBuffers", widened(window.dc())); }

    /// The camera loaded, with the context made current before each matrix.
    Calls cameraLoaded() const {
        return {makesCurrent(),         call("glMatrixMode", GL_PROJECTION),
                call("glLoadIdentity"), call("gluPerspective", 27, any, any, 50000),
                makesCurrent(),         call("glMatrixMode", GL_MODELVIEW),
                call("glLoadIdentity"), call("gluLookAt", 0, 0, 100, 0, 0, 0, 0, 1, 0)};
    }

    /// Pixel coordinates for drawing.
    static Calls pixelCoordinates() {
        return {call("glMatrixMode", GL_PROJECTION), call("glLoadIdentity"),
                call("gluOrtho2D", 0, kWidth, 0, kHeight), call("glMatrixMode", GL_MODELVIEW),
                call("glLoadIdentity")};
    }

    TestWindow window{kWidth, kHeight};
    HeldDisplay display;
    HGLRC context = nullptr;
};

}  // namespace qel::test
