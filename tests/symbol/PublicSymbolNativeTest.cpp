#include "PublicSymbol.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <thread>
#include <vector>

#include "IQelSymbol.h"
#include "QelDisplay64t.h"

namespace qel::test {
namespace {

/// Asked before anything else of the program runs.
const bool kEmptyAtFirst = !getPubSymbol();

/// Starts with an empty slot and leaves one.
class PublicSymbol : public ::testing::Test {
  protected:
    PublicSymbol() { setPublicSymbol(nullptr); }
    ~PublicSymbol() override { setPublicSymbol(nullptr); }
};

TEST_F(PublicSymbol, IsEmptyBeforeTheLibraryIsLoaded) {
    EXPECT_TRUE(kEmptyAtFirst);
}

TEST_F(PublicSymbol, IsAFreshOneAtEachRenewal) {
    setPublicSymbol(newQelSymbol());
    const ref_ptr<IQelSymbol> first = getPubSymbol();
    ASSERT_TRUE(first);
    EXPECT_EQ(getPubSymbol().get(), first.get());
    setPublicSymbol(newQelSymbol());
    const ref_ptr<IQelSymbol> second = getPubSymbol();
    ASSERT_TRUE(second);
    EXPECT_NE(second.get(), first.get());
}

TEST_F(PublicSymbol, IsHeldByTheSlotAndByWhoeverAsked) {
    setPublicSymbol(newQelSymbol());
    const ref_ptr<IQelSymbol> held = getPubSymbol();
    EXPECT_EQ(held->referenceCount(), 2);
    EXPECT_EQ(getPubSymbol()->referenceCount(), 3);
    EXPECT_EQ(held->referenceCount(), 2);
}

TEST_F(PublicSymbol, LivesOnWithItsHolderAfterARenewal) {
    setPublicSymbol(newQelSymbol());
    const ref_ptr<IQelSymbol> held = getPubSymbol();
    setPublicSymbol(newQelSymbol());
    EXPECT_EQ(held->referenceCount(), 1);
    setPublicSymbol(nullptr);
    EXPECT_FALSE(getPubSymbol());
}

TEST_F(PublicSymbol, IsStillServedWhenTheProcessGoesDown) {
    // In a process of its own, since there is no way back.
    const auto goDown = [] {
        setPublicSymbol(newQelSymbol());
        const ref_ptr<IQelSymbol> before = getPubSymbol();
        unlockPublicSymbolForGood();
        const bool isServed = getPubSymbol() == before;
        setPublicSymbol(nullptr);
        std::_Exit(isServed && before->referenceCount() == 1 ? 0 : 1);
    };
    EXPECT_EXIT(goDown(), ::testing::ExitedWithCode(0), "");
}

TEST_F(PublicSymbol, MayBeAskedForWhileAnotherThreadRenewsIt) {
    setPublicSymbol(newQelSymbol());
    std::atomic<bool> stop = false;
    std::atomic<int> empty = 0;
    std::vector<std::thread> readers;
    for (int i = 0; i < 3; ++i) {
        readers.emplace_back([&] {
            while (!stop) {
                const ref_ptr<IQelSymbol> symbol = getPubSymbol();
                empty += !symbol || symbol->referenceCount() < 1 ? 1 : 0;
            }
        });
    }
    for (int i = 0; i < 20000; ++i) {
        setPublicSymbol(newQelSymbol());
    }
    stop = true;
    for (std::thread& reader : readers) {
        reader.join();
    }
    EXPECT_EQ(empty, 0);
    EXPECT_EQ(getPubSymbol()->referenceCount(), 2);
}

}  // namespace
}  // namespace qel::test
