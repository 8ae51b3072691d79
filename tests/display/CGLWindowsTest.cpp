#include "CGL.h"

#include <gtest/gtest.h>

#include "DisplayFixtureWindows.h"

namespace qel::test {
namespace {

constexpr DWORD kFlagsOfAWindow = PFD_DRAW_TO_WINDOW | PFD_SUPPORT_OPENGL;

PIXELFORMATDESCRIPTOR format(DWORD flags, BYTE colorBits, BYTE depthBits) {
    PIXELFORMATDESCRIPTOR wanted{};
    wanted.nSize = 40;
    wanted.nVersion = 1;
    wanted.dwFlags = flags;
    wanted.iPixelType = PFD_TYPE_RGBA;
    wanted.cColorBits = colorBits;
    wanted.cDepthBits = depthBits;
    return wanted;
}

/// Deletes what a holder leaves to its owner.
class OwnedContext : public CGL {
  public:
    ~OwnedContext() override {
        destroyContext();
        dropLeftovers();
    }
};

class CGLTest : public ::testing::Test {
  protected:
    bool create(bool fullScreen = false, bool stereo = false) {
        return holder.createForWindow(320, 200, fullScreen, hwndOf(window), stereo);
    }

    Calls created(DWORD flags) const {
        HDC const dc = dcOf(window);
        Calls all{call("GetDC", hwndOf(window)), call("ChoosePixelFormat", dc, format(flags, 16, 16)),
                  call("SetPixelFormat", dc, any, format(flags, 16, 16)), call("wglCreateContext", dc),
                  call("wglMakeCurrent", dc, holder.renderContext())};
        append(all, initialState());
        append(all, initialTests());
        return all;
    }

