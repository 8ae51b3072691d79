#pragma once

#include <filesystem>
#include <optional>

#include "PictureFile.h"

namespace qel::test {

/// Reads a captured view: an uncompressed 24-bit bitmap. Its rows are padded to multiples of four bytes; if
/// the width is not a multiple of four pixels, the end of the last rows may be missing and is black.
/// @return nothing if the file is not such a bitmap.
[[nodiscard]] std::optional<qelview::PixelImage> readBitmap(const std::filesystem::path& file);

}  // namespace qel::test
