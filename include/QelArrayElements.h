#pragma once

#include <cstdint>

/// Elements of the arrays that meshes and point clouds are drawn from. OpenGL reads them from the host's
/// memory, with their sizes as strides.

namespace qel {

/// A vertex: the position in model units, then four floats for the host.
struct ArrayVertex {
    /// @{
    /// The position in model units.
    float x;
    float y;
    float z;
    /// @}
    /// For the host; not read.
    float own[4];
};
static_assert(sizeof(ArrayVertex) == 28);

/// A normal of three signed bytes (for `IQelSymbol::drawMesh`).
struct ArrayNormal3b {
    /// @{
    /// The unit normal, each component times 127.
    std::int8_t x;
    std::int8_t y;
    std::int8_t z;
    /// @}
};
static_assert(sizeof(ArrayNormal3b) == 3);

/// A normal of three floats and one float for the host (for `IQelSymbol::drawIndexedMesh`).
struct ArrayNormal4f {
    /// @{
    /// The direction, of unit length.
    float x;
    float y;
    float z;
    /// @}
    /// For the host; not read.
    float own;
};
static_assert(sizeof(ArrayNormal4f) == 16);

/// A colour of three bytes. OpenGL reads them as signed: 127 is full intensity, negative values are 0.
struct ArrayColor3b {
    /// @{
    /// The components, each from 0 to 127.
    std::int8_t r;
    std::int8_t g;
    std::int8_t b;
    /// @}
};
static_assert(sizeof(ArrayColor3b) == 3);

/// A colour of three floats from 0 to 1 and one float for the host.
struct ArrayColor4f {
    /// @{
    /// The components, each from 0 to 1.
    float r;
    float g;
    float b;
    /// @}
    /// For the host; not read.
    float own;
};
static_assert(sizeof(ArrayColor4f) == 16);

/// A texture coordinate.
struct ArrayTexCoord2f {
    /// @{
    /// The coordinates; 0 to 1 spans the texture.
    float u;
    float v;
    /// @}
};
static_assert(sizeof(ArrayTexCoord2f) == 8);

/// An index into the vertices.
using ArrayIndex = std::uint32_t;

}  // namespace qel
