#include <memory>

#include "DisplayFixtureWindows.h"
#include "kit/GlSurface.h"
#include "kit/StateSnapshot.h"

namespace qel::test {
namespace {

constexpr GLuint kListsOfHost = 7000;

/// A context of the host's own that can be made current on several windows.
class HostsContext {
  public:
    explicit HostsContext(const TestWindow& window) {
        giveFormat(window);
        context = wglCreateContext(dcOf(window));
    }
    ~HostsContext() {
        wglMakeCurrent(nullptr, nullptr);
        wglDeleteContext(context);
    }
    HostsContext(const HostsContext&) = delete;
    HostsContext& operator=(const HostsContext&) = delete;

    /// The pixel format of the context, without which it cannot be made current on a window.
    static void giveFormat(const TestWindow& window) {
        PIXELFORMATDESCRIPTOR format{};
        format.nSize = sizeof format;
        format.nVersion = 1;
        format.dwFlags = PFD_DRAW_TO_WINDOW | PFD_SUPPORT_OPENGL | PFD_DOUBLEBUFFER;
        format.cColorBits = 24;
        format.cDepthBits = 24;
        SetPixelFormat(dcOf(window), ChoosePixelFormat(dcOf(window), &format), &format);
    }

    bool makeCurrentOn(const TestWindow& window) const {
        return wglMakeCurrent(dcOf(window), context) != FALSE;
    }
    std::int32_t number() const { return handleNumber(context); }

  private:
    HGLRC context;
};

/// Attaches with a font that begins at a list that the test knows.
template <class Attach>
void withKnownLists(Attach attach) {
    CallTrace trace;
    trace.answer("glGenLists", kListsOfHost);
    attach();
}

std::int32_t attachTo(const HeldDisplay& display, const GlSurface& surface) {
    return display->attachDC(number32(surface.dc()), number32(surface.rc()));
}

bool printsText(const HeldDisplay& display) {
    const CallTrace trace;
    EXPECT_EQ(display->printText("text"), 0);
    const bool prints = trace.count("glCallLists") > 0;
    EXPECT_EQ(trace.glCalls().empty(), !prints);
    return prints;
}

TEST(BitmapFont, IsNotDrawnInAnotherContextThanItsOwn) {
    const GlSurface first;
    const GlSurface second;
    const HeldDisplay display;
    attachTo(display, first);
    EXPECT_TRUE(printsText(display));
    attachTo(display, second);
    EXPECT_FALSE(printsText(display));
    attachTo(display, first);
    EXPECT_TRUE(printsText(display));
}

TEST(BitmapFont, OfALentContextAndOfAWindowAreEachDrawnInTheirOwn) {
    const TestWindow window;
    const GlSurface surface;
    HeldDisplay display;
    withKnownLists([&] { attachTo(display, surface); });
    display.attach(window);
    EXPECT_TRUE(printsText(display));
    attachTo(display, surface);
    CallTrace trace;
    display->printText("text");
    EXPECT_TRUE(
        callsMatch(trace.callsOf("glListBase"), {call("glListBase", kListsOfHost - kFirstCharacter)}));
}

TEST(BitmapFont, OfALentContextGoesWithADisplayThatHasAWindowSince) {
    const TestWindow window;
    const GlSurface surface;
    HeldDisplay display;
    withKnownLists([&] { attachTo(display, surface); });
    display.attach(window);
    display.release();
    EXPECT_EQ(currentContext(), nullptr);
    const_cast<GlSurface&>(surface).makeCurrent();
    EXPECT_FALSE(glIsList(kListsOfHost));
}

/// An error that waits for a host, and a way to raise it.
struct Waiting {
    GLenum error;
    void (*raise)();
};

TEST(BitmapFont, IsBuiltWithoutTakingTheErrorThatWaitsForTheHost) {
    const GlSurface surface;
    const Waiting errors[] = {{GL_INVALID_ENUM, [] { glBegin(GL_ALL_ATTRIB_BITS); }},
                              {GL_INVALID_VALUE, [] { glPointSize(0.0F); }},
                              {GL_INVALID_OPERATION, [] { glEnd(); }}};
    for (const Waiting& waiting : errors) {
        const HeldDisplay display;
        attachTo(display, surface);
        const StateSnapshot prepared = StateSnapshot::take();
        const HeldDisplay other;
        waiting.raise();
        attachTo(other, surface);
        EXPECT_EQ(pendingError(), waiting.error);
        EXPECT_EQ(pendingError(), static_cast<GLenum>(GL_NO_ERROR));
        EXPECT_TRUE(changesOnly(prepared, StateSnapshot::take()));
    }
}

TEST(BitmapFont, IsBuiltWithoutLeavingAnError) {
    const GlSurface surface;
    const HeldDisplay display;
    attachTo(display, surface);
    EXPECT_EQ(pendingError(), static_cast<GLenum>(GL_NO_ERROR));
}

/// How the display, or OpenGL alone, comes to the second window of a context.
class BitmapFontOfALostWindow : public ::testing::TestWithParam<bool> {};

TEST_P(BitmapFontOfALostWindow, GoesWithTheDisplay) {
    auto first = std::make_unique<TestWindow>(64, 64);
    const TestWindow second(64, 64);
    const HostsContext lent(*first);
    HostsContext::giveFormat(second);
    HeldDisplay display;
    withKnownLists([&] { display->attachDC(number32(first->dc()), lent.number()); });
    const bool displayFollows = GetParam();
    if (displayFollows) {
        display->attachDC(number32(second.dc()), lent.number());
    }
    wglMakeCurrent(nullptr, nullptr);
    first.reset();
    if (!displayFollows) {
        ASSERT_TRUE(lent.makeCurrentOn(second));
    }

    display.release();

    EXPECT_EQ(currentContext() != nullptr, !displayFollows);
    ASSERT_TRUE(lent.makeCurrentOn(second));
    EXPECT_FALSE(glIsList(kListsOfHost));
    EXPECT_FALSE(glIsList(kListsOfHost + kFontLists - 1));
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

INSTANTIATE_TEST_SUITE_P(And, BitmapFontOfALostWindow, ::testing::Bool(), [](const auto& tested) {
    return std::string(tested.param ? "OfADisplayOnItsSecondWindow" : "OfAHostThatUsesAnotherWindow");
});

}  // namespace
}  // namespace qel::test
