#include <gtest/gtest.h>

#include "LoadedModuleWindows.h"
#include "QelGl.h"

namespace qel::test {
namespace {

/// Waits until the module has left the process, which its sleeping thread delays.
bool leaves() {
    constexpr DWORD kLongest = 12000;
    const DWORD start = GetTickCount();
    while (GetModuleHandleW(kModule) != nullptr && GetTickCount() - start < kLongest) {
        Sleep(20);
    }
    return GetModuleHandleW(kModule) == nullptr;
}

int inkOfASquare() {
    LoadedModule loaded;
    return inkOf(loaded.frameOf([&] {
        loaded.symbol().drawSquare(XPnt3d(48.0, 48.0, 0.0), 30.0, 3.0, {1.0F, 1.0F, 1.0F}, false, false);
    }));
}

TEST(Loading, DrawsThroughPlainNamesAndUnloadsAndLoadsAgain) {
    const int first = inkOfASquare();
    EXPECT_GT(first, 200);
    EXPECT_TRUE(leaves());
    EXPECT_EQ(inkOfASquare(), first);
    EXPECT_TRUE(leaves());
}

}  // namespace
}  // namespace qel::test
