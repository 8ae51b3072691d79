#include <memory>

#include "AllBenches.h"
#include "Models.h"
#include "QelGl.h"
#include "Rig.h"

/// Does the time for one thing grow with the number of things? Both forms do as much: one all at once, the
/// other in small parts.

namespace qel::bench {

namespace {

constexpr int kViewPx = 64;
const QelColor3f kColor(0.3F, 0.7F, 1.0F);

struct Sizes {
    std::int32_t many;
    std::int32_t few;
};

constexpr Sizes kVertices{10'000'000, 100'000};
constexpr Sizes kCalls{1'000'000, 1'000};
constexpr Sizes kSmall{20, 10};

struct VertexScene {
    explicit VertexScene(const Sizes& sizes)
        : all(lend(spiralCloud(sizes.many).vertices)),
          part(lend(spiralCloud(sizes.few).vertices)),
          parts(sizes.many / sizes.few) {}

    Rig rig{kViewPx, kViewPx};
    HeldArray<ArrayVertex> all;
    HeldArray<ArrayVertex> part;
    std::int32_t parts;
};

void drawPoints(const VertexScene& scene, const HeldArray<ArrayVertex>& vertices) {
    scene.rig.symbol().drawPointCloud(vertices, nullptr, nullptr, 1.0F, kColor);
    Rig::finish();
}

Forms vertexForms(Size size) {
    const Sizes sizes = size == Size::Full ? kVertices : kSmall;
    const auto scene = std::make_shared<const VertexScene>(sizes);
    Forms forms;
    forms.units = sizes.many;
    forms.module = repeated([scene] { drawPoints(*scene, scene->all); });
    forms.bare = repeated([scene] {
        for (std::int32_t i = 0; i < scene->parts; ++i) {
            drawPoints(*scene, scene->part);
        }
    });
    return forms;
}

/// A frame without its brackets, which would weigh more on the short one.
void drawLines(const Rig& rig, std::int32_t calls) {
    for (std::int32_t i = 0; i < calls; ++i) {
        rig.symbol().drawLine({-0.1, 0.0, 0.0}, {0.1, 0.05, 0.1}, 1.0, kColor, false, true);
    }
    Rig::finish();
}

Forms callForms(Size size) {
    const Sizes sizes = size == Size::Full ? kCalls : kSmall;
    const auto rig = std::make_shared<const Rig>(kViewPx, kViewPx);
    Forms forms;
    forms.units = sizes.many;
    forms.module = repeated([rig, sizes] { drawLines(*rig, sizes.many); });
    forms.bare = repeated([rig, sizes] {
        for (std::int32_t i = 0; i < sizes.many / sizes.few; ++i) {
            drawLines(*rig, sizes.few);
        }
    });
    return forms;
}

}  // namespace

void addGrowthBenches(Operations& all) {
    all.push_back({"growth: 10,000,000 vertices at once / 100,000", "vertex", Kind::Growth, vertexForms,
                   Likeness::None});
    all.push_back(
        {"growth: 1,000,000 calls in a frame / 1,000", "call", Kind::Growth, callForms, Likeness::None});
}

}  // namespace qel::bench
