#include <memory>

#include "AllBenches.h"
#include "ByHand.h"
#include "Models.h"
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

void drawPointsByHand(const VertexScene&, const HeldArray<ArrayVertex>& vertices) {
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(3, GL_FLOAT, sizeof(ArrayVertex), vertices->data());
    glDrawArrays(GL_POINTS, 0, vertices->count());
    glDisableClientState(GL_VERTEX_ARRAY);
    Rig::finish();
}

template <void (*draw)(const VertexScene&, const HeldArray<ArrayVertex>&)>
Forms vertexForms(Size size) {
    const Sizes sizes = size == Size::Full ? kVertices : kSmall;
    const auto scene = std::make_shared<const VertexScene>(sizes);
    Forms forms;
    forms.hasOwnCost = false;
    forms.units = sizes.many;
    forms.module = repeated([scene] { draw(*scene, scene->all); });
    forms.bare = repeated([scene] {
        for (std::int32_t i = 0; i < scene->parts; ++i) {
            draw(*scene, scene->part);
        }
    });
    return forms;
}

void drawLine(const Rig& rig) {
    rig.symbol().drawLine({-0.1, 0.0, 0.0}, {0.1, 0.05, 0.1}, 1.0, kColor, false, true);
}

void drawLineByHand(const Rig&) {
    asLines(kColor, 1.0F, false, true, [] {
        glBegin(GL_LINES);
        glVertex3d(-0.1, 0.0, 0.0);
        glVertex3d(0.1, 0.05, 0.1);
        glEnd();
    });
}

/// A frame without its brackets, which would weigh more on the short one.
template <void (*draw)(const Rig&)>
void drawFrame(const Rig& rig, std::int32_t calls) {
    for (std::int32_t i = 0; i < calls; ++i) {
        draw(rig);
    }
    Rig::finish();
}

template <void (*draw)(const Rig&)>
Forms callForms(Size size) {
    const Sizes sizes = size == Size::Full ? kCalls : kSmall;
    const auto rig = std::make_shared<const Rig>(kViewPx, kViewPx);
    Forms forms;
    forms.hasOwnCost = false;
    forms.units = sizes.many;
    forms.module = repeated([rig, sizes] { drawFrame<draw>(*rig, sizes.many); });
    forms.bare = repeated([rig, sizes] {
        for (std::int32_t i = 0; i < sizes.many / sizes.few; ++i) {
            drawFrame<draw>(*rig, sizes.few);
        }
    });
    return forms;
}

}  // namespace

// How the bare calls grow stands beside: what OpenGL itself does not keep the module cannot.
void addGrowthBenches(Operations& all) {
    all.push_back({"growth: 10,000,000 vertices at once / 100,000", "vertex", Kind::Growth,
                   vertexForms<drawPoints>, false});
    all.push_back(
        {"growth: the same by bare calls", "vertex", Kind::Arithmetic, vertexForms<drawPointsByHand>, false});
    all.push_back(
        {"growth: 1,000,000 calls in a frame / 1,000", "call", Kind::Growth, callForms<drawLine>, false});
    all.push_back({"growth: the same by bare calls of lines", "call", Kind::Arithmetic,
                   callForms<drawLineByHand>, false});
}

}  // namespace qel::bench
