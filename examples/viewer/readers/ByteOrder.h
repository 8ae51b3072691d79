#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <string>

namespace qelview {

enum class ByteOrder : std::uint8_t { Little, Big };

/// A number from anywhere in memory, in the byte order of the file.
template <class Scalar>
[[nodiscard]] Scalar readScalar(const char* from, ByteOrder order) {
    std::array<char, sizeof(Scalar)> bytes;
    std::copy_n(from, bytes.size(), bytes.begin());
    if ((order == ByteOrder::Little) != (std::endian::native == std::endian::little)) {
        std::reverse(bytes.begin(), bytes.end());
    }
    return std::bit_cast<Scalar>(bytes);
}

template <class Scalar>
void appendScalar(std::string& bytes, Scalar value, ByteOrder order) {
    auto scalar = std::bit_cast<std::array<char, sizeof(Scalar)>>(value);
    if ((order == ByteOrder::Little) != (std::endian::native == std::endian::little)) {
        std::reverse(scalar.begin(), scalar.end());
    }
    bytes.append(scalar.data(), scalar.size());
}

}  // namespace qelview
