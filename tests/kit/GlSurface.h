#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace qel::test {

/// Red, green, blue and alpha, 0 to 255.
using Rgba = std::array<std::uint8_t, 4>;
inline constexpr Rgba kBlack{0, 0, 0, 255};
inline constexpr Rgba kWhite{255, 255, 255, 255};
inline constexpr Rgba kRed{255, 0, 0, 255};
inline constexpr Rgba kGreen{0, 255, 0, 255};
inline constexpr Rgba kBlue{0, 0, 255, 255};

/// A current OpenGL context with a known size: under Windows in a hidden window of its own (double-buffered,
/// at least 24 bits of colour and of depth), natively in a buffer of OSMesa (24 bits of depth,
/// single-buffered). Starts current, with the viewport over the whole surface, cleared to black and depth 1.
/// What was current before is current again when it goes. None of its own OpenGL calls appear in a CallTrace.
class GlSurface {
  public:
    explicit GlSurface(int width = 256, int height = 256);
    ~GlSurface();
    GlSurface(const GlSurface&) = delete;
    GlSurface& operator=(const GlSurface&) = delete;

    /// In pixels.
    int width() const { return pixelWidth; }
    int height() const { return pixelHeight; }

    /// Makes this context the current one.
    void makeCurrent();

    /// Gives the surface another size, sets the viewport over the whole of it and clears it. The context and
    /// its state stay.
    void resize(int width, int height);

    /// Clears colour to the given one and depth to 1, over the whole surface. Leaves the clear values as they
    /// were.
    void clear(const Rgba& colour = kBlack);

    /// The colour drawn at a pixel of the draw buffer, origin lower left.
    Rgba pixel(int x, int y) const;

    /// The depth there, 0 to 1.
    float depth(int x, int y) const;

    /// Native handles as numbers: window (HWND), device context (HDC) and rendering context (HGLRC). Zero
    /// natively.
    std::uintptr_t hwnd() const;
    std::uintptr_t dc() const;
    std::uintptr_t rc() const;

  private:
    struct Native;
    void startOver();

    int pixelWidth;
    int pixelHeight;
    std::unique_ptr<Native> native;
};

}  // namespace qel::test
