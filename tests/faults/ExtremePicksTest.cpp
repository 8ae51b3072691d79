#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <iterator>
#include <string>

#include "QelGl.h"
#include "host/ViewSubject.h"
#include "kit/CallTrace.h"
#include "kit/LongRun.h"

namespace qel::test {
namespace {

constexpr std::uint32_t kSides[] = {0, 1, 46341, 65536, 2147483520, 0x7FFFFFFF, 0xFFFFFFFF};
constexpr double kPlaces[] = {-4294967295.0, -2147483648.0, -46341.0,     -1.0,         0.0,
                              0.5,           1.0,           41.0,         46340.0,      46341.0,
                              65535.0,       65536.0,       16777216.0,   2147483500.0, 2147483519.0,
                              2147483520.0,  2147483647.0,  2147483648.0, 4294967295.0, 1e300};
/// The square around a picked place, in pixels of each side.
constexpr long kLargestSquare = 42;
constexpr long kFarthest = 1L << 24;

/// Where and how much the camera asks OpenGL for.
struct Asked {
    long x = 0;
    long y = 0;
    long width = 0;
    long height = 0;
};

Asked askedBy(const std::string& readCall) {
    Asked asked;
    EXPECT_EQ(std::sscanf(readCall.c_str(), "glReadPixels(%ld, %ld, %ld, %ld,", &asked.x, &asked.y,
                          &asked.width, &asked.height),
              4)
        << readCall;
    return asked;
}

/// No square that is larger than the one around a pick, and none so far out that a driver's sums of 32 bits
/// could not hold its edges.
void expectModestReads(const CallTrace& trace) {
    for (const std::string& readCall : trace.callsOf("glReadPixels")) {
        const Asked asked = askedBy(readCall);
        EXPECT_TRUE(asked.width >= 0 && asked.width <= kLargestSquare) << readCall;
        EXPECT_TRUE(asked.height >= 0 && asked.height <= kLargestSquare) << readCall;
        EXPECT_TRUE(asked.x > -kFarthest && asked.x + asked.width <= kFarthest) << readCall;
        EXPECT_TRUE(asked.y > -kFarthest && asked.y + asked.height <= kFarthest) << readCall;
    }
}

TEST(ExtremePicks, ReadNoMoreThanTheirSquareWhereverTheyAreInAViewOfWhateverSize) {
    const ViewSubject view(60, 40);
    int picks = 0;
    for (const std::uint32_t width : kSides) {
        for (const std::uint32_t height : kSides) {
            view->onResize(60, 40);
            view->refreshDepth();
            view->onResize(width, height);
            // Every day one place, another in each view.
            const std::size_t step = shortOrLong<std::size_t>(std::size(kPlaces), 1);
            for (std::size_t at = static_cast<std::size_t>(picks) % step; at < std::size(kPlaces);
                 at += step) {
                const double x = kPlaces[at];
                for (const double y : {0.0, 20.0, x}) {
                    SCOPED_TRACE(std::to_string(width) + " x " + std::to_string(height) + " at " +
                                 std::to_string(x) + ' ' + std::to_string(y));
                    const CallTrace trace;
                    view->pickModelPnt(x, y);
                    view->getModelPntAt(y, x);
                    expectModestReads(trace);
                    ++picks;
                }
            }
            if (::testing::Test::HasFailure()) {
                return;
            }
        }
    }
    const XPnt3d eye = view->getEye();
    EXPECT_TRUE(std::isfinite(eye.x) && std::isfinite(eye.y) && std::isfinite(eye.z));
    ::testing::Test::RecordProperty("calls", 2 * picks);
}

TEST(ExtremePicks, AskForNoSquareThatReachesBeyondWhatADriverCanAdd) {
    const ViewSubject view(60, 40);
    view->refreshDepth();
    view->onResize(2147483520, 40);
    const auto readsAt = [&view](double x) {
        const CallTrace trace;
        view->pickModelPnt(x, 20.0);
        expectModestReads(trace);
        return trace.count("glReadPixels");
    };
    // The pixel and, nothing being drawn there, its square; the pixel alone, beyond the viewport that the
    // driver grants such a view; nothing.
    EXPECT_EQ(readsAt(100.0), 2);
    EXPECT_EQ(readsAt(16777210.0), 1);
    EXPECT_EQ(readsAt(16777300.0), 0);
}

}  // namespace
}  // namespace qel::test
