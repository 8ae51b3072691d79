#include <algorithm>

#include "CacheFixture.h"
#include "kit/GuardedHeap.h"

namespace qel::test {

namespace {

using ScreenDisplayCachePictures = Cache;

TEST_F(ScreenDisplayCachePictures, GivesBackTheFinishedFrameWithoutItsOverlays) {
    for (const bool translucent : {false, true}) {
        SCOPED_TRACE(translucent ? "with a translucent pane" : "opaque");
        glEnable(GL_BLEND);
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        camera().onButtonDown(DragRotate, 60, 60);
        camera().onMouseMove(80, 70);
        const Frame drawn = drawFrame(translucent);
        display->finishFrame();
        camera().onButtonUp();
        // Whatever stands in the back buffer now.
        glClearColor(0.0F, 1.0F, 0.0F, 0.5F);
        glClearDepth(0.25);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        glClearDepth(1.0);
        display->restoreCache();
        const Frame restored = Frame::ofBackBuffer(kWidth, kHeight);
        EXPECT_EQ(differing(restored.color, drawn.color, kColorStep), 0U);
        EXPECT_EQ(differing(restored.depth, drawn.depth, kDepthStep), 0U);
        // There is something to give back.
        const auto [least, most] = std::minmax_element(drawn.depth.begin(), drawn.depth.end());
        EXPECT_LT(*least, 0.999F);
        EXPECT_EQ(*most, 1.0F);
        display->endDraw();
    }
}

/// A context of the host's own for a window, with alpha if this machine has such a format.
class ContextWithAlpha {
  public:
    explicit ContextWithAlpha(const TestWindow& window) {
        PIXELFORMATDESCRIPTOR format{};
        format.nSize = sizeof format;
        format.nVersion = 1;
        format.dwFlags = PFD_DRAW_TO_WINDOW | PFD_SUPPORT_OPENGL | PFD_DOUBLEBUFFER;
        format.cColorBits = 32;
        format.cAlphaBits = 8;
        format.cDepthBits = 24;
        SetPixelFormat(dcOf(window), ChoosePixelFormat(dcOf(window), &format), &format);
        context = wglCreateContext(dcOf(window));
        wglMakeCurrent(dcOf(window), context);
    }
    ~ContextWithAlpha() {
        wglMakeCurrent(nullptr, nullptr);
        wglDeleteContext(context);
    }
    ContextWithAlpha(const ContextWithAlpha&) = delete;
    ContextWithAlpha& operator=(const ContextWithAlpha&) = delete;

    std::int32_t number() const { return handleNumber(context); }

