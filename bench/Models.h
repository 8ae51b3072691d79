#pragma once

#include <cstdint>
#include <vector>

#include "HostModels.h"

/// What is drawn: made by arithmetic, the same on each machine, within a box two units wide about the origin.

namespace qel::bench {

/// Arrays of a mesh, as the module and as OpenGL take them.
struct MeshData {
    std::vector<ArrayVertex> vertices;
    std::vector<ArrayNormal3b> byteNormals;
    std::vector<ArrayNormal4f> floatNormals;
    std::vector<ArrayColor4f> colors;
    std::vector<ArrayIndex> indices;
};

/// A sphere with bumps, as so many triangles at least, which share their vertices.
[[nodiscard]] MeshData bumpySphere(std::int32_t triangles);

/// The same triangles with three vertices of their own each, without indices.
[[nodiscard]] MeshData unshared(const MeshData& mesh);

/// Points of a spiral through the box; their colours follow their places.
struct CloudData {
    std::vector<ArrayVertex> vertices;
    std::vector<ArrayColor3b> byteColors;
    std::vector<ArrayColor4f> floatColors;
};
[[nodiscard]] CloudData spiralCloud(std::int32_t points);

/// A wave across the box, one of `count`.
[[nodiscard]] std::vector<XPnt3d> wave(std::int32_t index, std::int32_t count, std::int32_t points);

}  // namespace qel::bench
