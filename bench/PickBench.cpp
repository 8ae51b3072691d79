#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

#include "AllBenches.h"
#include "FrameByHand.h"
#include "QelPredicates.h"

/// Between screen and model: projections, picks and questions of visibility, with a square drawn in the
/// middle of the view.

namespace qel::bench {

namespace {

constexpr int kWidth = 800;
constexpr int kHeight = 600;
constexpr double kHalfSquare = 0.2;
constexpr double kReachPx = 20.0;
constexpr std::size_t kMostPixels = std::size_t{42} * 42;
constexpr double kOnPlane = 0.000001;
constexpr std::size_t kSampleStep = 10;

struct PickScene {
    PickScene() {
        rig.camera().updateView();
        view = std::make_unique<BareView>(rig);
        drawSquare();
        rig.camera().refreshDepth();
        const XPnt3d corner = rig.camera().project(kHalfSquare, kHalfSquare, 0.0);
        besideX = corner.x + kReachPx / 2.0;
        besideY = corner.y - kReachPx;
        depths.resize(static_cast<std::size_t>(kWidth) * kHeight);
    }

    static void drawSquare() {
        glBegin(GL_QUADS);
        glVertex3d(-kHalfSquare, -kHalfSquare, 0.0);
        glVertex3d(kHalfSquare, -kHalfSquare, 0.0);
        glVertex3d(kHalfSquare, kHalfSquare, 0.0);
        glVertex3d(-kHalfSquare, kHalfSquare, 0.0);
        glEnd();
    }

