#pragma once

#include <cstdint>

/// Elements of the arrays that meshes and point clouds are drawn from. OpenGL reads them straight from the
/// host's memory with these sizes as strides.

namespace qel {

/// A vertex: the position in model units, then four floats that belong to the host.
struct ArrayVertex {
    /// @{
    /// The position in model units.
    float x;
    float y;
    float z;
    /// @}
    /// The host's own; not read.
    float own[4];
};
static_assert(sizeof(ArrayVertex) == 28);

/// A normal of three signed bytes, 127 standing for 1 (for `IQelSymbol::drawMesh`).
struct ArrayNormal3b {
    /// @{
    /// The direction, each component 127 times that of the unit normal.
    std::int8_t x;
    std::int8_t y;
    std::int8_t z;
    /// @}
};
static_assert(sizeof(ArrayNormal3b) == 3);

/// A normal of three floats and one that belongs to the host (for `IQelSymbol::drawIndexedMesh`).
struct ArrayNormal4f {
    /// @{
    /// The direction, of unit length.
    float x;
    float y;
    float z;
    /// @}
    /// The host's own; not read.
    float own;
};
static_assert(sizeof(ArrayNormal4f) == 16);

/// A colour of three bytes. OpenGL reads them as signed: 127 is full intensity, and 128 and above count as
/// none.
struct ArrayColor3b {
    /// @{
    /// The components, each from 0 to 127.
    std::int8_t r;
    std::int8_t g;
    std::int8_t b;
    /// @}
};
static_assert(sizeof(ArrayColor3b) == 3);

/// A colour of three floats from 0 to 1 and one that belongs to the host.
struct ArrayColor4f {
    /// @{
    /// The components, each from 0 to 1.
    float r;
    float g;
    float b;
    /// @}
    /// The host's own; not read.
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
