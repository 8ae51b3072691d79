#include <functional>
#include <vector>

#include "DisplayFixtureWindows.h"
#include "IQelTrackBall.h"
#include "host/HostGeometries.h"
#include "kit/GuardedHeap.h"

namespace qel::test {
namespace {

constexpr int kDrawings = 1000;
constexpr QelColor3f kColor{0.2F, 0.6F, 0.9F};

/// What a host draws frame after frame, one of each kind; it is made before the frames are.
class MixedModel {
  public:
    MixedModel() : symbol(newQelSymbol()) { addGeometries(), addMarkers(), addArrays(); }

    std::size_t kinds() const { return drawings.size(); }
    void draw(int index) const { drawings[static_cast<std::size_t>(index) % drawings.size()](); }

  private:
    void add(std::function<void()> drawing) { drawings.push_back(std::move(drawing)); }

    void addGeometries() {
        add([this] { symbol->drawGeometry(curve.get()); });
        add([this] { symbol->drawGeometryWith(curve.get(), 2.0, QelColor3b(200, 100, 0)); });
        add([this] { symbol->drawGeometry(ring.get()); });
        add([this] { symbol->drawGeometry(polyline.get()); });
        add([this] { symbol->drawGeometry(polygon.get()); });
        add([this] { symbol->drawGeometry(point.get()); });
        add([this] { symbol->drawGeometry(segment.get()); });
        add([this] { symbol->drawGeometry(ball.get()); });
    }
    void addMarkers() {
        add([this] { symbol->drawLine({0, 0, 0}, {5, 5, 5}, 2.0, kColor, false, true); });
        add([this] { symbol->drawCross({1, 1, 1}, 2.0, 1.0F, kColor, false, true); });
        add([this] { symbol->drawDiagonalCross({1, 1, 1}, 2.0, 1.0F, kColor, false, true); });
        add([this] { symbol->drawSquare({1, 1, 1}, 2.0, 1.0, kColor, false, true); });
        add([this] { symbol->drawCircle({1, 1, 1}, 2.0, 1.0F, kColor, false, true); });
        add([this] { symbol->drawBox({-5, 5, -5, 5, -5, 5}, 1.0, kColor, false, true); });
        add([this] { symbol->drawPoint(1, 2, 3, 4.0F, kColor, false, true); });
        add([this] { symbol->drawPoints(corners, 3, 4.0, kColor, false, true); });
    }
    void addArrays() {
        add([this] { symbol->drawPointCloud(vertices, indices, byteColors, 2.0F, kColor); });
        add([this] { symbol->drawPointCloudF(vertices, indices, colors, 2.0F, kColor); });
        add([this] {
            symbol->drawMesh(vertices, indices, byteNormals, colors, {}, 0, GL_SMOOTH, GL_FILL, GL_LINE, {});
        });
        add([this] {
            symbol->drawIndexedMesh(vertices, indices, normals, colors, {}, 0, GL_FLAT, GL_FILL, GL_FILL, {});
        });
    }

    template <class Element>
    static ref_ptr<VectorArray<Element>> three(const Element& element) {
        return new VectorArray<Element>({element, element, element});
    }

    ref_ptr<IQelSymbol> symbol;
    const XPnt3d corners[3] = {{-10, -10, 0}, {10, 5, 3}, {0, 10, -3}};
    ref_ptr<HostCurve> curve{new HostCurve({corners[0], corners[1], corners[2]})};
    ref_ptr<HostRing> ring{new HostRing({corners[0], corners[1], corners[2]})};
    ref_ptr<HostPolyline> polyline{new HostPolyline({curve, curve})};
    ref_ptr<HostPolygon> polygon{new HostPolygon({curve})};
    ref_ptr<HostPoint> point{new HostPoint(1, 2, 3)};
    ref_ptr<HostSegment> segment{new HostSegment(corners[0], corners[1])};
    ref_ptr<HostBall> ball{new HostBall({0, 0, 0}, 5.0)};
    ref_ptr<VectorArray<ArrayVertex>> vertices{
        new VectorArray<ArrayVertex>({{-9, -9, 0, {}}, {9, -9, 0, {}}, {0, 9, 0, {}}})};
    ref_ptr<VectorArray<ArrayIndex>> indices{new VectorArray<ArrayIndex>({0, 1, 2})};
    ref_ptr<VectorArray<ArrayColor3b>> byteColors = three<ArrayColor3b>({127, 0, 0});
    ref_ptr<VectorArray<ArrayColor4f>> colors = three<ArrayColor4f>({0.5F, 0.5F, 1.0F, 1.0F});
    ref_ptr<VectorArray<ArrayNormal3b>> byteNormals = three<ArrayNormal3b>({0, 0, 127});
    ref_ptr<VectorArray<ArrayNormal4f>> normals = three<ArrayNormal4f>({0, 0, 1, 0});
    std::vector<std::function<void()>> drawings;
};

class SteadyFrame : public DisplayTest {
  protected:
    SteadyFrame() { camera.setExtent({-10, 10, -10, 10, -10, 10}, true); }

