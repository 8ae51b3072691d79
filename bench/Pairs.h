#pragma once

#include "Operation.h"
#include "Statistics.h"

namespace qel::bench {

/// How long to measure.
struct Plan {
    /// A sample lasts at least so long: the call is repeated until it does.
    double sampleSeconds = 1.5e-3;
    /// Rounds go on until the interval is narrow enough, but no longer than this.
    double mostSeconds = 20.0;
    int fewestRounds = 21;
};

/// Module against bare.
struct PairResult {
    MedianInterval ratio;
    /// Of one unit, in nanoseconds.
    MedianInterval module;
    MedianInterval bare;
    std::int64_t times = 0;
    int rounds = 0;
    /// The time was over before the interval was as narrow as wanted.
    bool cappedByTime = false;
};

/// One form alone, of one unit, in nanoseconds.
struct TimeResult {
    MedianInterval time;
    /// What one in ten samples stays below: what is left when nothing else wants the processor.
    double undisturbed = 0.0;
    int rounds = 0;
};

/// Seconds that `work` takes.
[[nodiscard]] double secondsOf(const std::function<void()>& work);

/// How often a form is repeated so that a sample lasts long enough; runs it to find out, which also warms it
/// up.
[[nodiscard]] std::int64_t timesForSample(const Forms& forms, const Form& form, const Plan& plan);

/// Measures both forms in turn, each going first in every other round, until the interval of the median ratio
/// is narrower than `wantedWidth`, and no longer holds `bound` (0: none) unless it is a quarter of that.
[[nodiscard]] PairResult comparePairs(const Forms& forms, double bound, double wantedWidth, const Plan& plan);

/// Measures one form, so many rounds unless the time is over before.
[[nodiscard]] TimeResult timeOf(const Forms& forms, const Form& form, int rounds, const Plan& plan);

}  // namespace qel::bench
