#include <memory>

#include "AllBenches.h"
#include "ByHand.h"
#include "Models.h"
#include "Rig.h"

/// Point clouds, drawn small: the vertices are worked on, few pixels are.

namespace qel::bench {

namespace {

constexpr std::int32_t kPoints = 1'000'000;
constexpr std::int32_t kFewPoints = 100;
constexpr int kViewPx = 64;
constexpr float kPointSize = 1.0F;
const QelColor3f kColor(0.2F, 0.6F, 1.0F);

struct CloudScene {
    explicit CloudScene(const CloudData& data)
        : vertices(lend(data.vertices)),
          byteColors(lend(data.byteColors)),
          floatColors(lend(data.floatColors)) {}

    Rig rig{kViewPx, kViewPx};
    HeldArray<ArrayVertex> vertices;
    HeldArray<ArrayColor3b> byteColors;
    HeldArray<ArrayColor4f> floatColors;
};

using SharedScene = std::shared_ptr<const CloudScene>;

void drawByHand(const CloudScene& scene, GLenum colorType, GLsizei colorStride, const void* colors) {
    const bool wasLit = switched(GL_LIGHTING, false);
    const bool wasTested = switched(GL_DEPTH_TEST, false);
    const float oldSize = enlarged(kPointSize);
    const KeptColor oldColor = coloured(kColor);
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(3, GL_FLOAT, sizeof(ArrayVertex), scene.vertices->data());
    glEnableClientState(GL_COLOR_ARRAY);
    glColorPointer(3, colorType, colorStride, colors);
    glDrawArrays(GL_POINTS, 0, scene.vertices->count());
    glDisableClientState(GL_VERTEX_ARRAY);
    glDisableClientState(GL_COLOR_ARRAY);
    colourBack(oldColor);
    glPointSize(oldSize);
    switchTo(GL_DEPTH_TEST, wasTested);
    switchTo(GL_LIGHTING, wasLit);
}

Form byHandWithBytes(const SharedScene& scene) {
    return repeated(
        [scene] { drawByHand(*scene, GL_BYTE, sizeof(ArrayColor3b), scene->byteColors->data()); });
}

template <class Module>
Forms cloudForms(Size size, Module module, Form (*bare)(const SharedScene&)) {
    const SharedScene scene =
        std::make_shared<CloudScene>(spiralCloud(size == Size::Full ? kPoints : kFewPoints));
    Forms forms;
    forms.module = repeated([scene, module] { module(*scene); });
    forms.bare = bare(scene);
    forms.settle = Rig::finish;
    return forms;
}

Forms plainMemory(Size size) {
    const auto module = [](const CloudScene& scene) {
        scene.rig.symbol().drawVertexArrayPoints(GL_FLOAT, sizeof(ArrayVertex), scene.vertices->data(),
                                                 scene.vertices->count(), nullptr, scene.byteColors,
                                                 kPointSize, kColor);
    };
    return cloudForms(size, module, byHandWithBytes);
}

Forms byteColors(Size size) {
    const auto module = [](const CloudScene& scene) {
        scene.rig.symbol().drawPointCloud(scene.vertices, nullptr, scene.byteColors, kPointSize, kColor);
    };
    return cloudForms(size, module, byHandWithBytes);
}

Forms floatColors(Size size) {
    const auto module = [](const CloudScene& scene) {
        scene.rig.symbol().drawPointCloudF(scene.vertices, nullptr, scene.floatColors, kPointSize, kColor);
    };
    return cloudForms(size, module, [](const SharedScene& scene) {
        return repeated(
            [scene] { drawByHand(*scene, GL_FLOAT, sizeof(ArrayColor4f), scene->floatColors->data()); });
    });
}

}  // namespace

void addCloudBenches(Operations& all) {
    all.push_back({"drawVertexArrayPoints, 1,000,000 points", "call", Kind::Cloud, plainMemory});
    all.push_back({"drawPointCloud, 1,000,000 points", "call", Kind::Cloud, byteColors});
    all.push_back({"drawPointCloudF, 1,000,000 points", "call", Kind::Cloud, floatColors});
}

}  // namespace qel::bench