    void drawFrame() {
        display->beginFrame(0);
        display->updateView();
        for (int index = 0; index < kDrawings; ++index) {
            model.draw(index);
        }
        camera.drawLabel(0, 0, 0, 2, 2, "%s %d %.3f", "label", 7, 0.125);
        display->printText("%5.1f %s", 12.5, "text");
        display->finishFrame();
    }

    /// Blocks that the module asks for while the body runs again, after it has run twice.
    template <class Body>
    std::size_t blocksTakenBy(Body body) {
        body();
        body();
        const std::size_t before = heap.servedBlocks();
        body();
        return heap.servedBlocks() - before;
    }

    MixedModel model;
    IQelTrackBall& camera = *display->getTrackBall();
    const GuardedHeap heap;
};

TEST_F(SteadyFrame, TakesNoMemory) {
    ASSERT_GE(model.kinds(), 20U);
    EXPECT_EQ(blocksTakenBy([&] { drawFrame(); }), 0U);
}

TEST_F(SteadyFrame, TakesNoMemoryWhenItIsRestoredFromItsCopy) {
    drawFrame();
    EXPECT_EQ(blocksTakenBy([&] {
                  display->restoreCache();
                  model.draw(0);
                  display->endFrame();
              }),
              0U);
}

TEST_F(SteadyFrame, TakesNoMemoryForPicksAndProjections) {
    drawFrame();
    EXPECT_EQ(blocksTakenBy([&] {
                  for (const double x : {80.0, 70.0, 3.0}) {
                      camera.pickModelPnt(x, 60.0);
                      camera.getModelPntAt(x, 60.0);
                      camera.setRotationCenterAt(static_cast<std::int32_t>(x), 60);
                  }
                  camera.projectPnt(camera.unProject(80.0, 60.0, 0.5));
                  camera.isBoxVisible({-1, 1, -1, 1, -1, 1});
                  camera.isPntInView(0, 0, 0);
              }),
              0U);
}

TEST_F(SteadyFrame, TakesNoMemoryForADrag) {
    drawFrame();
    for (const std::int32_t button : {DragPan, DragRotate, DragZoom}) {
        EXPECT_EQ(blocksTakenBy([&] {
                      camera.onButtonDown(button, 40, 40);
                      camera.onMouseMove(50, 45);
                      camera.onMouseMove(55, 60);
                      camera.onButtonUp();
                      drawFrame();
                  }),
                  0U)
            << "button " << button;
    }
}

// Or nothing that the tests above count would count at all.
TEST_F(SteadyFrame, TakesMemoryForANewSizeOnly) {
    drawFrame();
    const std::size_t before = heap.servedBlocks();
    display->setViewSize(kWidth + 10, kHeight + 10);
    drawFrame();
    EXPECT_GE(heap.servedBlocks() - before, 3U);
}

TEST(SteadyFrameAttachedDisplay, HoldsItsCopiesOfTheFrameAndLittleElse) {
    constexpr std::size_t kBytesAPixel = 24;
    constexpr std::size_t kLittle = std::size_t{64} * 1024;
    const TestWindow window(640, 480);
    const GuardedHeap heap;
    const std::size_t before = GuardedHeap::liveBytes();
    const HeldDisplay display;
    display.attach(window);
    display->beginFrame(0);
    display->finishFrame();
    const std::size_t held = GuardedHeap::liveBytes() - before;
    const std::size_t copies = kBytesAPixel * 640 * 480;
    EXPECT_GE(held, copies);
    EXPECT_LE(held, copies + kLittle);
    RecordProperty("bytes_beside_the_copies", static_cast<int>(held - copies));
}

}  // namespace
}  // namespace qel::test
