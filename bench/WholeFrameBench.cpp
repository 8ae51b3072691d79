#include <cmath>
#include <memory>
#include <numbers>
#include <vector>

#include "AllBenches.h"
#include "FrameByHand.h"
#include "MeshByHand.h"
#include "Models.h"

/// Whole frames through the display at 800 x 600, with a camera that goes 3 degrees around the model for
/// each.

namespace qel::bench {

namespace {

constexpr int kWidth = 800;
constexpr int kHeight = 600;
constexpr double kStepRadians = 3.0 * std::numbers::pi / 180.0;
constexpr double kDistance = 5.0;
constexpr std::int32_t kTriangles = 200'000;
constexpr std::int32_t kPoints = 1'000'000;
constexpr std::int32_t kPolylines = 20'000;
constexpr std::int32_t kPointsOfALine = 50;
constexpr std::int32_t kFew = 20;

/// A camera on its way around the model; each form has one, so that both see the same frames.
class Orbit {
  public:
    XPnt3d nextEye() {
        angle += kStepRadians;
        return {kDistance * std::cos(angle), kDistance * std::sin(angle), 2.0};
    }

  private:
    double angle = 0.0;
};

struct OrbitRig {
    OrbitRig() {
        rig.camera().setCamera({kDistance, 0.0, 2.0}, {}, {0.0, 0.0, 1.0});
        view = BareView(rig);
    }

    Rig rig{kWidth, kHeight};
    BareView view{rig};
    Orbit ofModule;
    Orbit ofBare;
};

/// A frame with what `draw` draws, by the module and by hand.
template <class Scene, class ModuleDraw, class BareDraw>
Forms frames(const std::shared_ptr<Scene>& scene, ModuleDraw moduleDraw, BareDraw bareDraw) {
    Forms forms;
    forms.module = repeated([scene, moduleDraw] {
        IQelDisplay& display = scene->rig.display();
        scene->rig.camera().setCamera(scene->ofModule.nextEye(), {}, {0.0, 0.0, 1.0});
        display.beginFrame(0);
        display.beginDraw();
        display.updateView();
        moduleDraw(*scene);
        display.endFrame();
        Rig::finish();
    });
    forms.bare = repeated([scene, bareDraw] {
        BareView& view = scene->view;
        view.eye = scene->ofBare.nextEye();
        loadCamera(view);
        beginFrameByHand(view);
        beginDrawByHand(view);
        loadCamera(view);
        bareDraw(*scene);
        endFrameByHand(view);
        Rig::finish();
    });
    return forms;
}

struct SphereScene : OrbitRig {
    explicit SphereScene(const MeshData& data)
        : vertices(lend(data.vertices)), normals(lend(data.floatNormals)), indices(lend(data.indices)) {}

    MeshStyle style{true, true, 1.0F};
    HeldArray<ArrayVertex> vertices;
    HeldArray<ArrayNormal4f> normals;
    HeldArray<ArrayIndex> indices;
};

Forms sphereFrames(Size size) {
    const auto scene = std::make_shared<SphereScene>(bumpySphere(size == Size::Full ? kTriangles : kFew));
    return frames(
        scene,
        [](SphereScene& drawn) {
            drawn.rig.symbol().drawIndexedMesh(drawn.vertices, drawn.indices, drawn.normals, nullptr, nullptr,
                                               0, GL_SMOOTH, GL_FILL, GL_FILL, drawn.style);
        },
        [](SphereScene& drawn) {
            const MeshMemory memory{drawn.vertices->data(), GL_FLOAT, sizeof(ArrayNormal4f),
                                    drawn.normals->data(), nullptr};
            asMesh(drawn.style, memory, [&] {
                glDrawElements(GL_TRIANGLES, drawn.indices->count(), GL_UNSIGNED_INT, drawn.indices->data());
            });
        });
}

struct CloudScene : OrbitRig {
    explicit CloudScene(const CloudData& data)
        : vertices(lend(data.vertices)), colors(lend(data.floatColors)) {}

    HeldArray<ArrayVertex> vertices;
    HeldArray<ArrayColor4f> colors;
};

void drawCloudByHand(const CloudScene& scene) {
    const bool wasLit = switched(GL_LIGHTING, false);
    const bool wasTested = switched(GL_DEPTH_TEST, false);
    const float oldSize = enlarged(1.0F);
    const KeptColor oldColor = coloured(QelColor3f(1.0F, 1.0F, 1.0F));
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(3, GL_FLOAT, sizeof(ArrayVertex), scene.vertices->data());
    glEnableClientState(GL_COLOR_ARRAY);
    glColorPointer(3, GL_FLOAT, sizeof(ArrayColor4f), scene.colors->data());
    glDrawArrays(GL_POINTS, 0, scene.vertices->count());
    glDisableClientState(GL_VERTEX_ARRAY);
    glDisableClientState(GL_COLOR_ARRAY);
    colourBack(oldColor);
    glPointSize(oldSize);
    switchTo(GL_DEPTH_TEST, wasTested);
    switchTo(GL_LIGHTING, wasLit);
}

Forms cloudFrames(Size size) {
    const auto scene = std::make_shared<CloudScene>(spiralCloud(size == Size::Full ? kPoints : kFew));
    return frames(
        scene,
        [](CloudScene& drawn) {
            drawn.rig.symbol().drawPointCloudF(drawn.vertices, nullptr, drawn.colors, 1.0F,
                                               QelColor3f(1.0F, 1.0F, 1.0F));
        },
        drawCloudByHand);
}

struct LineScene : OrbitRig {
    explicit LineScene(std::int32_t count) {
        for (std::int32_t i = 0; i < count; ++i) {
            lines.push_back(ref_ptr<LendingPolyline>(new LendingPolyline(wave(i, count, kPointsOfALine))));
        }
    }

    std::vector<ref_ptr<LendingPolyline>> lines;
};

void drawLinesByHand(const LineScene& scene) {
    for (const ref_ptr<LendingPolyline>& line : scene.lines) {
        HostPointArray& points = line->lent();
        glColor3f(250.0F / 255.0F, 250.0F / 255.0F, 254.0F / 255.0F);
        glLineWidth(1.0F);
        glEnableClientState(GL_VERTEX_ARRAY);
        glVertexPointer(3, GL_DOUBLE, sizeof(XPnt3d), points.points());
        glDrawArrays(GL_LINE_STRIP, 0, points.count());
        glDisableClientState(GL_VERTEX_ARRAY);
    }
}

Forms lineFrames(Size size) {
    const auto scene = std::make_shared<LineScene>(size == Size::Full ? kPolylines : kFew);
    return frames(
        scene,
        [](LineScene& drawn) {
            IQelSymbol& symbol = drawn.rig.symbol();
            for (const ref_ptr<LendingPolyline>& line : drawn.lines) {
                symbol.drawGeometry(line.get());
            }
        },
        drawLinesByHand);
}

}  // namespace

void addWholeFrameBenches(Operations& all) {
    all.push_back({"frame: sphere of 200,000 triangles", "frame", Kind::FrameOfMesh, sphereFrames});
    all.push_back({"frame: 1,000,000 points", "frame", Kind::FrameOfCloud, cloudFrames});
    all.push_back({"frame: 20,000 polylines of 50 points", "frame", Kind::FrameOfPolylines, lineFrames});
}

}  // namespace qel::bench
