#include <memory>

#include "AllBenches.h"
#include "MeshByHand.h"
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
          indices(data.indices.empty() ? nullptr : new HostArray<ArrayIndex>(data.indices)) {}

    Rig rig{kViewPx, kViewPx};
    MeshStyle style{true, true, 1.0F};
    HeldArray<ArrayVertex> vertices;
    HeldArray<ArrayNormal3b> byteNormals;
    HeldArray<ArrayNormal4f> floatNormals;
    HeldArray<ArrayColor4f> colors;
    HeldArray<ArrayIndex> indices;
};

using SharedScene = std::shared_ptr<const MeshScene>;

Forms meshForms(const MeshData& data) {
    const SharedScene scene = std::make_shared<MeshScene>(data);
    Forms forms;
    forms.module = repeated([scene] {
        scene->rig.symbol().drawMesh(scene->vertices, nullptr, scene->byteNormals, scene->colors, nullptr, 0,
                                     GL_SMOOTH, GL_FILL, GL_FILL, scene->style);
    });
    forms.bare = repeated([scene] {
        const MeshMemory memory{scene->vertices->data(), GL_BYTE, sizeof(ArrayNormal3b),
                                scene->byteNormals->data(), scene->colors->data()};
        asMesh(scene->style, memory, [&] { glDrawArrays(GL_TRIANGLES, 0, scene->vertices->count()); });
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
        const MeshMemory memory{scene->vertices->data(), GL_FLOAT, sizeof(ArrayNormal4f),
                                scene->floatNormals->data(), scene->colors->data()};
        asMesh(scene->style, memory, [&] {
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
