#include "CaptureFixture.h"
#include "kit/GlSurface.h"
#include "kit/Picture.h"
#include "kit/StateSnapshot.h"

namespace qel::test {
namespace {

constexpr GLuint kLists = 5000;

BITMAPINFO sectionOf(std::int32_t width, std::int32_t height, std::uint16_t depth) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = 40;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = depth;
    return info;
}

PIXELFORMATDESCRIPTOR bitmapFormat(std::uint8_t depth) {
    PIXELFORMATDESCRIPTOR wanted{};
    wanted.nSize = 40;
    wanted.nVersion = 1;
    wanted.dwFlags = PFD_DRAW_TO_BITMAP | PFD_SUPPORT_OPENGL;
    wanted.iPixelType = PFD_TYPE_RGBA;
    wanted.cColorBits = depth;
    wanted.cDepthBits = 32;
    return wanted;
}

/// Says which order of channels the system's choice for sections has; a real choice is never touched.
class ScreenCaptureTrace : public Capture {
  protected:
    /// What belongs to the system, that is all but the state of OpenGL.
    Calls systemCalls() const {
        return trace.calls("wgl", "Create", "Delete", "Select", "ChoosePixelFormat", "SetPixelFormat",
                           "DescribePixelFormat", "GetDIBits", "WriteFile", "CloseHandle", "ReleaseDC",
                           "GetDC", "glFinish");
    }

    /// The calls from the first of a name on.
    static Calls from(const Calls& calls, const std::string& first) {
        const auto at = std::find_if(calls.begin(), calls.end(),
                                     [&](const std::string& text) { return callMatches(text, first); });
        return {at, calls.end()};
    }

    /// A section in the place of the one that is selected.
    static Calls sectionSelected(int depth) {
        return {call("CreateDIBSection", any, sectionOf(100, 50, static_cast<std::uint16_t>(depth)), 0, any,
                     nullptr, 0),
                call("SelectObject", any, any)};
    }

    static Calls sectionMadeCurrent(HDC section, HGLRC rc) {
        return {call("wglGetCurrentContext"), call("wglMakeCurrent", section, rc)};
    }

    static Calls contextOn(HDC section, HGLRC rc, int depth) {
        const auto bits = static_cast<std::uint8_t>(depth);
        return {call("ChoosePixelFormat", section, bitmapFormat(bits)),
                call("SetPixelFormat", section, any, bitmapFormat(bits)), call("wglCreateContext", section),
                call("wglMakeCurrent", section, rc),
                // Its font.
                call("CreateFontW", anyArguments), call("SelectObject", section, any),
                call("wglUseFontBitmapsW", section, 32, 96, any), call("SelectObject", section, any),
                call("DeleteObject", any)};
    }

