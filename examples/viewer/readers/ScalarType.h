#pragma once

#include <cstddef>
#include <cstdint>

#include "ByteOrder.h"

namespace qelview {

/// Types of numbers in binary files.
enum class ScalarType : std::uint8_t { Int8, Uint8, Int16, Uint16, Int32, Uint32, Float32, Float64 };

/// How such numbers are read.
struct ScalarReading {
    /// In bytes.
    std::size_t size;
    /// The value that means 1 where numbers are normalised: the largest one of an integer type, 1 for floats.
    double maxValue;
    /// Reads a number; it needs no alignment.
    double (*read)(const char* from, ByteOrder order);
    /// Reads one number of each of `count` records, the first one at `from`, at intervals of `stride` bytes.
    void (*readColumn)(const char* from, std::size_t stride, std::size_t count, ByteOrder order,
                       double* into);
};

[[nodiscard]] const ScalarReading& readingOf(ScalarType type);

}  // namespace qelview
