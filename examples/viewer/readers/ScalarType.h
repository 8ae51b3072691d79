#pragma once

#include <cstddef>
#include <cstdint>

#include "ByteOrder.h"

namespace qelview {

/// The types of numbers in binary files.
enum class ScalarType : std::uint8_t { Int8, Uint8, Int16, Uint16, Int32, Uint32, Float32, Float64 };

/// In bytes.
[[nodiscard]] std::size_t sizeOf(ScalarType type);

/// A number of a type from anywhere in memory.
[[nodiscard]] double readAs(ScalarType type, const char* from, ByteOrder order);

/// A number of each of `count` records, the first one at `from`, `stride` bytes from one to the next.
void readColumn(ScalarType type, const char* from, std::size_t stride, std::size_t count, ByteOrder order,
                double* into);

/// What stands for the whole where whole numbers stand for shares: the largest one of the type, or 1 for
/// types that say shares as they are.
[[nodiscard]] double wholeShareOf(ScalarType type);

}  // namespace qelview
