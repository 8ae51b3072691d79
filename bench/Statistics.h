#pragma once

#include <cstddef>
#include <vector>

/// The arithmetic of measurements that scatter: medians, and how far the median of everything may lie from
/// that of a sample.

namespace qel::bench {

/// A median and the interval in which the true one lies with a probability of at least 95 %.
struct MedianInterval {
    double median = 0.0;
    double low = 0.0;
    double high = 0.0;

    [[nodiscard]] double width() const { return high - low; }
};

/// The middle value; of an even number of values the mean of the two in the middle. At least one value.
[[nodiscard]] double medianOf(std::vector<double> values);

/// How many values may be left out at either end of a sorted sample, so that what remains holds the true
/// median with a probability of at least 95 %. Assumes nothing about how the values scatter. Samples of fewer
/// than six cannot tell: 0.
[[nodiscard]] std::size_t ranksOutside(std::size_t sampleSize);

/// Median and interval of a sample of at least one value. The interval of fewer than six values is all of
/// them.
[[nodiscard]] MedianInterval medianInterval(std::vector<double> values);

}  // namespace qel::bench
