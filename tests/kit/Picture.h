#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

#include "GlSurface.h"

namespace qel::test {

/// A rectangle of pixels, origin lower left.
struct PixelArea {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    bool operator==(const PixelArea&) const = default;
};

/// A picture with 8 bits each of red, green, blue and alpha. The rows lie bottom to top, as OpenGL has them;
/// files have them top to bottom.
class Picture {
  public:
    Picture() = default;
    Picture(int width, int height, const Rgba& colour = {0, 0, 0, 255});

    /// The part of the current context's frame that lies under the current viewport, taken from the back
    /// buffer (from the front buffer of a context without one). Leaves OpenGL's state as it was and no mark
    /// in a trace.
    static Picture ofFrame();

    /// The same with area and buffer (GL_BACK, GL_FRONT) chosen.
    static Picture ofFrame(const PixelArea& area, unsigned buffer);

    /// Reads a PNG file. Throws std::runtime_error with the path if it cannot be read.
    static Picture load(const std::filesystem::path& file);

    /// Writes a PNG file; makes the folders above it. Throws std::runtime_error with the path.
    void save(const std::filesystem::path& file) const;

    int width() const { return columns; }
    int height() const { return rows; }
    PixelArea area() const { return {0, 0, columns, rows}; }

    Rgba at(int x, int y) const;
    void set(int x, int y, const Rgba& colour);

    /// How many pixels of the area differ in no channel by more than `tolerance` from the colour. Alpha
    /// counts like the others.
    std::size_t countOf(const Rgba& colour, int tolerance, const PixelArea& where) const;
    std::size_t countOf(const Rgba& colour, int tolerance = 0) const;

    /// How many pixels do differ by more.
    std::size_t countOtherThan(const Rgba& background, int tolerance = 0) const;

    /// The smallest area that holds every pixel that is not background, or nothing if all is.
    std::optional<PixelArea> boundsOtherThan(const Rgba& background, int tolerance = 0) const;

    /// The smallest area that holds every pixel of the colour.
    std::optional<PixelArea> boundsOf(const Rgba& colour, int tolerance = 0) const;

    bool operator==(const Picture&) const = default;

  private:
    std::size_t offset(int x, int y) const;

    int columns = 0;
    int rows = 0;
    std::vector<std::uint8_t> bytes;
};

/// The largest difference of two colours in one channel.
int difference(const Rgba& one, const Rgba& other);

/// How two pictures of one size differ.
struct PictureDifference {
    std::size_t pixels = 0;  ///< number of pixels that differ by more than the tolerance of a channel
    double share = 0;        ///< their share of all pixels
    int largest = 0;         ///< largest difference of a channel
};

/// Compares two pictures of one size.
PictureDifference compare(const Picture& expected, const Picture& actual, int channelTolerance = 0);

}  // namespace qel::test
