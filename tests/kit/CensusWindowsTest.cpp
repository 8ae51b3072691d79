#include "Census.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <memory>
#include <sstream>

#include "CallTrace.h"
#include "GlSurface.h"
#include "QelGl.h"
#include "TestWindow.h"

namespace qel::test {
namespace {

TEST(Census, CountsGdiObjects) {
    const Census before = Census::now();
    HPEN const pen = CreatePen(PS_SOLID, 1, 0);
    HDC const dc = CreateCompatibleDC(nullptr);
    EXPECT_EQ(Census::now().gdiHandles, before.gdiHandles + 2);
    DeleteObject(pen);
    EXPECT_EQ(Census::now().gdiHandles, before.gdiHandles + 1);
    DeleteDC(dc);
    EXPECT_EQ(Census::now(), before);
}

TEST(Census, CountsWindows) {
    // The system adds a window of its own to the first one of a thread.
    const TestWindow first;
    const Census before = Census::now();
    {
        const TestWindow window;
        EXPECT_EQ(Census::now().userHandles, before.userHandles + 1);
        EXPECT_EQ(Census::now().windowDcs, before.windowDcs + 1);
    }
    EXPECT_EQ(Census::now(), before);
}

TEST(Census, CountsDeviceContextsThatAreNotReleased) {
    const TestWindow window;
    HWND const handle = reinterpret_cast<HWND>(window.hwnd());
    const Census before = Census::now();
    HDC const dc = GetDC(handle);
    EXPECT_EQ(Census::now().windowDcs, before.windowDcs + 1);
    ReleaseDC(handle, dc);
    EXPECT_EQ(Census::now(), before);
}

TEST(Census, CountsContextsOfOpenGl) {
    const Census before = Census::now();
    const GlSurface surface(16, 16);
    EXPECT_EQ(Census::now().glContexts, before.glContexts + 1);
    HGLRC const second = wglCreateContext(reinterpret_cast<HDC>(surface.dc()));
    EXPECT_EQ(Census::now().glContexts, before.glContexts + 2);
    wglDeleteContext(second);
    EXPECT_EQ(Census::now().glContexts, before.glContexts + 1);
}

TEST(Census, CountsAlsoWhileATraceIsAliveAndAfterIt) {
    const GlSurface surface(16, 16);
    HDC const dc = reinterpret_cast<HDC>(surface.dc());
    const Census before = Census::now();
    HGLRC made = nullptr;
    {
        CallTrace trace;
        made = wglCreateContext(dc);
        EXPECT_EQ(Census::now().glContexts, before.glContexts + 1);
        trace.answerPointer("wglCreateContext", nullptr);
        EXPECT_EQ(wglCreateContext(dc), nullptr);
        EXPECT_EQ(Census::now().glContexts, before.glContexts + 1) << "a context that was never made";
    }
    wglDeleteContext(made);
    EXPECT_EQ(Census::now().glContexts, before.glContexts);
}

TEST(Census, IsTheSameAfterManySurfaces) {
    { const GlSurface first(16, 16); }
    const Census before = Census::now();
    for (int i = 0; i < 10; ++i) {
        const GlSurface surface(16, 16);
    }
    EXPECT_EQ(Census::now(), before);
}

TEST(Census, PrintsWhatItCounted) {
    std::ostringstream text;
    text << Census{1, 2, 3, 4};
    EXPECT_EQ(text.str(), "1 GDI handles, 2 USER handles, 3 OpenGL contexts, 4 device contexts of windows");
}

TEST(CensusOfMemory, CountsCommittedPages) {
    constexpr std::size_t kBytes = 1 << 20;
    const MemoryCensus before = MemoryCensus::now();
    void* const pages = VirtualAlloc(nullptr, kBytes, MEM_RESERVE, PAGE_READWRITE);
    EXPECT_LT(MemoryCensus::now().committedBytes, before.committedBytes + kBytes);
    VirtualAlloc(pages, kBytes, MEM_COMMIT, PAGE_READWRITE);
    EXPECT_GE(MemoryCensus::now().committedBytes, before.committedBytes + kBytes);
    VirtualFree(pages, 0, MEM_RELEASE);
    EXPECT_LT(MemoryCensus::now().committedBytes, before.committedBytes + kBytes);
}

TEST(CensusOfMemory, CountsHeapBlocks) {
    const MemoryCensus before = MemoryCensus::now();
    auto bytes = std::make_unique<char[]>(1000);
    auto more = std::make_unique<char[]>(500000);
    const MemoryCensus with = MemoryCensus::now();
    EXPECT_EQ(with.heapBlocks, before.heapBlocks + 2);
    EXPECT_GE(with.heapBytes, before.heapBytes + 501000);
    EXPECT_LT(with.heapBytes, before.heapBytes + 510000);
    bytes.reset();
    more.reset();
    EXPECT_EQ(MemoryCensus::now().heapBytes, before.heapBytes);
}

}  // namespace
}  // namespace qel::test
