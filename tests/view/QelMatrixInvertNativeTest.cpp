#include <gtest/gtest.h>

#include <cstddef>
#include <new>
#include <string>
#include <vector>

#include "MatrixHelp.h"
#include "QelMatrix.h"

namespace {

/// Which coming request for an array finds no memory; 0 for none.
int failingRequest = 0;

}  // namespace

/// Requests that can do without an exception. It serves them from the throwing one, so that the sanitizer
/// still sees every block.
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    if (failingRequest > 0 && --failingRequest == 0) {
        return nullptr;
    }
    try {
        return ::operator new[](size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

namespace qel::test {
namespace {

constexpr std::int32_t kOrder = 5;

/// Larger than the matrices that need no memory for their pivots.
template <class T>
void expectRefusedWithoutMemory(int request) {
    matrix<T> m = anyMatrix<T>(kOrder, kOrder, 11U);
    const std::vector<T> before = valuesOf(m);
    ::testing::internal::CaptureStdout();
    failingRequest = request;
    const bool done = m.invert();
    failingRequest = 0;
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "out of memory!\n");
    EXPECT_FALSE(done);
    EXPECT_EQ(valuesOf(m), before);
    EXPECT_TRUE(m.invert());
}

TEST(QelMatrixInvert, WithoutMemoryForItsPivotsSaysSoAndChangesNothing) {
    for (const int request : {1, 2}) {
        expectRefusedWithoutMemory<double>(request);
        expectRefusedWithoutMemory<float>(request);
    }
}

}  // namespace
}  // namespace qel::test
