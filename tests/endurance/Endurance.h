#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>

#include "kit/Census.h"
#include "kit/LongRun.h"

/// What the tests of long runs share: what the process holds before and after, random moments and sizes that
/// can be had again, and the figures that a run leaves in the results.

namespace qel::test {

/// The seed of a run: the same every day, or the one in QEL_ENDURANCE_SEED to see another or a failure again.
inline std::uint32_t enduranceSeed() {
    const char* const wanted = std::getenv("QEL_ENDURANCE_SEED");
    return wanted != nullptr ? static_cast<std::uint32_t>(std::strtoul(wanted, nullptr, 10)) : 1U;
}

/// Random numbers of a run. Records and, in a failure, names the seed.
class Chance {
  public:
    explicit Chance(std::uint32_t seed = enduranceSeed())
        : bits(seed), trace(__FILE__, __LINE__, "QEL_ENDURANCE_SEED=" + std::to_string(seed)) {
        ::testing::Test::RecordProperty("seed", static_cast<int>(seed));
    }

    /// From 0 to `count` - 1.
    int below(int count) { return static_cast<int>(bits() % static_cast<std::uint32_t>(count)); }

    std::mt19937& generator() { return bits; }

  private:
    std::mt19937 bits;
    ::testing::ScopedTrace trace;
};

/// What the process holds before something is repeated, to be compared with what it holds after.
class HeldBefore {
  public:
    HeldBefore() = default;

    /// Writes what is held now and before into the results.
    static void record(const char* when, const Census& handles, const MemoryCensus& memory) {
        const std::string suffix = std::string("_") + when;
        ::testing::Test::RecordProperty("handles" + suffix, handles.gdiHandles + handles.userHandles +
                                                                handles.glContexts + handles.windowDcs);
        ::testing::Test::RecordProperty("bytes" + suffix, std::to_string(memory.heapBytes));
        ::testing::Test::RecordProperty("blocks" + suffix, std::to_string(memory.heapBlocks));
    }

    /// Expects the same handles, and no more blocks and bytes of the heaps than the system's own tables may
    /// have taken meanwhile, however many the `rounds` were. Only pages, which the driver's caches hold too,
    /// may grow a little with them.
    void expectStillHeld(int rounds) const {
        const Census after = Census::now();
        const MemoryCensus memoryAfter = MemoryCensus::now();
        record("before", handles, memory);
        record("after", after, memoryAfter);
        ::testing::Test::RecordProperty("cycles", rounds);
        EXPECT_EQ(after, handles);
        const auto count = static_cast<std::size_t>(rounds);
        EXPECT_LE(memoryAfter.heapBlocks, memory.heapBlocks + kBlocksOfTheSystem)
            << memoryAfter << ", before " << memory;
        EXPECT_LE(memoryAfter.heapBytes, memory.heapBytes + kHeapBytesOfTheSystem)
            << memoryAfter << ", before " << memory;
        EXPECT_LE(memoryAfter.committedBytes, memory.committedBytes + kCommittedBytesOfTheSystem + count * 8)
            << memoryAfter << ", before " << memory;
    }

  private:
    static constexpr std::size_t kBlocksOfTheSystem = 40;
    static constexpr std::size_t kHeapBytesOfTheSystem = std::size_t{64} << 10U;
    static constexpr std::size_t kCommittedBytesOfTheSystem = std::size_t{4} << 20U;

    Census handles = Census::now();
    MemoryCensus memory = MemoryCensus::now();
};

/// Seconds since it was made, for the figures of a run.
class Stopwatch {
  public:
    [[nodiscard]] double seconds() const {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    }

  private:
    std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
};

}  // namespace qel::test
