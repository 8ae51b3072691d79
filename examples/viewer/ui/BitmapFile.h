#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

#include "PngFile.h"

namespace qelview {

/// Reads a captured view: an uncompressed bitmap of 24 bits. Its rows begin at multiples of four bytes; of
/// widths that are no multiple of four pixels the end of the last rows may be missing and is black.
/// @return nothing if the file is not such a bitmap.
[[nodiscard]] std::optional<PixelImage> readBitmap(const std::filesystem::path& file);

/// True if a captured view is complete: a bitmap file of 24 bits with the header and the length that belong
/// to this size in pixels.
[[nodiscard]] bool isWholeBitmap(const std::filesystem::path& file, std::uint32_t width,
                                 std::uint32_t height);

}  // namespace qelview