    TestWindow window{320, 200};
    OwnedContext holder;
};

TEST_F(CGLTest, IsFreshWithASizeOf800By600) {
    EXPECT_EQ(holder.viewWidth(), 800);
    EXPECT_EQ(holder.viewHeight(), 600);
    EXPECT_FALSE(holder.isInitialised());
    EXPECT_EQ(holder.deviceContext(), nullptr);
    EXPECT_EQ(holder.renderContext(), nullptr);
}

TEST_F(CGLTest, CreatesADoubleBufferedContextOnAWindowStepByStep) {
    const CallTrace trace;
    EXPECT_TRUE(create());
    EXPECT_TRUE(callsMatch(trace.calls(), created(kFlagsOfAWindow | PFD_DOUBLEBUFFER)));
    EXPECT_TRUE(holder.isInitialised());
    EXPECT_EQ(holder.viewWidth(), 320);
    EXPECT_EQ(holder.viewHeight(), 200);
    EXPECT_EQ(holder.deviceContext(), dcOf(window));
    EXPECT_EQ(currentContext(), holder.renderContext());
}

TEST_F(CGLTest, AsksForStereoInsteadOfDoubleBuffering) {
    const CallTrace trace;
    EXPECT_TRUE(create(false, true));
    EXPECT_TRUE(callsMatch(trace.calls(), created(kFlagsOfAWindow | PFD_STEREO)));
}

TEST_F(CGLTest, ClearsToTheFarthestDepthAndTestsIt) {
    create();
    GLfloat depth = 0;
    glGetFloatv(GL_DEPTH_CLEAR_VALUE, &depth);
    EXPECT_EQ(depth, 1.0F);
    for (const GLenum enabled :
         std::initializer_list<GLenum>{GL_TEXTURE_2D, GL_DEPTH_TEST, GL_AUTO_NORMAL, GL_NORMALIZE}) {
        EXPECT_TRUE(glIsEnabled(enabled)) << enabled;
    }
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(CGLTest, DestroysItsFirstContextBeforeASecondOneIsCreated) {
    create();
    HGLRC const first = holder.renderContext();
    const CallTrace trace;
    EXPECT_TRUE(create());
    Calls expected{call("wglMakeCurrent", dcOf(window), nullptr), call("wglDeleteContext", first),
                   call("ReleaseDC", hwndOf(window), dcOf(window))};
    append(expected, created(kFlagsOfAWindow | PFD_DOUBLEBUFFER));
    EXPECT_TRUE(callsMatch(trace.calls(), expected));
}

struct CreationFault {
    const char* function;
    std::int64_t answer;
    /// How many of the calls of a complete creation are made.
    std::size_t calls;
};

class CGLFaults : public CGLTest, public ::testing::WithParamInterface<CreationFault> {};

TEST_P(CGLFaults, EndTheCreationAtOnceAndTheNextOneSucceeds) {
    const Census before = censusAfterFirstUse();
    {
        CallTrace trace;
        trace.answer(GetParam().function, GetParam().answer);
        EXPECT_FALSE(create());
        Calls expected = created(kFlagsOfAWindow | PFD_DOUBLEBUFFER);
        expected.resize(GetParam().calls);
        if (holder.deviceContext() == nullptr) {
            expected.back() = call("ChoosePixelFormat", nullptr, any);
        }
        EXPECT_TRUE(callsMatch(trace.calls(), expected));
        EXPECT_FALSE(holder.isInitialised());
        trace.passOn();
        EXPECT_TRUE(create());
        EXPECT_TRUE(holder.isInitialised());
    }
    holder.destroyContext();
    EXPECT_EQ(Census::now(), before);
}

INSTANTIATE_TEST_SUITE_P(Of, CGLFaults,
                         ::testing::Values(CreationFault{"GetDC", 0, 2},
                                           CreationFault{"ChoosePixelFormat", 0, 2},
                                           CreationFault{"SetPixelFormat", 0, 3},
                                           CreationFault{"wglCreateContext", 0, 4},
                                           CreationFault{"wglMakeCurrent", 0, 5}),
                         [](const auto& tested) { return std::string(tested.param.function); });

TEST_F(CGLTest, KeepsWhatAFailedCreationTookUntilTheNextOne) {
    HGLRC left = nullptr;
    CallTrace trace;
    trace.answer("wglMakeCurrent", 0, 1);
    EXPECT_FALSE(create());
    left = holder.renderContext();
    EXPECT_NE(left, nullptr);
    EXPECT_EQ(trace.count("wglDeleteContext"), 0U);
    EXPECT_EQ(trace.count("ReleaseDC"), 0U);
    trace.clear();
    EXPECT_TRUE(create());
    EXPECT_TRUE(callsMatch(trace.calls("wglDelete", "ReleaseDC", "GetDC"),
                           {call("wglDeleteContext", left), call("ReleaseDC", hwndOf(window), dcOf(window)),
                            call("GetDC", hwndOf(window))}));
}

DEVMODEW screenOf(DWORD width, DWORD height) {
    DEVMODEW mode{};
    mode.dmSize = 220;
    mode.dmFields = DM_PELSWIDTH | DM_PELSHEIGHT;
    mode.dmPelsWidth = width;
    mode.dmPelsHeight = height;
    return mode;
}

TEST_F(CGLTest, SwitchesTheScreenBeforeTheInitialStateWhenFullScreenIsAsked) {
    CallTrace trace;
    trace.answer("ChangeDisplaySettingsW", DISP_CHANGE_SUCCESSFUL);
    EXPECT_TRUE(create(true));
    Calls expected = created(kFlagsOfAWindow | PFD_DOUBLEBUFFER);
    expected.insert(expected.begin() + 5, call("ChangeDisplaySettingsW", screenOf(320, 200), CDS_FULLSCREEN));
    EXPECT_TRUE(callsMatch(trace.calls(), expected));
}

TEST_F(CGLTest, FailsWhenTheScreenCannotBeSwitchedAfterTheContextWasMadeCurrent) {
    CallTrace trace;
    trace.answer("ChangeDisplaySettingsW", DISP_CHANGE_BADMODE);
    EXPECT_FALSE(create(true));
    EXPECT_FALSE(holder.isInitialised());
    EXPECT_EQ(trace.calls().back(), call("ChangeDisplaySettingsW", screenOf(320, 200), CDS_FULLSCREEN));
    EXPECT_EQ(currentContext(), holder.renderContext());
}

TEST_F(CGLTest, RemembersTheSizeOfTheFullScreen) {
    for (const std::int64_t answer : {DISP_CHANGE_SUCCESSFUL, DISP_CHANGE_RESTART}) {
        CallTrace trace;
        trace.answer("ChangeDisplaySettingsW", answer);
        EXPECT_EQ(holder.setFullScreen(1024, 768), answer == DISP_CHANGE_SUCCESSFUL);
        EXPECT_TRUE(
            callsMatch(trace.calls(), {call("ChangeDisplaySettingsW", screenOf(1024, 768), CDS_FULLSCREEN)}));
        EXPECT_EQ(holder.viewWidth(), 1024);
        EXPECT_EQ(holder.viewHeight(), 768);
    }
}

TEST_F(CGLTest, DestroyOnOneThatWasNeverCreatedDoesNothing) {
    const CallTrace trace;
    holder.destroyContext();
    EXPECT_TRUE(callsMatch(trace.calls(), {}));
}

TEST_F(CGLTest, DestroyDeletesTheContextAndReleasesTheWindowOnce) {
    create();
    HGLRC const made = holder.renderContext();
    const CallTrace trace;
    holder.destroyContext();
    holder.destroyContext();
    EXPECT_TRUE(callsMatch(trace.calls(),
                           {call("wglMakeCurrent", dcOf(window), nullptr), call("wglDeleteContext", made),
                            call("ReleaseDC", hwndOf(window), dcOf(window))}));
    EXPECT_FALSE(holder.isInitialised());
    EXPECT_EQ(currentContext(), nullptr);
}

TEST_F(CGLTest, GoesWithoutDeletingItsContext) {
    HGLRC left = nullptr;
    CallTrace trace;
    {
        CGL passing;
        passing.createForWindow(320, 200, false, hwndOf(window), false);
        left = passing.renderContext();
        trace.clear();
    }
    EXPECT_TRUE(callsMatch(trace.calls(), {call("wglMakeCurrent", dcOf(window), left)}));
    EXPECT_EQ(currentContext(), left);
    wglMakeCurrent(nullptr, nullptr);
    EXPECT_NE(wglDeleteContext(left), FALSE);
}

TEST_F(CGLTest, SelectsTheDrawBufferAndTakesThePendingErrorAway) {
    create();
    for (const bool front : {true, false}) {
        glEnable(GL_POLYGON);
        const CallTrace trace;
        EXPECT_EQ(holder.selectDrawBuffer(front), 1);
        EXPECT_TRUE(callsMatch(trace.calls(),
                               {call("glDrawBuffer", front ? GL_FRONT : GL_BACK), call("glGetError")}));
        EXPECT_EQ(pendingError(), static_cast<GLenum>(GL_NO_ERROR));
    }
}

TEST_F(CGLTest, MakesItsContextCurrentAndSwapsItsBuffers) {
    create();
    wglMakeCurrent(nullptr, nullptr);
    const CallTrace trace;
    EXPECT_EQ(holder.makeCurrent(), 0);
    EXPECT_EQ(holder.swapBuffers(), 1);
    EXPECT_TRUE(holder.initGLState());
    Calls expected{call("wglMakeCurrent", dcOf(window), holder.renderContext()),
                   call("SwapBuffers", dcOf(window))};
    append(expected, initialState());
    EXPECT_TRUE(callsMatch(trace.calls(), expected));
    EXPECT_EQ(currentContext(), holder.renderContext());
}

/// A memory device context with a section of 24 bits, which can hold an OpenGL context.
class MemorySection {
  public:
    MemorySection() {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = 32;
        info.bmiHeader.biHeight = 16;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 24;
        void* bits = nullptr;
        bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        SelectObject(dc, bitmap);
    }
    ~MemorySection() {
        DeleteDC(dc);
        DeleteObject(bitmap);
    }
    MemorySection(const MemorySection&) = delete;
    MemorySection& operator=(const MemorySection&) = delete;

    HDC dc = CreateCompatibleDC(nullptr);

  private:
    HBITMAP bitmap = nullptr;
};

constexpr DWORD kFlagsOfABitmap = PFD_DRAW_TO_BITMAP | PFD_SUPPORT_OPENGL;

TEST_F(CGLTest, CreatesASingleBufferedContextOnAMemoryDeviceContext) {
    const MemorySection section;
    {
        const CallTrace trace;
        EXPECT_TRUE(holder.createForDC(section.dc));
        Calls expected{call("ChoosePixelFormat", section.dc, format(kFlagsOfABitmap, 24, 32)),
                       call("SetPixelFormat", section.dc, any, format(kFlagsOfABitmap, 24, 32)),
                       call("wglCreateContext", section.dc),
                       call("wglMakeCurrent", section.dc, holder.renderContext())};
        append(expected, initialState());
        append(expected, initialTests());
        EXPECT_TRUE(callsMatch(trace.calls(), expected));
    }
    EXPECT_TRUE(holder.isInitialised());
    EXPECT_EQ(holder.viewWidth(), 800);
    EXPECT_NE(holder.renderContext(), nullptr);
    holder.destroyContext();
}

TEST_F(CGLTest, DoesNotLookAtTheContextOfAMemoryDeviceContext) {
    const MemorySection section;
    CallTrace trace;
    trace.answerPointer("wglCreateContext", nullptr);
    EXPECT_TRUE(holder.createForDC(section.dc));
    EXPECT_TRUE(holder.isInitialised());
    EXPECT_TRUE(callsContain(trace.calls(), {call("wglMakeCurrent", section.dc, nullptr)}));
    holder.destroyContext();
}

TEST_F(CGLTest, RefusesAMemoryDeviceContextWithoutAPixelFormat) {
    const MemorySection section;
    for (const char* const function : {"ChoosePixelFormat", "SetPixelFormat"}) {
        CallTrace trace;
        trace.answer(function, 0);
        EXPECT_FALSE(holder.createForDC(section.dc)) << function;
        EXPECT_FALSE(holder.isInitialised()) << function;
        EXPECT_EQ(trace.count("wglCreateContext"), 0U) << function;
    }
    holder.dropLeftovers();
}

}  // namespace
}  // namespace qel::test
