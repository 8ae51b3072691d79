#include "HeapPeak.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <thread>
#include <vector>

namespace {

using qel::test::HeapPeak;

class HeapPeakBlocks : public testing::Test {
  protected:
    void SetUp() override {
        if (!HeapPeak::canCount()) {
            GTEST_SKIP() << "this build has no address sanitizer, which counts memory";
        }
    }
};

TEST_F(HeapPeakBlocks, CountWhileTheyAreHeldAtOnce) {
    std::vector<char> before(50'000);
    const HeapPeak peak;
    EXPECT_EQ(peak.bytes(), 0U);
    for (int i = 0; i < 3; ++i) {
        const std::vector<char> one(1000);
        const std::vector<char> other(500);
    }
    EXPECT_EQ(peak.bytes(), 1500U);
    // What was there before makes room when it goes.
    before = std::vector<char>();
    const std::vector<char> later(51'000);
    EXPECT_EQ(peak.bytes(), 1500U);
    const std::vector<char> more(1000);
    EXPECT_EQ(peak.bytes(), 2000U);
}

TEST_F(HeapPeakBlocks, CountFromMallocAndOnOtherThreadsToo) {
    const HeapPeak peak;
    std::thread([] {
        void* const block = std::malloc(70'000);
        std::free(block);
    }).join();
    EXPECT_GE(peak.bytes(), 70'000U);
    EXPECT_LT(peak.bytes(), 72'000U);
}

TEST_F(HeapPeakBlocks, CountOnlyWhileItLives) {
    { const HeapPeak peak; }
    const std::vector<char> between(9000);
    const HeapPeak peak;
    EXPECT_EQ(peak.bytes(), 0U);
}

}  // namespace