    CallTrace trace;
};

TEST_F(ScreenCaptureTrace, BeginWithTheSectionThenItsContextThenTheStateOfTheWindow) {
    trace.clear();
    ASSERT_EQ(begin(100, 50), 0);
    const Calls made = systemCalls();
    const CallTrace::Pause unrecorded;
    const HDC section = wglGetCurrentDC();
    const HGLRC rc = wglGetCurrentContext();
    ASSERT_NE(rc, context);
    // A driver whose 24-bit format has another order of channels gets a section of 32 bits.
    const bool inDeepSection = trace.count("CreateDIBSection") == 2;

    Calls expected{call("wglGetCurrentContext"), call("wglGetCurrentDC"), makesCurrent(),
                   call("CreateCompatibleDC", widened(window.dc()))};
    append(expected, sectionSelected(24));
    // Drivers of windows and of bitmaps may not hear of each other.
    append(expected, {call("wglGetCurrentContext"), call("wglMakeCurrent", nullptr, nullptr)});
    append(expected, {call("ChoosePixelFormat", section, bitmapFormat(24)),
                      call("DescribePixelFormat", section, any, 40, out)});
    if (inDeepSection) {
        append(expected, sectionSelected(32));
        append(expected, {call("DeleteObject", any)});
    }
    append(expected, contextOn(section, rc, inDeepSection ? 32 : 24));
    // Once for the state, and once for each matrix of the camera.
    for (int time = 0; time < 3; ++time) {
        append(expected, sectionMadeCurrent(section, rc));
    }
    EXPECT_TRUE(callsMatch(made, expected));
}

TEST_F(ScreenCaptureTrace, BeginByLoadingTheViewportTheBackColourTheCameraAndTheLights) {
    display->setBackColor({0.25F, 0.5F, 0.75F});
    camera().setOverlayOption(false);
    trace.clear();
    ASSERT_EQ(begin(100, 50), 0);

    Calls expected{call("glGetIntegerv", GL_VIEWPORT, out),
                   call("glViewport", 0, 0, 100, 50),
                   call("glClearColor", 0.25F, 0.5F, 0.75F, 1),
                   call("glClear", GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT),
                   call("glMatrixMode", GL_PROJECTION),
                   call("glLoadIdentity"),
                   call("gluPerspective", anyArguments),
                   call("glMatrixMode", GL_MODELVIEW),
                   call("glLoadIdentity"),
                   call("gluLookAt", anyArguments)};
    append(expected, lightsSet(Verbatim{"*"}, Verbatim{"*"}));
    EXPECT_TRUE(callsMatch(from(trace.glCalls(), call("glGetIntegerv", GL_VIEWPORT, out)), expected));
}

/// Where the choice has the section's order of channels already, nothing else is tried.
TEST_F(ScreenCaptureTrace, TakeTheSectionOf24BitsWhereItsFormatHasTheRightOrderOrIsNotDescribed) {
    trace.answer("DescribePixelFormat", 0);
    ASSERT_EQ(begin(100, 50), 0);
    Calls expected = sectionSelected(24);
    expected.resize(1);
    EXPECT_TRUE(callsMatch(trace.callsOf("CreateDIBSection"), expected));
}

TEST_F(ScreenCaptureTrace, EndWithThePixelsThenTheFileThenTheWindow) {
    trace.answer("glGenLists", kLists);
    ASSERT_EQ(begin(100, 50), 0);
    trace.passOn();
    HDC section = nullptr;
    HGLRC rc = nullptr;
    {
        const CallTrace::Pause unrecorded;
        section = wglGetCurrentDC();
        rc = wglGetCurrentContext();
    }
    trace.clear();
    EXPECT_EQ(display->saveBitmap(), 0);

    Calls expected = sectionMadeCurrent(section, rc);
    append(expected, {call("glFinish"),
                      call("GetDIBits", section, any, 0, 50, out, sectionOf(100, 50, 24), 0),
                      call("DeleteDC", section),
                      call("CreateFileW", file.name().toStdWString(), GENERIC_WRITE, 0, nullptr,
                           CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN, nullptr),
                      call("WriteFile", any, any, 14, out, nullptr),
                      call("WriteFile", any, any, 40, out, nullptr),
                      call("WriteFile", any, any, 15000, out, nullptr),
                      call("CloseHandle", any),
                      call("wglGetCurrentContext"),
                      call("glFinish"),
                      call("DeleteObject", any),
                      call("wglMakeCurrent", section, nullptr),
                      call("wglDeleteContext", rc),
                      call("ReleaseDC", nullptr, section),
                      makesCurrent(),
                      call("glViewport", 0, 0, kWidth, kHeight),
                      makesCurrent(),
                      call("glMatrixMode", GL_PROJECTION),
                      call("glLoadIdentity"),
                      call("gluPerspective", anyArguments),
                      makesCurrent(),
                      call("glMatrixMode", GL_MODELVIEW),
                      call("glLoadIdentity"),
                      call("gluLookAt", anyArguments)});
    EXPECT_TRUE(callsMatch(trace.calls(), expected));
    EXPECT_EQ(currentContext(), context);
}

TEST_F(ScreenCaptureTrace, OfASaveWithoutACaptureAreEmpty) {
    trace.clear();
    EXPECT_EQ(display->saveBitmap(), 0);
    EXPECT_TRUE(callsMatch(trace.calls(), {}));
    ASSERT_EQ(begin(8, 8), 0);
    display->saveBitmap();
    trace.clear();
    EXPECT_EQ(display->saveBitmap(), 0);
    EXPECT_TRUE(callsMatch(trace.calls(), {}));
}

TEST_F(ScreenCaptureTrace, LeaveTheWindowToAHostThatAttachesItInTheMiddle) {
    windowFrame();
    ASSERT_EQ(begin(kWidth, kHeight), 0);
    const HGLRC ofSection = currentContext();
    const StateSnapshot inSection = StateSnapshot::take();
    // The first time that this display is given a context: its initial state is set there.
    display->attachDC(display->getDC(), handleNumber(context));
    EXPECT_EQ(currentContext(), ofSection);
    EXPECT_TRUE(changesOnly(inSection, StateSnapshot::take()));
    display->saveBitmap();
    EXPECT_EQ(currentContext(), context);
    EXPECT_EQ(glIsEnabled(GL_LIGHTING), GL_TRUE);
    EXPECT_EQ(glIsEnabled(GL_BLEND), GL_TRUE);
}

TEST_F(ScreenCaptureTrace, OfACaptureThatIsDroppedFinishItInItsOwnContext) {
    ASSERT_EQ(begin(100, 50), 0);
    const HGLRC ofSection = currentContext();
    display.own().makeCurrent();
    const GlSurface ofSomebodyElse;
    trace.clear();
    ASSERT_EQ(begin(60, 40), 0);
    const Calls calls = trace.calls("wglMakeCurrent", "glFinish", "DeleteDC", "DeleteObject");
    const Calls expected{call("wglMakeCurrent", nullptr, nullptr), call("wglMakeCurrent", any, ofSection),
                         call("glFinish"), call("DeleteDC", any), call("DeleteObject", any)};
    EXPECT_TRUE(callsContain(calls, expected));
    EXPECT_EQ(trace.count("glFinish"), 1U);
    display->saveBitmap();
}

/// Whether the window gets a context again or not, the host's drawing goes on in the bitmap.
TEST_F(ScreenCaptureTrace, StayInTheSectionWhenAWindowIsAttachedInTheMiddle) {
    const TestWindow other(200, 100);
    const Picture inWindow = windowFrame();
    for (const bool works : {true, false}) {
        SCOPED_TRACE(works);
        ASSERT_EQ(begin(kWidth, kHeight), 0);
        const HGLRC ofSection = currentContext();
        const StateSnapshot inSection = StateSnapshot::take();
        if (!works) {
            trace.answer("ChoosePixelFormat", 0);
        }
        display->attachWindow(number32(other.hwnd()), false);
        trace.passOn();
        EXPECT_EQ(currentContext(), ofSection);
        EXPECT_TRUE(changesOnly(inSection, StateSnapshot::take()));
        drawHostsScene();
        display->saveBitmap();
        EXPECT_LT(compare(inWindow, pictureOf(file), 2).share, 0.005);
        EXPECT_EQ(currentContext() != nullptr, works);
        EXPECT_NE(currentContext(), ofSection);
    }
}

}  // namespace
}  // namespace qel::test
