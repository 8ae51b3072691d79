#pragma once

#include <cstddef>
#include <cstdint>

#include "ByteOrder.h"

namespace qelview {

/// Types of numbers in binary files.
enum class ScalarType : std::uint8_t { Int8, Uint8, Int16, Uint16, Int32, Uint32, Float32, Float64 };

/// In bytes.
[[nodiscard]] std::size_t sizeOf(ScalarType type);

/// Reads a number of a type; it needs no alignment.
[[nodiscard]] double readAs(ScalarType type, const char* from, ByteOrder order);

/// Reads one number of each of `count` records, the first one at `from`, at intervals of `stride` bytes.
void readColumn(ScalarType type, const char* from, std::size_t stride, std::size_t count, ByteOrder order,
                double* into);

/// The value that means 1 where numbers are normalised: the largest one of an integer type, 1 for floats.
[[nodiscard]] double maxValueOf(ScalarType type);

}  // namespace qelview
