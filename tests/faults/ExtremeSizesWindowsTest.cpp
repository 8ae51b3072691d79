#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <new>
#include <string>
#include <vector>

#include "ExtremeNumbers.h"
#include "IQelTrackBall.h"
#include "QelMatrix.h"
#include "display/DisplayFixtureWindows.h"
#include "kit/GuardedHeap.h"
#include "kit/ImportTable.h"
#include "kit/Picture.h"

namespace qel::test {
namespace {
/// Around each of these a product of 32 bits goes wrong. The last is 2^32 - 1 of a host that counts without a
/// sign.
constexpr std::array<std::int32_t, 6> kSides{0, 1, 46341, 65536, kLargest, -1};
constexpr std::size_t kMostBytes = std::size_t{64} << 20U;
constexpr std::size_t kBytesOfAPixel = 4 * sizeof(float);

/// The size that the heap refuses where `wanted` bytes are too many. Under Microsoft's C++ ABI a size beyond 64
/// bits is asked for as the largest there is; under the other one more than half of that is not asked for.
double refusedOf(double wanted) {
#if defined(_MSC_VER)
    return std::min(wanted, static_cast<double>(SIZE_MAX));
#else
    constexpr double kMostThatCanBeAsked = 9e18;
    return wanted < kMostThatCanBeAsked ? wanted : 0.0;
#endif
}

/// Bytes of the copy's colours in double, which no size overflows.
double colorBytes(std::int32_t width, std::int32_t height) {
    return static_cast<double>(width) * static_cast<double>(height) * static_cast<double>(kBytesOfAPixel);
}

class ExtremeSizes : public DisplayTest {
  protected:
    /// A frame of a view of ordinary size, which works whatever was asked before.
    void expectOrdinaryFrame() {
        display->setViewSize(kWidth, kHeight);
        display->setBackColor({0.0F, 1.0F, 0.0F});
        display->beginFrame(0);
        EXPECT_EQ(Picture::ofFrame({0, 0, kWidth, kHeight}, GL_BACK).countOf({0, 255, 0, 255}),
                  static_cast<std::size_t>(kWidth * kHeight));
        EXPECT_EQ(display->finishFrame(), 0);
        const CallTrace trace;
        EXPECT_EQ(display->restoreCache(), 1);
        EXPECT_EQ(display->endDraw(), 0);
        EXPECT_TRUE(callsMatch({trace.callsOf("glDrawPixels")[1]},
                               {call("glDrawPixels", kWidth, kHeight, GL_RGBA, GL_FLOAT, any)}));
    }

    /// The copy is empty: nothing is drawn from memory that is not there.
    void expectEmptyCopy() {
        const CallTrace trace;
        EXPECT_EQ(display->restoreCache(), 1);
        EXPECT_EQ(display->endDraw(), 0);
        EXPECT_TRUE(callsMatch(trace.callsOf("glDrawPixels"),
                               {call("glDrawPixels", 0, 0, GL_DEPTH_COMPONENT, GL_FLOAT, nullptr),
                                call("glDrawPixels", 0, 0, GL_RGBA, GL_FLOAT, nullptr)}));
    }

