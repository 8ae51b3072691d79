#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>
#include <vector>

#include "WildArguments.h"
#include "kit/LongRun.h"

namespace qel::test {

/// An operation and how to call it with arguments of the monkey's.
template <class Subject>
struct MonkeyOperation {
    const char* name;
    void (*call)(Subject& subject, WildArguments& wild);
};

/// Calls in all, shared among the seeds.
#ifdef _WIN32
inline constexpr int kCallsOfALongRun = 200'000;
#else
inline constexpr int kCallsOfALongRun = 1'000'000;
#endif
inline constexpr int kCallsOfAShortRun = 12'000;

/// The seeds to run: those of every day, or the one in QEL_MONKEY_SEED to see a failure again.
inline std::vector<std::uint64_t> monkeySeeds() {
    if (const char* const wanted = std::getenv("QEL_MONKEY_SEED")) {
        return {std::strtoull(wanted, nullptr, 10)};
    }
    return {1, 2, 3, 4};
}

/// Calls operations in random order. After each call `check(name, wild)` looks at the subject; the run ends
/// with its first failure, which names the seed, the number of the call and the operation.
template <class Subject, class Before, class Check>
void letMonkeyPlay(Subject& subject, std::span<const MonkeyOperation<Subject>> operations, std::uint64_t seed,
                   Before before, Check check) {
    WildArguments wild(seed);
    const int calls = shortOrLong(kCallsOfAShortRun, kCallsOfALongRun) / 4;
    ::testing::Test::RecordProperty("calls", calls);
    ::testing::Test::RecordProperty("seed", std::to_string(seed));
    for (int number = 0; number < calls; ++number) {
        const MonkeyOperation<Subject>& operation = operations[wild.pick(operations.size())];
        wild.startCall();
        before();
        operation.call(subject, wild);
        check(operation, wild);
        if (::testing::Test::HasFailure()) {
            FAIL() << "call " << number << " of the monkey with QEL_MONKEY_SEED=" << seed << " was "
                   << operation.name;
        }
    }
}

}  // namespace qel::test
