#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

#include "PngFile.h"

namespace qelview {

/// Reads a captured view: an uncompressed 24-bit bitmap. Its rows are padded to multiples of four bytes; if
/// the width is not a multiple of four pixels, the end of the last rows may be missing and is black.
/// @return nothing if the file is not such a bitmap.
[[nodiscard]] std::optional<PixelImage> readBitmap(const std::filesystem::path& file);

/// True if a captured view is complete: a 24-bit bitmap file with the header and the length for this size in
/// pixels.
[[nodiscard]] bool isWholeBitmap(const std::filesystem::path& file, std::uint32_t width,
                                 std::uint32_t height);

}  // namespace qelview