    /// The copy of a view whose colours take too much: the allocator's exception, before anything is read.
    void expectNoCopy(GuardedHeap& heap, std::int32_t width, std::int32_t height) {
        const CallTrace trace;
        EXPECT_THROW(display->finishFrame(), std::bad_alloc);
        EXPECT_EQ(trace.count("glReadPixels"), 0U);
        EXPECT_EQ(trace.count("SwapBuffers"), 0U);
        EXPECT_EQ(static_cast<double>(heap.largestRefused()), refusedOf(colorBytes(width, height)));
    }
};

TEST_F(ExtremeSizes, OfAViewTakeExactlyTheirMemoryOrEndInTheAllocatorsException) {
    GuardedHeap heap;
    expectOrdinaryFrame();
    int refused = 0;
    for (const std::int32_t width : kSides) {
        for (const std::int32_t height : kSides) {
            SCOPED_TRACE(std::to_string(width) + " x " + std::to_string(height));
            EXPECT_EQ(display->setViewSize(width, height), 1);
            heap.refuseAbove(kMostBytes);
            if (width < 0 || height < 0) {
                // Refused: the size before stays.
                EXPECT_EQ(display->finishFrame(), 0);
                EXPECT_EQ(heap.largestRefused(), 0U);
            } else if (colorBytes(width, height) > static_cast<double>(kMostBytes)) {
                expectNoCopy(heap, width, height);
                ++refused;
                expectEmptyCopy();
            } else {
                EXPECT_EQ(display->finishFrame(), 0);
                EXPECT_EQ(heap.largestRefused(), 0U);
            }
            expectOrdinaryFrame();
        }
    }
    EXPECT_EQ(refused, 11);
    RecordProperty("sizes", static_cast<int>(kSides.size() * kSides.size()));
}

TEST_F(ExtremeSizes, OfTheCamerasDepthTakeExactlyTheirMemoryOrEndInTheAllocatorsException) {
    GuardedHeap heap;
    IQelTrackBall& camera = *display->getTrackBall();
    // The camera's sizes are of single precision; the last is the largest that an integer holds too.
    constexpr std::uint32_t kLargestView = 2147483520;
    const std::uint32_t sides[] = {0, 1, 46341, 65536, kLargestView, 0x7FFFFFFF, 0xFFFFFFFF};
    for (const std::uint32_t width : sides) {
        for (const std::uint32_t height : sides) {
            SCOPED_TRACE(std::to_string(width) + " x " + std::to_string(height));
            camera.onResize(kWidth, kHeight);
            camera.refreshDepth();
            heap.refuseAbove(kMostBytes);
            camera.onResize(width, height);
            const bool isAView = width > 0 && height > 0 && std::max(width, height) <= kLargestView;
            const double wanted = static_cast<double>(width) * height * sizeof(float);
            const CallTrace trace;
            if (isAView && wanted > static_cast<double>(kMostBytes)) {
                EXPECT_THROW(camera.refreshDepth(), std::bad_alloc);
                EXPECT_EQ(trace.count("glReadPixels"), 0U);
                EXPECT_EQ(static_cast<double>(heap.largestRefused()), refusedOf(wanted));
            } else {
                EXPECT_EQ(camera.refreshDepth(), 0);
                EXPECT_TRUE(
                    callsMatch(trace.callsOf("glReadPixels"),
                               {call("glReadPixels", 0, 0, isAView ? width : kWidth,
                                     isAView ? height : kHeight, GL_DEPTH_COMPONENT, GL_FLOAT, any)}));
                EXPECT_EQ(heap.largestRefused(), 0U);
            }
            EXPECT_EQ(pendingError(), static_cast<GLenum>(GL_NO_ERROR));
        }
    }
    camera.onResize(kWidth, kHeight);
    EXPECT_EQ(camera.refreshDepth(), 0);
}

TEST_F(ExtremeSizes, OfAMatrixTakeExactlyTheirMemoryOrEndInTheAllocatorsException) {
    GuardedHeap heap;
    for (const std::int32_t rows : kSides) {
        for (const std::int32_t columns : kSides) {
            SCOPED_TRACE(std::to_string(rows) + " x " + std::to_string(columns));
            heap.refuseAbove(kMostBytes);
            // At least one row and one column, and room for the count of references.
            const double elements = static_cast<double>(std::max(rows, 1)) * std::max(columns, 1) + 1;
            const double wanted = elements * sizeof(double);
            if (wanted > static_cast<double>(kMostBytes)) {
                EXPECT_THROW(matrix<double>(rows, columns), std::bad_alloc);
                EXPECT_EQ(static_cast<double>(heap.largestRefused()), refusedOf(wanted));
            } else {
                const matrix<double> made(rows, columns);
                EXPECT_EQ(made.rowCount(), std::max(rows, 1));
                EXPECT_EQ(made.element(made.rowCount() - 1, made.columnCount() - 1), 0.0);
            }
        }
    }
}

RECT clientOfTheStandIn{};

BOOL WINAPI clientOfASize(HWND /*window*/, RECT* client) {
    *client = clientOfTheStandIn;
    return TRUE;
}

TEST_F(ExtremeSizes, OfAWindowThatIsAttachedTakeNoSillyMemory) {
    const auto lowest = std::numeric_limits<LONG>::min();
    constexpr LONG kHigh = std::numeric_limits<LONG>::max();
    const RECT clients[] = {{0, 0, 0, 0},         {0, 0, 1, 1},         {0, 0, 46341, 46341},
                            {0, 0, 65536, 65536}, {0, 0, kHigh, kHigh}, {lowest, lowest, kHigh, kHigh},
                            {65536, 65536, 0, 0}, {0, 0, -1, -1},       {lowest, 0, kHigh, 1}};
    GuardedHeap heap;
    const std::vector<Import> imports = importsOf(GetModuleHandleW(L"QelDisplay64t.dll"));
    for (const RECT& client : clients) {
        SCOPED_TRACE(std::to_string(client.left) + ' ' + std::to_string(client.right));
        clientOfTheStandIn = client;
        const HeldDisplay attached;
        {
            ImportPatches patches;
            for (const Import& import : imports) {
                if (import.name == "GetClientRect") {
                    patches.redirect(import, reinterpret_cast<void*>(&clientOfASize));
                }
            }
            ASSERT_EQ(patches.count(), 1U);
            heap.refuseAbove(kMostBytes);
            EXPECT_EQ(attached->attachWindow(number32(window.hwnd()), false), 0);
        }
        attached->beginFrame(0);
        const double width = static_cast<double>(client.right) - client.left;
        const double height = static_cast<double>(client.bottom) - client.top;
        const bool fits = std::fabs(width) <= kLargest && std::fabs(height) <= kLargest;
        const bool isHuge = fits && std::fabs(width * height) * kBytesOfAPixel > kMostBytes;
        if (isHuge) {
            EXPECT_THROW(attached->finishFrame(), std::bad_alloc);
        } else {
            attached->finishFrame();
            EXPECT_EQ(heap.largestRefused(), 0U);
        }
        EXPECT_EQ(attached->restoreCache(), 1);
        EXPECT_EQ(attached->endDraw(), 0);
        attached->setViewSize(kWidth, kHeight);
        EXPECT_EQ(attached->finishFrame(), 0);
    }
}

}  // namespace
}  // namespace qel::test
