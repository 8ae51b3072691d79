#pragma once

#include <gtest/gtest.h>

#include <cstddef>

#include "SceneParts.h"
#include "viewer/ImageBytes.h"
#include "viewer/ViewerData.h"

namespace qel::test {

inline void expectCoord(const qelview::TriangleMesh& mesh, std::size_t vertex, double u, double v) {
    ASSERT_GT(mesh.texCoords.size(), vertex);
    EXPECT_NEAR(mesh.texCoords[vertex].u, u, 1e-6) << vertex;
    EXPECT_NEAR(mesh.texCoords[vertex].v, v, 1e-6) << vertex;
}

}  // namespace qel::test
