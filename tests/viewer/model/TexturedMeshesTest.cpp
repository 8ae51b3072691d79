#include <gtest/gtest.h>

#include "MeshNormals.h"

namespace {

using qelview::TriangleMesh;

TEST(TexturedMeshes, KeepTheirCoordinatesWhereVerticesAreSplitForSharpEdges) {
    TriangleMesh roof;
    roof.positions = {{0, 0, 0}, {0, 1, 0}, {1, 0, 1}, {-1, 0, 1}};
    roof.indices = {0, 1, 2, 1, 0, 3};
    roof.texCoords = {{0.0F, 0.0F}, {0.25F, 0.0F}, {0.5F, 0.0F}, {0.75F, 0.0F}};
    qelview::makeNormals(roof);
    ASSERT_EQ(roof.positions.size(), 6U);
    ASSERT_EQ(roof.texCoords.size(), 6U);
    for (std::size_t corner = 0; corner < 6; ++corner) {
        const std::uint32_t vertex = roof.indices[corner];
        const double expected = roof.positions[vertex].y > 0.5    ? 0.25
                                : roof.positions[vertex].x > 0.5  ? 0.5
                                : roof.positions[vertex].x < -0.5 ? 0.75
                                                                  : 0.0;
        EXPECT_EQ(roof.texCoords[vertex].u, static_cast<float>(expected)) << corner;
    }
}

}  // namespace
