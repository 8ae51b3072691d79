#include "PlyVertices.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <string>
#include <vector>

namespace {

using qelview::PlyMeaning;
using qelview::PlyUse;
using qelview::PlyVertices;
using qelview::ScalarType;

qelview::PlyElement vertexElement(const std::vector<std::string>& names) {
    qelview::PlyElement element;
    element.name = "vertex";
    element.count = 4;
    for (const std::string& name : names) {
        qelview::PlyProperty& property = element.properties.emplace_back();
        property.name = name;
        property.type = ScalarType::Float32;
    }
    return element;
}

/// Two values for the second and the third of four vertices.
void setMiddle(PlyVertices& vertices, PlyUse use, std::size_t axis, ScalarType type,
               const std::array<double, 2>& values) {
    EXPECT_EQ(vertices.setColumn({use, axis}, type, 1, values), 2U);
}

TEST(PlyVertices, TakeColumnsFromAnyVertexOn) {
    PlyVertices vertices(vertexElement({"x", "y", "z", "nx", "ny", "nz", "red", "green", "blue"}), 4, true,
                         false);
    setMiddle(vertices, PlyUse::Position, 0, ScalarType::Float32, {1, 2});
    setMiddle(vertices, PlyUse::Position, 1, ScalarType::Float32, {3, 4});
    setMiddle(vertices, PlyUse::Position, 2, ScalarType::Float32, {5, 6});
    setMiddle(vertices, PlyUse::Normal, 1, ScalarType::Float32, {2, -3});
    setMiddle(vertices, PlyUse::Color, 2, ScalarType::Uint8, {255, 51});
    setMiddle(vertices, PlyUse::Color, 0, ScalarType::Float32, {0.5, 7});
    const qelview::TriangleMesh mesh = vertices.takeMesh();
    ASSERT_EQ(mesh.positions.size(), 4U);
    EXPECT_EQ(qel::dist(mesh.positions[0], {0, 0, 0}), 0.0);
    EXPECT_EQ(qel::dist(mesh.positions[1], {1, 3, 5}), 0.0);
    EXPECT_EQ(qel::dist(mesh.positions[2], {2, 4, 6}), 0.0);
    EXPECT_EQ(qel::dist(mesh.positions[3], {0, 0, 0}), 0.0);
    ASSERT_EQ(mesh.normals.size(), 4U);
    EXPECT_EQ(mesh.normals[0].z, 1.0F);
    EXPECT_EQ(mesh.normals[1].y, 1.0F);
    EXPECT_EQ(mesh.normals[2].y, -1.0F);
    ASSERT_EQ(mesh.colors.size(), 4U);
    EXPECT_EQ(mesh.colors[1].b, 1.0F);
    EXPECT_EQ(mesh.colors[2].b, 0.2F);
    EXPECT_EQ(mesh.colors[1].r, 0.5F);
    EXPECT_EQ(mesh.colors[2].r, 1.0F);
    EXPECT_EQ(mesh.colors[3].b, 0.0F);
}

TEST(PlyVertices, OfTexturesHaveCoordinatesAndNoColours) {
    PlyVertices vertices(vertexElement({"x", "y", "z", "s", "t", "red", "green", "blue"}), 4, true, true);
    setMiddle(vertices, PlyUse::TexCoord, 0, ScalarType::Float32, {0.25, 0.5});
    setMiddle(vertices, PlyUse::TexCoord, 1, ScalarType::Float32, {0.25, 1.0});
    const qelview::TriangleMesh mesh = vertices.takeMesh();
    EXPECT_TRUE(mesh.colors.empty());
    EXPECT_TRUE(mesh.normals.empty());
    ASSERT_EQ(mesh.texCoords.size(), 4U);
    EXPECT_EQ(mesh.texCoords[1].u, 0.25F);
    EXPECT_EQ(mesh.texCoords[2].u, 0.5F);
    // Files count from the lower edge of the image, meshes from the upper one.
    EXPECT_EQ(mesh.texCoords[1].v, 0.75F);
    EXPECT_EQ(mesh.texCoords[2].v, 0.0F);
}

TEST(PlyVertices, StopAtTheFirstCoordinateThatCannotBeDrawn) {
    PlyVertices vertices(vertexElement({"x", "y", "z"}), 4, true, false);
    const std::array<double, 4> values{1, -1e15, 1.1e15, 2};
    EXPECT_EQ(vertices.setColumn({PlyUse::Position, 0}, ScalarType::Float64, 0, values), 2U);
    const std::array<double, 2> none{std::numeric_limits<double>::quiet_NaN(), 1};
    EXPECT_EQ(vertices.setColumn({PlyUse::Position, 0}, ScalarType::Float64, 0, none), 0U);
}

TEST(PlyVertices, OfCloudsKeepBytesOfColoursAlone) {
    PlyVertices vertices(vertexElement({"x", "y", "z", "nx", "ny", "nz", "red"}), 4, false, false);
    setMiddle(vertices, PlyUse::Color, 0, ScalarType::Uint16, {65535, 257});
    const qelview::PointCloud cloud = vertices.takeCloud();
    EXPECT_EQ(cloud.positions.size(), 4U);
    ASSERT_EQ(cloud.colors.size(), 4U);
    EXPECT_EQ(cloud.colors[0].r, 0);
    EXPECT_EQ(cloud.colors[1].r, 255);
    EXPECT_EQ(cloud.colors[2].r, 1);
    EXPECT_EQ(cloud.colors[2].g, 0);
}

}  // namespace
