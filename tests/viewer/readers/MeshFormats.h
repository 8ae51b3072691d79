#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "ReadFormats.h"
#include "viewer/ViewerData.h"

namespace qel::test {

/// The formats of meshes, by their readers.
using Reader = qelview::Scene (*)(std::string_view, const qelview::ProgressStretch&);

inline qelview::Scene readObjNowhere(std::string_view bytes, const qelview::ProgressStretch& progress) {
    return qelview::readObj(bytes, "nowhere/model.obj", progress);
}

inline qelview::Scene readPlyNowhere(std::string_view bytes, const qelview::ProgressStretch& progress) {
    return qelview::readPly(bytes, "nowhere/model.ply", progress);
}

inline qelview::Scene sceneOf(Reader reader, const std::string& content) {
    qelview::Progress progress;
    return reader(content, qelview::ProgressStretch(progress, 0.0, 1.0));
}

inline std::string refusal(Reader reader, const std::string& content) {
    return refusalOf([&] { return sceneOf(reader, content); });
}

inline constexpr Reader kObj = readObjNowhere;
inline constexpr Reader kPly = readPlyNowhere;
inline constexpr Reader kStl = qelview::readStl;
inline constexpr Reader kOff = qelview::readOff;

using Corners = std::vector<std::uint32_t>;

inline void expectPoint(const qel::XPnt3d& point, double x, double y, double z) {
    EXPECT_EQ(point.x, x);
    EXPECT_EQ(point.y, y);
    EXPECT_EQ(point.z, z);
}

}  // namespace qel::test

/// Beginnings of files.
#define PLY_HEAD \
    "ply\nformat ascii 1.0\nelement vertex 2\nproperty float x\nproperty float y\nproperty float z\n"
#define PLY_FACE "element face 1\nproperty list uchar int vertex_indices\n"
#define OBJ_TRIANGLE "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n"
#define STL_TRIANGLE \
    "facet normal 0 0 1\nouter loop\nvertex 0 0 0\nvertex 1 0 0\nvertex 0 1 0\nendloop\nendfacet\n"
