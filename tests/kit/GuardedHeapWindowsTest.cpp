#include "GuardedHeap.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace qel::test {
namespace {

/// Keeps the compiler from knowing what it is about to do to a block.
char* volatile hidden = nullptr;

char* block(std::size_t size) {
    hidden = new char[size];
    return hidden;
}

TEST(GuardedHeap, ServesWhatOperatorNewAsksFor) {
    const GuardedHeap heap;
    const std::size_t before = heap.servedBlocks();
    char* const bytes = block(100);
    EXPECT_EQ(heap.servedBlocks(), before + 1);
    EXPECT_TRUE(GuardedHeap::guards(bytes));
    EXPECT_EQ(GuardedHeap::sizeOf(bytes), 100U);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(bytes) % 16, 0U);
    EXPECT_EQ(heap.unguardedBlocks(), 0U);
    delete[] bytes;
    EXPECT_FALSE(GuardedHeap::guards(bytes));
}

TEST(GuardedHeap, FindsNoMemoryForTheAllocationThatItIsToldToRefuse) {
    GuardedHeap heap;
    heap.refuse(2);
    delete[] block(10);
    EXPECT_FALSE(heap.hasRefused());
    EXPECT_THROW(block(10), std::bad_alloc);
    EXPECT_TRUE(heap.hasRefused());
    EXPECT_NO_THROW(delete[] block(10));
    heap.refuse(0);
    EXPECT_NO_THROW(delete[] block(10));
    EXPECT_FALSE(heap.hasRefused());
}

TEST(GuardedHeap, LetsABlockBeUsedToItsLastByte) {
    const GuardedHeap heap;
    const std::size_t damagedBefore = GuardedHeap::damagedBlocks();
    for (const std::size_t size : {1U, 16U, 4095U, 4096U, 4097U, 100000U}) {
        char* const bytes = block(size);
        EXPECT_FALSE(faultsIn([&] { std::memset(hidden, 1, size); })) << size;
        delete[] bytes;
    }
    EXPECT_EQ(GuardedHeap::damagedBlocks(), damagedBefore);
}

TEST(GuardedHeap, FaultsOnTheFirstByteBehindABlock) {
    const GuardedHeap heap;
    for (const std::size_t size : {16U, 4096U, 100000U}) {
        char* const bytes = block(size);
        EXPECT_TRUE(faultsIn([&] { hidden[size] = 1; })) << size;
        EXPECT_TRUE(faultsIn([&] { hidden[0] = hidden[size]; })) << size;
        delete[] bytes;
    }
}

TEST(GuardedHeap, FaultsOnTheFirstByteBehindABlockOfAnySizeIfAsked) {
    const GuardedHeap heap(BlockEnd::kExact);
    for (const std::size_t size : {1U, 3U, 24U, 4097U}) {
        char* const bytes = block(size);
        EXPECT_FALSE(faultsIn([&] { hidden[size - 1] = 1; })) << size;
        EXPECT_TRUE(faultsIn([&] { hidden[size] = 1; })) << size;
        delete[] bytes;
    }
}

TEST(GuardedHeap, NoticesAWriteWithinTheAlignment) {
    const GuardedHeap heap;
    const std::size_t before = GuardedHeap::damagedBlocks();
    char* const bytes = block(20);
    EXPECT_FALSE(faultsIn([&] { hidden[20] = 1; }));
    EXPECT_EQ(GuardedHeap::damagedBlocks(), before + 1);
    delete[] bytes;
    EXPECT_EQ(GuardedHeap::damagedBlocks(), before + 1);
}

TEST(GuardedHeap, FaultsOnTheUseOfAFreedBlock) {
    const GuardedHeap heap;
    delete[] block(64);
    EXPECT_TRUE(faultsIn([&] { hidden[0] = 1; }));
}

TEST(GuardedHeap, FaultsWhenABlockIsFreedTwice) {
    const GuardedHeap heap;
    delete[] block(64);
    EXPECT_TRUE(faultsIn([&] { delete[] hidden; }));
}

TEST(GuardedHeap, FreesForeignBlocksTheirOwnWay) {
    char* const before = block(64);
    std::vector<int> numbers = {1, 2, 3};
    {
        const GuardedHeap heap;
        EXPECT_FALSE(GuardedHeap::guards(before));
        delete[] before;
        numbers.assign(1000, 7);
        EXPECT_TRUE(GuardedHeap::guards(numbers.data()));
    }
    EXPECT_EQ(numbers.back(), 7);
    EXPECT_TRUE(GuardedHeap::guards(numbers.data()));
    const std::size_t live = GuardedHeap::liveBlocks();
    numbers = std::vector<int>();
    EXPECT_EQ(GuardedHeap::liveBlocks(), live - 1);
}

TEST(GuardedHeap, ServesNothingAfterItsLife) {
    { const GuardedHeap heap; }
    char* const bytes = block(64);
    EXPECT_FALSE(GuardedHeap::guards(bytes));
    delete[] bytes;
}

TEST(GuardedHeap, CountsLiveBytes) {
    const GuardedHeap heap;
    const std::size_t before = GuardedHeap::liveBytes();
    char* const bytes = block(12345);
    EXPECT_EQ(GuardedHeap::liveBytes(), before + 12345);
    delete[] bytes;
    EXPECT_EQ(GuardedHeap::liveBytes(), before);
}

TEST(GuardedHeap, RefusesWhatIsLargerThanItsBoundAndTellsHowMuchWasAsked) {
    GuardedHeap heap;
    heap.refuseAbove(1000);
    delete[] block(1000);
    EXPECT_EQ(heap.largestRefused(), 0U);
    EXPECT_THROW(block(1001), std::bad_alloc);
    EXPECT_THROW(block(5000), std::bad_alloc);
    EXPECT_THROW(block(2000), std::bad_alloc);
    EXPECT_EQ(heap.largestRefused(), 5000U);
    heap.refuseAbove(SIZE_MAX);
    delete[] block(5000);
    EXPECT_EQ(heap.largestRefused(), 0U);
}

TEST(GuardedHeapDeathTest, SaysWhichBlockWasLeft) {
    EXPECT_DEATH(
        {
            const GuardedHeap heap;
            block(32);
            hidden[32] = 1;
        },
        "write at byte 0 behind the end of a block of 32 bytes");
    EXPECT_DEATH(
        {
            const GuardedHeap heap;
            delete[] block(32);
            hidden[0] = 1;
        },
        "write at byte 0 behind the start of a freed block of 32 bytes");
}

}  // namespace
}  // namespace qel::test
