#pragma once

#include <cstdint>

#include "Statistics.h"

namespace qel::bench {

/// What a measurement says about a bound, from good to bad.
enum class Verdict : std::uint8_t {
    NotHeld,  ///< nothing is promised
    Ok,
    Unclear,  ///< the machine was too busy to tell
    TooSlow,
};

/// Of an interval of ratios. An interval that stayed wider than wanted and holds the bound tells nothing.
/// @param bound 0 if nothing is promised.
[[nodiscard]] Verdict verdictOf(const MedianInterval& ratio, bool stayedWide, double bound);

/// Of a value that may be as large as its bound; 0 if nothing is promised.
[[nodiscard]] Verdict verdictOf(double value, double bound);

/// "ok", "unclear", "too slow", or nothing.
[[nodiscard]] const char* textOf(Verdict verdict);

}  // namespace qel::bench
