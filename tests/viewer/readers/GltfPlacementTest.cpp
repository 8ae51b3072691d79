#include "GltfPlacement.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace {

using qelview::GltfPlacement;

GltfPlacement placement(const char* node) {
    return GltfPlacement::ofNode("node 1", nlohmann::json::parse(node));
}

void expectNear(const qel::XPnt3d& point, const qel::XPnt3d& expected) {
    EXPECT_NEAR(point.x, expected.x, 1e-12);
    EXPECT_NEAR(point.y, expected.y, 1e-12);
    EXPECT_NEAR(point.z, expected.z, 1e-12);
}

struct Node {
    const char* name;
    const char* node;
    /// Where the point (1, 2, 3) goes.
    qel::XPnt3d point;
    /// Where the normal (1, 2, 3) points.
    qel::XPnt3d normal;
};

class GltfPlacementPlacementOf : public testing::TestWithParam<Node> {};

TEST_P(GltfPlacementPlacementOf, MovesPointsAndTurnsNormals) {
    const GltfPlacement placed = placement(GetParam().node);
    expectNear(placed.point({1, 2, 3}), GetParam().point);
    qel::XPnt3d normal = placed.normal({1, 2, 3});
    qel::XPnt3d expected = GetParam().normal;
    expectNear(normal.normalize(), expected.normalize());
}

// Rotations are turns to the left, of 90 degrees but for the one about the diagonal.
const std::vector<Node> kNodes{
    {"Nothing", "{}", {1, 2, 3}, {1, 2, 3}},
    {"Translation", R"({"translation": [10, 20, 30]})", {11, 22, 33}, {1, 2, 3}},
    {"Scale", R"({"scale": [2, 4, 8]})", {2, 8, 24}, {0.5, 0.5, 0.375}},
    {"Mirror", R"({"scale": [1, 1, -1]})", {1, 2, -3}, {1, 2, -3}},
    {"TurnAboutX", R"({"rotation": [1, 0, 0, 1]})", {1, -3, 2}, {1, -3, 2}},
    {"TurnAboutY", R"({"rotation": [0, 1, 0, 1]})", {3, 2, -1}, {3, 2, -1}},
    {"TurnAboutZ", R"({"rotation": [0, 0, 1, 1]})", {-2, 1, 3}, {-2, 1, 3}},
    {"TurnAboutTheDiagonal", R"({"rotation": [0.5, 0.5, 0.5, 0.5]})", {3, 1, 2}, {3, 1, 2}},
    {"RotationOfNoLength", R"({"rotation": [0, 0, 0, 0]})", {1, 2, 3}, {1, 2, 3}},
    {"ScaleBeforeTurnBeforeTranslation",
     R"({"scale": [2, 1, 1], "rotation": [0, 0, 1, 1], "translation": [0, 0, 9]})",
     {-2, 2, 12},
     {-2, 0.5, 3}},
    {"Matrix",
     R"({"matrix": [0, 2, 0, 0, 0, 0, 4, 0, 8, 0, 0, 0, 10, 20, 30, 1], "scale": [9, 9, 9]})",
     {34, 22, 38},
     {0.375, 0.5, 0.5}},
};
INSTANTIATE_TEST_SUITE_P(Nodes, GltfPlacementPlacementOf, testing::ValuesIn(kNodes),
                         [](const auto& each) { return each.param.name; });

TEST(GltfPlacement, AppliesTheInnerOneFirst) {
    const GltfPlacement outer = placement(R"({"scale": [2, 2, 2], "translation": [1, 0, 0]})");
    const GltfPlacement inner = placement(R"({"rotation": [0, 0, 1, 1], "translation": [0, 5, 0]})");
    expectNear((outer * inner).point({1, 2, 3}), outer.point(inner.point({1, 2, 3})));
    expectNear((outer * inner).point({1, 2, 3}), {-3, 12, 6});
}

}  // namespace
