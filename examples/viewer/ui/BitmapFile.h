#pragma once

#include <cstdint>
#include <filesystem>

namespace qelview {

/// True if a captured view is complete: a 24-bit bitmap file with the header and the length for this size in
/// pixels.
[[nodiscard]] bool isWholeBitmap(const std::filesystem::path& file, std::uint32_t width,
                                 std::uint32_t height);

}  // namespace qelview