    Rig rig{kWidth, kHeight};
    std::unique_ptr<BareView> view;
    /// A pixel beside the square, near enough to snap to it.
    double besideX = 0.0;
    double besideY = 0.0;
    /// A copy of the depth, as the camera keeps one.
    std::vector<float> depths;
    /// What the camera answers where nothing is; kept, so that no result is left out by the compiler.
    double sum = 0.0;
};

void addQuery(Operations& all, const char* name, void (*module)(PickScene&), void (*bare)(PickScene&),
              float depthRead = 1.0F) {
    const auto prepare = [module, bare, depthRead](Size) {
        const auto scene = std::make_shared<PickScene>();
        Forms forms;
        forms.module = repeated([scene, module] { module(*scene); });
        forms.bare = repeated([scene, bare] { bare(*scene); });
        forms.depthRead = depthRead;
        return forms;
    };
    all.push_back({name, "call", Kind::Projection, prepare});
}

float depthAt(double x, double y) {
    float depth = 1.0F;
    glReadBuffer(GL_BACK);
    packed([&] {
        glReadPixels(static_cast<GLint>(x), static_cast<GLint>(y), 1, 1, GL_DEPTH_COMPONENT, GL_FLOAT,
                     &depth);
    });
    return depth;
}

/// Sum and count of what is drawn in the square around a pixel.
bool meanAround(double x, double y, double& mean) {
    const int x0 = static_cast<int>(std::max(0.0, x - kReachPx));
    const int y0 = static_cast<int>(std::max(0.0, y - kReachPx));
    const int width = static_cast<int>(std::min(x + kReachPx, kWidth - 1.0)) - x0;
    const int height = static_cast<int>(std::min(y + kReachPx, kHeight - 1.0)) - y0;
    float depths[kMostPixels];
    packed([&] { glReadPixels(x0, y0, width, height, GL_DEPTH_COMPONENT, GL_FLOAT, depths); });
    double sum = 0.0;
    int drawn = 0;
    for (int i = 0; i < width * height; ++i) {
        if (depths[i] < 1.0F) {
            sum += static_cast<double>(depths[i]);
            ++drawn;
        }
    }
    mean = drawn > 0 ? sum / drawn : 0.0;
    return drawn > 0;
}

double meanOfCopy(const std::vector<float>& depths) {
    double sum = 0.0;
    std::size_t drawn = 0;
    for (std::size_t i = 0; i < depths.size(); i += kSampleStep) {
        if (depths[i] < 1.0F) {
            sum += static_cast<double>(depths[i]);
            ++drawn;
        }
    }
    return static_cast<double>(static_cast<float>(drawn > 0 ? sum / static_cast<double>(drawn) : 0.99999));
}

void pickByHand(PickScene& scene, double x, double y, double meanDepth) {
    double depth = static_cast<double>(depthAt(x, y));
    if (depth >= 1.0 && !meanAround(x, y, depth)) {
        depth = meanDepth;
    }
    scene.sum += unProjected(*scene.view, x, y, depth).x;
}

void addPicks(Operations& all) {
    addQuery(
        all, "pickModelPnt, hit",
        [](PickScene& scene) { scene.sum += scene.rig.camera().pickModelPnt(400.0, 300.0).x; },
        [](PickScene& scene) { pickByHand(scene, 400.0, 300.0, 0.5); }, 0.5F);
    addQuery(
        all, "pickModelPnt, neighbourhood",
        [](PickScene& scene) {
            scene.sum += scene.rig.camera().pickModelPnt(scene.besideX, scene.besideY).x;
        },
        [](PickScene& scene) { pickByHand(scene, scene.besideX, scene.besideY, 0.5); });
    addQuery(
        all, "pickModelPnt, empty, mean depth known",
        [](PickScene& scene) { scene.sum += scene.rig.camera().pickModelPnt(30.0, 30.0).x; },
        [](PickScene& scene) {
            static const double mean = meanOfCopy([&] {
                std::vector<float> copy(scene.depths.size());
                glReadPixels(0, 0, kWidth, kHeight, GL_DEPTH_COMPONENT, GL_FLOAT, copy.data());
                return copy;
            }());
            pickByHand(scene, 30.0, 30.0, mean);
        });
    addQuery(
        all, "refreshDepth, pickModelPnt, mean depth new",
        [](PickScene& scene) {
            scene.rig.camera().refreshDepth();
            scene.sum += scene.rig.camera().pickModelPnt(30.0, 30.0).x;
        },
        [](PickScene& scene) {
            glReadBuffer(GL_BACK);
            packed([&] {
                glReadPixels(0, 0, kWidth, kHeight, GL_DEPTH_COMPONENT, GL_FLOAT, scene.depths.data());
            });
            pickByHand(scene, 30.0, 30.0, meanOfCopy(scene.depths));
        });
}

bool isBoxSeenByHand(const BareView& view) {
    Enve2d image;
    image.setInvalid();
    for (const double z : {-0.5, 0.5}) {
        for (const XPnt3d& corner :
             {XPnt3d(-0.5, -0.5, z), XPnt3d(0.5, -0.5, z), XPnt3d(0.5, 0.5, z), XPnt3d(-0.5, 0.5, z)}) {
            const XPnt3d window = projected(view, corner);
            if (window.z < 1.0) {
                image.SetBox(window);
            }
        }
    }
    return Enve2d(0.0, 0.0, kWidth, kHeight).isIntersect(image);
}

bool isPointSeenByHand(const BareView& view, const XPnt3d& point) {
    const XPnt3d n00 = unProjected(view, 0.0, 0.0, 0.0);
    const XPnt3d n10 = unProjected(view, kWidth, 0.0, 0.0);
    const XPnt3d n01 = unProjected(view, 0.0, kHeight, 0.0);
    const XPnt3d n11 = unProjected(view, kWidth, kHeight, 0.0);
    const XPnt3d f00 = unProjected(view, 0.0, 0.0, 1.0);
    const XPnt3d f10 = unProjected(view, kWidth, 0.0, 1.0);
    const XPnt3d f01 = unProjected(view, 0.0, kHeight, 1.0);
    const XPnt3d f11 = unProjected(view, kWidth, kHeight, 1.0);
    const auto inFront = [&](const XPnt3d& a, const XPnt3d& b, const XPnt3d& c) {
        return isPntInFront(a, b, c, point, kOnPlane) != 0;
    };
    return inFront(n11, f11, f10) && inFront(n01, n00, f00) && inFront(n00, n10, f10) &&
           inFront(n11, n01, f01) && inFront(f01, f00, f10) && inFront(n10, n00, n01);
}

}  // namespace

void addPickBenches(Operations& all) {
    addQuery(
        all, "project", [](PickScene& scene) { scene.sum += scene.rig.camera().project(0.1, 0.2, 0.3).x; },
        [](PickScene& scene) {
            scene.sum += projected(*scene.view, {0.1, 0.2, 0.3}).x;
        });
    addQuery(
        all, "unProject",
        [](PickScene& scene) { scene.sum += scene.rig.camera().unProject(100.0, 200.0, 0.5).x; },
        [](PickScene& scene) { scene.sum += unProjected(*scene.view, 100.0, 200.0, 0.5).x; });
    addPicks(all);
    addQuery(
        all, "isBoxVisible",
        [](PickScene& scene) {
            scene.sum += scene.rig.camera().isBoxVisible({-0.5, 0.5, -0.5, 0.5, -0.5, 0.5}) ? 1.0 : 0.0;
        },
        [](PickScene& scene) { scene.sum += isBoxSeenByHand(*scene.view) ? 1.0 : 0.0; });
    addQuery(
        all, "isPntInView",
        [](PickScene& scene) { scene.sum += scene.rig.camera().isPntInView(0.1, 0.2, 0.3) ? 1.0 : 0.0; },
        [](PickScene& scene) {
            scene.sum += isPointSeenByHand(*scene.view, {0.1, 0.2, 0.3}) ? 1.0 : 0.0;
        });
}

}  // namespace qel::bench
