#pragma once

#include <cstdint>

namespace qel::bench {

/// What an operation is, which decides how much it may cost.
enum class Kind : std::uint8_t {
    Mesh,
    Cloud,
    Polyline,
    Polygon,
    Ball,
    Marker,
    Text,
    FrameBracket,
    CameraLoad,
    PlanarLoad,
    Capture,
    Projection,
    Drag,
    Fit,
    Arithmetic,
    Gdi,
    FrameOfMesh,
    FrameOfCloud,
    FrameOfPolylines,
    Growth,
    SceneInParts,
    SceneInView,
    Start,
};

/// What is allowed; 0 where nothing is promised.
struct Bound {
    /// Time of the module's call over that of the bare calls.
    double ratio = 0.0;
    /// The module's own time for one unit with OpenGL replaced by empty functions, in nanoseconds.
    double ownNanoseconds = 0.0;
};

[[nodiscard]] Bound boundOf(Kind kind);

/// Memory of an attached display, without OpenGL's own.
inline constexpr double kBytesOfAPixel = 24.0;
inline constexpr double kBytesOfADisplay = 64.0 * 1024.0;

}  // namespace qel::bench
