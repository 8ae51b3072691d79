#include "ArrayView.h"
#include "CQelSimpSymbol.h"
#include "ClientArrays.h"
#include "QelGl.h"
#include "QelStatus.h"
#include "QelTmpGlStateCtrl.h"

namespace {

struct MeshArrays {
    ArrayView vertices;
    ArrayView indices;
    ArrayView normals;
    ArrayView colors;
    ArrayView texCoords;
    std::uint32_t normalType;
    bool drawsWithoutIndices;

    [[nodiscard]] bool isDrawable() const {
        return vertices.holdsElements() && areIndicesTriangles() && normals.isAbsentOrMatches(vertices) &&
               colors.isAbsentOrMatches(vertices) && texCoords.isAbsentOrMatches(vertices);
    }

  private:
    [[nodiscard]] bool areIndicesTriangles() const {
        // An index array without indices is a mesh without triangles; one with a count needs memory.
        return !indices.given || indices.count == 0 || (indices.holdsElements() && indices.count % 3 == 0);
    }
};

struct MeshLook {
    std::uint32_t texture;
    std::uint32_t shadeModel;
    std::uint32_t frontMode;
    std::uint32_t backMode;
};

/// The OpenGL capabilities and sizes of a mesh for as long as it is drawn. Texturing starts disabled.
struct MeshGuards {
    explicit MeshGuards(const qel::MeshStyle& style)
        : lighting(GL_LIGHTING, style.lighting),
          depthTest(GL_DEPTH_TEST, style.depthTest),
          lineWidth(GL_LINE_WIDTH, style.width),
          pointSize(GL_POINT_SIZE, style.width),
          texture(GL_TEXTURE_2D, false) {}

    QelTmpGlStateCtrl lighting;
    QelTmpGlStateCtrl depthTest;
    QelTmpGlStateCtrl lineWidth;
    QelTmpGlStateCtrl pointSize;
    QelTmpGlStateCtrl texture;
};

/// Shade model and polygon modes for as long as a mesh is drawn.
class SurfaceModes {
  public:
    explicit SurfaceModes(const MeshLook& look) {
        glGetIntegerv(GL_SHADE_MODEL, &savedShadeModel);
        glShadeModel(look.shadeModel);
        glGetIntegerv(GL_POLYGON_MODE, savedModes);
        glPolygonMode(GL_FRONT, look.frontMode);
        glPolygonMode(GL_BACK, look.backMode);
    }
    ~SurfaceModes() {
        glShadeModel(static_cast<GLenum>(savedShadeModel));
        glPolygonMode(GL_FRONT, static_cast<GLenum>(savedModes[0]));
        glPolygonMode(GL_BACK, static_cast<GLenum>(savedModes[1]));
    }
    SurfaceModes(const SurfaceModes&) = delete;
    SurfaceModes& operator=(const SurfaceModes&) = delete;

  private:
    GLint savedShadeModel = GL_SMOOTH;
    GLint savedModes[2] = {GL_FILL, GL_FILL};
};

bool isTextured(const MeshArrays& mesh, std::uint32_t texture) {
    return glIsTexture(texture) != GL_FALSE && mesh.texCoords.given;
}

void applyTexture(const MeshArrays& mesh, std::uint32_t texture) {
    glEnable(GL_TEXTURE_2D);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glTexCoordPointer(2, GL_FLOAT, mesh.texCoords.stride, mesh.texCoords.data);
    glBindTexture(GL_TEXTURE_2D, texture);
}

void drawTriangles(const MeshArrays& mesh) {
    if (mesh.indices.given) {
        glDrawElements(GL_TRIANGLES, mesh.indices.count, GL_UNSIGNED_INT, mesh.indices.data);
    } else if (mesh.drawsWithoutIndices) {
        glDrawArrays(GL_TRIANGLES, 0, mesh.vertices.count);
    }
}

void drawFromArrays(const MeshArrays& mesh, std::uint32_t texture) {
    {
        ClientArrays arrays(GL_FLOAT, mesh.vertices.stride, mesh.vertices.data);
        if (mesh.normals.given) {
            arrays.addNormals(mesh.normalType, mesh.normals.stride, mesh.normals.data);
        }
        if (mesh.colors.given) {
            arrays.addColors(GL_FLOAT, mesh.colors.stride, mesh.colors.data);
        }
        if (isTextured(mesh, texture)) {
            applyTexture(mesh, texture);
        }
        drawTriangles(mesh);
    }
    if (isTextured(mesh, texture)) {
        glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    }
}

std::int32_t drawValidated(const MeshArrays& mesh, const MeshLook& look, const qel::MeshStyle& style) {
    if (!mesh.isDrawable()) {
        return qel::kRefused;
    }
    const MeshGuards guards(style);
    const SurfaceModes modes(look);
    drawFromArrays(mesh, look.texture);
    return 0;
}

}  // namespace

std::int32_t CQelSimpSymbol::drawMesh(
    qel::ref_ptr<IQelArray<qel::ArrayVertex>> vertices, qel::ref_ptr<IQelArray<qel::ArrayIndex>> indices,
    qel::ref_ptr<IQelArray<qel::ArrayNormal3b>> normals, qel::ref_ptr<IQelArray<qel::ArrayColor4f>> colors,
    qel::ref_ptr<IQelArray<qel::ArrayTexCoord2f>> texCoords, std::uint32_t texture, std::uint32_t shadeModel,
    std::uint32_t frontMode, std::uint32_t backMode, const qel::MeshStyle& style) {
    const MeshArrays mesh{.vertices = ArrayView(vertices),
                          .indices = ArrayView(indices),
                          .normals = ArrayView(normals),
                          .colors = ArrayView(colors),
                          .texCoords = ArrayView(texCoords),
                          .normalType = GL_BYTE,
                          .drawsWithoutIndices = true};
    return drawValidated(mesh, {texture, shadeModel, frontMode, backMode}, style);
}

std::int32_t CQelSimpSymbol::drawIndexedMesh(
    qel::ref_ptr<IQelArray<qel::ArrayVertex>> vertices, qel::ref_ptr<IQelArray<qel::ArrayIndex>> indices,
    qel::ref_ptr<IQelArray<qel::ArrayNormal4f>> normals, qel::ref_ptr<IQelArray<qel::ArrayColor4f>> colors,
    qel::ref_ptr<IQelArray<qel::ArrayTexCoord2f>> texCoords, std::uint32_t texture, std::uint32_t shadeModel,
    std::uint32_t frontMode, std::uint32_t backMode, const qel::MeshStyle& style) {
    const MeshArrays mesh{.vertices = ArrayView(vertices),
                          .indices = ArrayView(indices),
                          .normals = ArrayView(normals),
                          .colors = ArrayView(colors),
                          .texCoords = ArrayView(texCoords),
                          .normalType = GL_FLOAT,
                          .drawsWithoutIndices = false};
    return drawValidated(mesh, {texture, shadeModel, frontMode, backMode}, style);
}
