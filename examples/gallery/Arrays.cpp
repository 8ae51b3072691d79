#include <array>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

#include "Pictures.h"
#include "QelGl.h"
#include "QelHostKit.h"

/// Drawing from arrays of a host; their class is that of the host kit.

namespace gallery {

namespace {

using qel::HostArray;

constexpr int kSide = 41;

double heightAt(double x, double y) {
    const double far = std::sqrt(x * x + y * y) + 0.001;
    return 6.0 * std::sin(far) / far + 1.0;
}

/// A grid of kSide x kSide places over -9 to 9.
template <class Function>
void forEachPlace(const Function& function) {
    for (int row = 0; row < kSide; ++row) {
        for (int column = 0; column < kSide; ++column) {
            function(-9.0 + 18.0 * column / (kSide - 1), -9.0 + 18.0 * row / (kSide - 1));
        }
    }
}

qel::ref_ptr<IQelArray<qel::ArrayVertex>> hillVertices() {
    std::vector<qel::ArrayVertex> vertices;
    forEachPlace([&](double x, double y) {
        vertices.push_back(
            {static_cast<float>(x), static_cast<float>(y), static_cast<float>(heightAt(x, y)), {}});
    });
    return new HostArray<qel::ArrayVertex>(std::move(vertices));
}

qel::ref_ptr<IQelArray<qel::ArrayIndex>> hillTriangles() {
    std::vector<qel::ArrayIndex> indices;
    for (std::uint32_t row = 0; row + 1 < kSide; ++row) {
        for (std::uint32_t column = 0; column + 1 < kSide; ++column) {
            const std::uint32_t here = row * kSide + column;
            indices.insert(indices.end(),
                           {here, here + 1, here + kSide, here + 1, here + kSide + 1, here + kSide});
        }
    }
    return new HostArray<qel::ArrayIndex>(std::move(indices));
}

qel::ref_ptr<IQelArray<qel::ArrayNormal4f>> hillNormals() {
    std::vector<qel::ArrayNormal4f> normals;
    forEachPlace([&](double x, double y) {
        constexpr double kStep = 0.01;
        qel::XPnt3d normal((heightAt(x - kStep, y) - heightAt(x + kStep, y)) / (2.0 * kStep),
                           (heightAt(x, y - kStep) - heightAt(x, y + kStep)) / (2.0 * kStep), 1.0);
        normal.normalize();
        normals.push_back(
            {static_cast<float>(normal.x), static_cast<float>(normal.y), static_cast<float>(normal.z), 0.0F});
    });
    return new HostArray<qel::ArrayNormal4f>(std::move(normals));
}

/// From deep blue to yellow.
qel::ref_ptr<IQelArray<qel::ArrayColor4f>> hillColors() {
    std::vector<qel::ArrayColor4f> colors;
    forEachPlace([&](double x, double y) {
        const float share = static_cast<float>((heightAt(x, y) + 0.5) / 7.5);
        colors.push_back({0.15F + 0.85F * share, 0.3F + 0.55F * share, 0.7F - 0.4F * share, 1.0F});
    });
    return new HostArray<qel::ArrayColor4f>(std::move(colors));
}

qel::ref_ptr<IQelArray<qel::ArrayTexCoord2f>> hillTexCoords() {
    std::vector<qel::ArrayTexCoord2f> coordinates;
    forEachPlace([&](double x, double y) {
        coordinates.push_back({static_cast<float>(x / 4.5), static_cast<float>(y / 4.5)});
    });
    return new HostArray<qel::ArrayTexCoord2f>(std::move(coordinates));
}

/// A chessboard of two shades, in the context that is current.
std::uint32_t makeTexture() {
    constexpr std::size_t kTexels = 8;
    std::array<std::uint8_t, kTexels * kTexels * 3> texels{};
    for (std::size_t index = 0; index < texels.size(); ++index) {
        const std::size_t texel = index / 3;
        texels.at(index) = ((texel % kTexels) / 4 + texel / kTexels / 4) % 2 == 0 ? 235 : 120;
    }
    GLuint texture = 0;
    glGenTextures(1, &texture);
    glBindTexture(GL_TEXTURE_2D, texture);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGB, GLsizei{kTexels}, GLsizei{kTexels}, 0, GL_RGB, GL_UNSIGNED_BYTE,
                 texels.data());
    return texture;
}

void drawVertexArrayPoints(Easel& easel) {
    std::vector<float> memory;  // three floats to a point, nothing between them
    forEachPlace([&](double x, double y) {
        memory.insert(memory.end(),
                      {static_cast<float>(x), static_cast<float>(y), static_cast<float>(heightAt(x, y))});
    });
    easel.symbol.drawVertexArrayPoints(GL_FLOAT, 3 * sizeof(float), memory.data(), kSide * kSide, {}, {},
                                       2.0F, {0.5F, 0.8F, 1.0F});
}

void drawPointCloud(Easel& easel) {
    std::vector<qel::ArrayColor3b> colors;
    forEachPlace([&](double x, double y) {
        // Signed bytes: 127 is full intensity.
        const auto share = static_cast<std::int8_t>(17.0 * (heightAt(x, y) + 0.4));
        colors.push_back({share, 90, static_cast<std::int8_t>(127 - share)});
    });
    easel.symbol.drawPointCloud(hillVertices(), {}, new HostArray<qel::ArrayColor3b>(std::move(colors)), 3.0F,
                                {});
}

void drawPointCloudF(Easel& easel) {
    easel.symbol.drawPointCloudF(hillVertices(), {}, hillColors(), 3.0F, {});
}

void drawMesh(Easel& easel) {
    // Without indices each three vertices are a triangle; normals are signed bytes.
    const qel::ref_ptr<IQelArray<qel::ArrayVertex>> roof(new HostArray<qel::ArrayVertex>({{8, 0, 0, {}},
                                                                                          {0, 8, 0, {}},
                                                                                          {0, 0, 7, {}},
                                                                                          {0, 8, 0, {}},
                                                                                          {-8, 0, 0, {}},
                                                                                          {0, 0, 7, {}},
                                                                                          {-8, 0, 0, {}},
                                                                                          {0, -8, 0, {}},
                                                                                          {0, 0, 7, {}},
                                                                                          {0, -8, 0, {}},
                                                                                          {8, 0, 0, {}},
                                                                                          {0, 0, 7, {}}}));
    const qel::ref_ptr<IQelArray<qel::ArrayNormal3b>> normals(
        new HostArray<qel::ArrayNormal3b>({{70, 70, 80},
                                           {70, 70, 80},
                                           {70, 70, 80},
                                           {-70, 70, 80},
                                           {-70, 70, 80},
                                           {-70, 70, 80},
                                           {-70, -70, 80},
                                           {-70, -70, 80},
                                           {-70, -70, 80},
                                           {70, -70, 80},
                                           {70, -70, 80},
                                           {70, -70, 80}}));
    glColor3f(1.0F, 0.8F, 0.5F);
    easel.symbol.drawMesh(roof, {}, normals, {}, {}, 0, GL_FLAT, GL_FILL, GL_FILL, {});
}

void drawIndexedMesh(Easel& easel) {
    glColor3f(0.9F, 0.9F, 0.9F);  // of a mesh without colours of its own
    easel.symbol.drawIndexedMesh(hillVertices(), hillTriangles(), hillNormals(), {}, {}, 0, GL_SMOOTH,
                                 GL_FILL, GL_FILL, {});
}

void meshColors(Easel& easel) {
    const qel::MeshStyle unlit{false, true, 1.0F};
    easel.symbol.drawIndexedMesh(hillVertices(), hillTriangles(), {}, hillColors(), {}, 0, GL_SMOOTH, GL_FILL,
                                 GL_FILL, unlit);
}

void meshWires(Easel& easel) {
    const qel::MeshStyle unlit{false, true, 1.0F};
    easel.symbol.drawIndexedMesh(hillVertices(), hillTriangles(), {}, hillColors(), {}, 0, GL_SMOOTH, GL_LINE,
                                 GL_LINE, unlit);
}

void meshTexture(Easel& easel) {
    const std::uint32_t texture = makeTexture();
    glColor3f(1.0F, 1.0F, 1.0F);
    easel.symbol.drawIndexedMesh(hillVertices(), hillTriangles(), hillNormals(), {}, hillTexCoords(), texture,
                                 GL_SMOOTH, GL_FILL, GL_FILL, {});
}

void drawStippledPolyline(Easel& easel) {
    const qel::ref_ptr<IQelArray<qel::XPnt3d>> path(
        new HostArray<qel::XPnt3d>({{-8, -6, 0}, {-3, 6, 3}, {3, -6, 3}, {8, 6, 0}}));
    glEnable(GL_LINE_STIPPLE);  // without it the line is whole
    easel.symbol.drawStippledPolyline(path, 2.0, {1.0F, 0.85F, 0.35F}, false, true, 0x0F0F);
    glDisable(GL_LINE_STIPPLE);
}

void drawStippledLoop(Easel& easel) {
    const qel::ref_ptr<IQelArray<qel::XPnt3d>> border(
        new HostArray<qel::XPnt3d>({{-8, -6, 0}, {8, -6, 3}, {8, 6, 0}, {-8, 6, 3}}));
    glEnable(GL_LINE_STIPPLE);
    easel.symbol.drawStippledLoop(border, 2.0, {0.45F, 0.85F, 0.5F}, false, true, 0x3F3F);
    glDisable(GL_LINE_STIPPLE);
}

constexpr Picture kPictures[] = {
    {"drawVertexArrayPoints", "Points from memory of the host's: every type and stride that OpenGL takes.",
     &drawVertexArrayPoints},
    {"drawPointCloud", "A cloud with colours of signed bytes.", &drawPointCloud},
    {"drawPointCloudF", "A cloud with colours of floats.", &drawPointCloudF},
    {"drawMesh", "A mesh without indices, flat, with normals of bytes.", &drawMesh},
    {"drawIndexedMesh", "A lit mesh; the light from the eye is bluish.", &drawIndexedMesh},
    {"meshColors", "A mesh with a colour a vertex, not lit.", &meshColors},
    {"meshWires", "The same as lines (polygon mode GL_LINE).", &meshWires},
    {"meshTexture", "A lit mesh with a texture.", &meshTexture},
    {"drawStippledPolyline", "A line strip with a pattern.", &drawStippledPolyline},
    {"drawStippledLoop", "The same, closed.", &drawStippledLoop},
};

}  // namespace

Pictures arrays() {
    return kPictures;
}

}  // namespace gallery
