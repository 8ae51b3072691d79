#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>

namespace qelview {

enum class ByteOrder : std::uint8_t { Little, Big };

/// Reads a number in the byte order of the file; it needs no alignment.
template <class Scalar>
[[nodiscard]] Scalar readScalar(const char* from, ByteOrder order) {
    std::array<char, sizeof(Scalar)> bytes;
    std::copy_n(from, bytes.size(), bytes.begin());
    if ((order == ByteOrder::Little) != (std::endian::native == std::endian::little)) {
        std::reverse(bytes.begin(), bytes.end());
    }
    return std::bit_cast<Scalar>(bytes);
}

}  // namespace qelview
