#include "Statistics.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace qel::bench {

namespace {

/// What may lie outside at each end.
constexpr double kTail = 0.025;

double middleOfSorted(const std::vector<double>& sorted) {
    const std::size_t half = sorted.size() / 2;
    return sorted.size() % 2 != 0 ? sorted[half] : 0.5 * (sorted[half - 1] + sorted[half]);
}

/// Probability that so many of `size` fair coins show heads.
double binomialHalf(std::size_t size, std::size_t heads) {
    const double n = static_cast<double>(size);
    const double k = static_cast<double>(heads);
    const double waysLog = std::lgamma(n + 1.0) - std::lgamma(k + 1.0) - std::lgamma(n - k + 1.0);
    return std::exp(waysLog - n * std::log(2.0));
}

}  // namespace

double medianOf(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return middleOfSorted(values);
}

// Each value lies below the true median with a probability of one half. The true median lies below the value
// of rank k + 1 only if at most k of the sample lie below it.
std::size_t ranksOutside(std::size_t sampleSize) {
    double outside = 0.0;
    std::size_t ranks = 0;
    while (ranks < sampleSize / 2) {
        outside += binomialHalf(sampleSize, ranks);
        if (outside > kTail) {
            break;
        }
        ++ranks;
    }
    // Up to here `ranks` counts how many values may be left out and one more than that must not.
    return ranks > 0 ? ranks - 1 : 0;
}

MedianInterval medianInterval(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const std::size_t outside = ranksOutside(values.size());
    return {middleOfSorted(values), values[outside], values[values.size() - 1 - outside]};
}

}  // namespace qel::bench
