#include "QelHandle.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace qel::test {
namespace {

TEST(HandleNumber, IsTheHandleInThirtyTwoBits) {
    void* const handle = reinterpret_cast<void*>(std::intptr_t{0x1234});
    EXPECT_EQ(qel::handleNumber(handle), 0x1234);
    EXPECT_EQ(qel::handleFromNumber<void*>(0x1234), handle);
    EXPECT_EQ(qel::handleNumber(nullptr), 0);
    EXPECT_EQ(qel::handleFromNumber<int*>(0), nullptr);
}

TEST(HandleNumber, WidensWithItsSign) {
    void* const handle = reinterpret_cast<void*>(std::intptr_t{-16});
    EXPECT_EQ(qel::handleNumber(handle), -16);
    EXPECT_EQ(qel::handleFromNumber<void*>(-16), handle);
}

}  // namespace
}  // namespace qel::test