  private:
    HGLRC context = nullptr;
};

/// The module itself blends in a context of the host's from the start.
TEST(ScreenDisplayCachePicturesInAHostsContext, GivesBackATranslucentFrameAsItWas) {
    const TestWindow window(160, 120);
    const ContextWithAlpha context(window);
    GLint alphaBits = 0;
    glGetIntegerv(GL_ALPHA_BITS, &alphaBits);
    if (alphaBits == 0) {
        GTEST_SKIP() << "this machine has no window format with alpha";
    }
    const HeldDisplay display;
    display->attachDC(number32(window.dc()), context.number());
    display->setViewSize(160, 120);
    display->beginFrame(0);
    display->beginDraw();
    display->getTrackBall()->updateView();
    drawScene(true);
    display->endDraw();
    const Frame drawn = Frame::ofBackBuffer(160, 120);
    display->finishFrame();
    glClearColor(0.0F, 1.0F, 0.0F, 0.5F);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    display->restoreCache();
    const Frame restored = Frame::ofBackBuffer(160, 120);
    EXPECT_EQ(differing(restored.color, drawn.color, kColorStep), 0U);
    EXPECT_EQ(differing(restored.depth, drawn.depth, kDepthStep), 0U);
    EXPECT_TRUE(glIsEnabled(GL_BLEND));
    display->endDraw();
}

/// Texturing is on in a new context of the display's, and a host leaves bound what it has drawn with.
TEST_F(ScreenDisplayCachePictures, GivesBackTheFrameWhateverTextureIsBound) {
    const Frame drawn = drawFrame();
    display->finishFrame();
    glEnable(GL_TEXTURE_2D);
    const unsigned char darkRed[] = {100, 0, 0, 255};
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, 1, 1, 0, GL_RGBA, GL_UNSIGNED_BYTE, darkRed);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    display->restoreCache();
    const Frame restored = Frame::ofBackBuffer(kWidth, kHeight);
    EXPECT_EQ(differing(restored.color, drawn.color, kColorStep), 0U);
    EXPECT_TRUE(glIsEnabled(GL_TEXTURE_2D));
    display->endDraw();
}

TEST_F(ScreenDisplayCachePictures, HidesWhatIsDrawnOverItBehindTheScene) {
    const Frame drawn = drawFrame();
    display->finishFrame();
    display->restoreCache();
    camera().updateView();
    // A green band across the view at a depth that the leaning wall passes through.
    glColor3f(0.0F, 1.0F, 0.0F);
    glBegin(GL_QUADS);
    for (const auto& [x, y] : {std::pair{-50.0, -2.0}, {50.0, -2.0}, {50.0, 2.0}, {-50.0, 2.0}}) {
        glVertex3d(x, y, 0.0);
    }
    glEnd();
    const Frame after = Frame::ofBackBuffer(kWidth, kHeight);
    int hidden = 0;
    int seen = 0;
    const int middle = kHeight / 2;
    // The depth of the plane z = 0 where nothing stands before it.
    const float band = after.depthAt(kWidth - 2, middle);
    ASSERT_LT(band, 1.0F);
    for (int x = 2; x < kWidth - 2; ++x) {
        // What is as deep as the scene is hidden too: the host's depth test is for less.
        const bool isBefore = drawn.depthAt(x, middle) <= band;
        (isBefore ? hidden : seen) += 1;
        EXPECT_EQ(after.greenAt(x, middle) > 0.99F, !isBefore) << x;
    }
    EXPECT_GT(hidden, 20);
    EXPECT_GT(seen, 20);
    display->endDraw();
}

TEST_F(ScreenDisplayCachePictures, IsReadAndDrawnWithoutTheHostsRowPadding) {
    const std::size_t damagedBefore = GuardedHeap::damagedBlocks();
    GuardedHeap heap;
    resize(33, 27);
    const Frame drawn = drawFrame();
    for (const auto& [alignment, rowLength, skipRows, skipPixels, swaps] : {std::tuple{8, 0, 0, 0, 0},
                                                                            {4, 4000, 0, 0, 0},
                                                                            {8, 64, 50, 0, 0},
                                                                            {1, 0, 0, 500, 0},
                                                                            {8, 4000, 700, 300, 1}}) {
        SCOPED_TRACE(std::to_string(alignment) + ' ' + std::to_string(rowLength) + ' ' +
                     std::to_string(skipRows));
        const std::pair<GLenum, int> settings[] = {
            {GL_PACK_ALIGNMENT, alignment},      {GL_PACK_ROW_LENGTH, rowLength},
            {GL_PACK_SKIP_ROWS, skipRows},       {GL_PACK_SKIP_PIXELS, skipPixels},
            {GL_PACK_SWAP_BYTES, swaps},         {GL_UNPACK_ALIGNMENT, alignment},
            {GL_UNPACK_ROW_LENGTH, rowLength},   {GL_UNPACK_SKIP_ROWS, skipRows},
            {GL_UNPACK_SKIP_PIXELS, skipPixels}, {GL_UNPACK_SWAP_BYTES, swaps}};
        drawFrame();
        for (const auto& [name, value] : settings) {
            glPixelStorei(name, value);
        }
        display->setShowOverlay2(false);
        EXPECT_FALSE(faultsIn([&] { display->finishFrame(); }));
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        EXPECT_FALSE(faultsIn([&] { display->restoreCache(); }));
        for (const auto& [name, value] : settings) {
            GLint kept = -1;
            glGetIntegerv(name, &kept);
            EXPECT_EQ(kept, value) << name;
        }
        const Frame restored = Frame::ofBackBuffer(33, 27);
        EXPECT_EQ(differing(restored.color, drawn.color, kColorStep), 0U);
        EXPECT_EQ(differing(restored.depth, drawn.depth, kDepthStep), 0U);
        display->endDraw();
        for (const auto& [name, value] : settings) {
            glPixelStorei(name, name == GL_PACK_ALIGNMENT || name == GL_UNPACK_ALIGNMENT ? 4 : 0);
        }
    }
    EXPECT_EQ(GuardedHeap::damagedBlocks(), damagedBefore);
}

}  // namespace

}  // namespace qel::test
