#include <memory>

#include "AllBenches.h"
#include "ByHand.h"
#include "Models.h"
#include "Rig.h"

/// Triangle meshes, drawn small: the vertices are worked on, few pixels are.

namespace qel::bench {

namespace {

constexpr std::int32_t kTriangles = 200'000;
constexpr std::int32_t kFewTriangles = 200;
constexpr int kViewPx = 64;

struct MeshScene {
    explicit MeshScene(const MeshData& data)
        : vertices(lend(data.vertices)),
          byteNormals(lend(data.byteNormals)),
          floatNormals(lend(data.floatNormals)),
          colors(lend(data.colors)),
          indices(data.indices.empty() ? nullptr : new LendingArray<ArrayIndex>(data.indices)) {}

    Rig rig{kViewPx, kViewPx};
    MeshStyle style{true, true, 1.0F};
    HeldArray<ArrayVertex> vertices;
    HeldArray<ArrayNormal3b> byteNormals;
    HeldArray<ArrayNormal4f> floatNormals;
    HeldArray<ArrayColor4f> colors;
    HeldArray<ArrayIndex> indices;
};

using SharedScene = std::shared_ptr<const MeshScene>;

struct KeptModes {
    GLint shadeModel = 0;
    GLint polygon[2] = {};
};

KeptModes smoothAndFilled() {
    KeptModes was;
    glGetIntegerv(GL_SHADE_MODEL, &was.shadeModel);
    glShadeModel(GL_SMOOTH);
    glGetIntegerv(GL_POLYGON_MODE, was.polygon);
    glPolygonMode(GL_FRONT, GL_FILL);
    glPolygonMode(GL_BACK, GL_FILL);
    return was;
}

void modesBack(const KeptModes& was) {
    glShadeModel(static_cast<GLenum>(was.shadeModel));
    glPolygonMode(GL_FRONT, static_cast<GLenum>(was.polygon[0]));
    glPolygonMode(GL_BACK, static_cast<GLenum>(was.polygon[1]));
}

/// The state of a mesh around what `draw` draws from the arrays.
template <class Draw>
void asMesh(const MeshScene& scene, GLenum normalType, GLsizei normalStride, const void* normals, Draw draw) {
    const bool wasLit = switched(GL_LIGHTING, scene.style.lighting);
    const bool wasTested = switched(GL_DEPTH_TEST, scene.style.depthTest);
    const float oldWidth = widened(scene.style.width);
    const float oldSize = enlarged(scene.style.width);
    const bool wasTextured = switched(GL_TEXTURE_2D, false);
    const KeptModes modes = smoothAndFilled();
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(3, GL_FLOAT, sizeof(ArrayVertex), scene.vertices->data());
    glEnableClientState(GL_NORMAL_ARRAY);
    glNormalPointer(normalType, normalStride, normals);
    glEnableClientState(GL_COLOR_ARRAY);
    glColorPointer(3, GL_FLOAT, sizeof(ArrayColor4f), scene.colors->data());
    glIsTexture(0);
    draw();
    glDisableClientState(GL_VERTEX_ARRAY);
    glDisableClientState(GL_NORMAL_ARRAY);
    glDisableClientState(GL_COLOR_ARRAY);
    glIsTexture(0);
    modesBack(modes);
    switchTo(GL_TEXTURE_2D, wasTextured);
    glPointSize(oldSize);
    glLineWidth(oldWidth);
    switchTo(GL_DEPTH_TEST, wasTested);
    switchTo(GL_LIGHTING, wasLit);
}

Forms meshForms(const MeshData& data) {
    const SharedScene scene = std::make_shared<MeshScene>(data);
    Forms forms;
    forms.module = repeated([scene] {
        scene->rig.symbol().drawMesh(scene->vertices, nullptr, scene->byteNormals, scene->colors, nullptr, 0,
                                     GL_SMOOTH, GL_FILL, GL_FILL, scene->style);
    });
    forms.bare = repeated([scene] {
        asMesh(*scene, GL_BYTE, sizeof(ArrayNormal3b), scene->byteNormals->data(),
               [&] { glDrawArrays(GL_TRIANGLES, 0, scene->vertices->count()); });
    });
    forms.settle = Rig::finish;
    return forms;
}

Forms indexedMeshForms(const MeshData& data) {
    const SharedScene scene = std::make_shared<MeshScene>(data);
    Forms forms;
    forms.module = repeated([scene] {
        scene->rig.symbol().drawIndexedMesh(scene->vertices, scene->indices, scene->floatNormals,
                                            scene->colors, nullptr, 0, GL_SMOOTH, GL_FILL, GL_FILL,
                                            scene->style);
    });
    forms.bare = repeated([scene] {
        asMesh(*scene, GL_FLOAT, sizeof(ArrayNormal4f), scene->floatNormals->data(), [&] {
            glDrawElements(GL_TRIANGLES, scene->indices->count(), GL_UNSIGNED_INT, scene->indices->data());
        });
    });
    forms.settle = Rig::finish;
    return forms;
}

MeshData meshOf(Size size) {
    return bumpySphere(size == Size::Full ? kTriangles : kFewTriangles);
}

}  // namespace

void addMeshBenches(Operations& all) {
    all.push_back({"drawMesh, 200,000 triangles", "call", Kind::Mesh,
                   [](Size size) { return meshForms(unshared(meshOf(size))); }});
    all.push_back({"drawIndexedMesh, 200,000 triangles", "call", Kind::Mesh,
                   [](Size size) { return indexedMeshForms(meshOf(size)); }});
}

}  // namespace qel::bench
