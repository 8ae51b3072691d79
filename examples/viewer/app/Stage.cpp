#include "Stage.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <numbers>

#include "CameraFit.h"
#include "QelGl.h"
#include "SceneSummary.h"

namespace qelview {

namespace {

constexpr qel::QelColor3f kBackColor{0.105F, 0.125F, 0.155F};
constexpr std::array<const char*, 8> kViewNames{"Top",   "Bottom", "Back",      "Front",
                                                "Right", "Left",   "Isometric", "Isometric from below"};

std::int32_t handleOf(HWND window) {
    return static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(window));
}

}  // namespace

std::unique_ptr<Stage> Stage::open(HWND window, const Scene& scene) {
    IQelDisplay* const made = newScreenDisplay();
    qel::ref_ptr<IQelDisplay> display = made;
    // The display came with a reference of its own; the pointer has taken its own by now.
    made->Release();
    display->attachWindow(handleOf(window), false);
    display->makeCurrent();
    if (display->getDC() == 0 || wglGetCurrentContext() == nullptr) {
        return nullptr;
    }
    return std::unique_ptr<Stage>(new Stage(display, scene));
}

Stage::Stage(qel::ref_ptr<IQelDisplay> attached, const Scene& scene)
    : display(std::move(attached)),
      symbol(newQelSymbol()),
      drawn(scene),
      extent(scene.bounds()),
      outline(scene.outline()),
      labels(scene.labels),
      title(printable(scene.title)),
      summary(summaryOf(scene)) {
    display->setBackColor(kBackColor);
}

void Stage::resize(const ClientSize& size) {
    display->setViewSize(size.width, size.height);
}

void Stage::setView(unsigned number) {
    camera().setExtent(extent, false);
    camera().setStandardView(number);
    viewName = kViewNames.at(number);
    fit();
}

void Stage::fit() {
    const bool wasOrtho = camera().isOrtho();
    const qel::XPnt3d middle = extent.MidPoint();
    camera().setPerspective();
    camera().setRotationCenter(middle.x, middle.y, middle.z);
    const CameraPlace place = placeToSee(outline, {camera().getEye(), camera().getTarget(), camera().getUp()},
                                         camera().getFieldOfView(), aspect());
    camera().setCamera(place.eye, place.target, place.up);
    if (wasOrtho) {
        switchProjection();
        shrinkIntoView();
    }
}

void Stage::shrinkIntoView() {
    std::vector<qel::XPnt3d> places;
    std::transform(outline.begin(), outline.end(), std::back_inserter(places),
                   [this](const qel::XPnt3d& point) { return camera().projectPnt(point); });
    const double excess = shareOfUsableView(places, static_cast<double>(camera().getWidth()),
                                            static_cast<double>(camera().getHeight()));
    if (excess <= 1.0) {
        return;
    }
    // The box is as wide as the view in perspective at the distance of what is drawn: it grows with that
    // distance.
    const double halfHeight = 0.5 * static_cast<double>(camera().getHeight() / camera().getPixelsPerUnit());
    const double distance = halfHeight / std::tan(camera().getFieldOfView() * std::numbers::pi / 360.0);
    qel::XPnt3d back = camera().getEye() - camera().getTarget();
    back.normalize();
    const qel::XPnt3d eye = camera().getEye() + back * ((excess - 1.0) * distance);
    camera().setPerspective();
    camera().setCamera(eye, camera().getTarget(), camera().getUp());
    switchProjection();
}

double Stage::aspect() {
    return static_cast<double>(camera().getWidth() / camera().getHeight());
}

void Stage::chooseClippingDistances() {
    // Some systems give 16 bits of depth: they are spent on the scene alone.
    const double distance = qel::dist(camera().getEye(), extent.MidPoint());
    const ClippingDistances clipping = clippingAround(extent, distance);
    camera().setNearPlane(clipping.nearest);
    camera().setFarPlane(clipping.farthest);
}

void Stage::switchProjection() {
    if (camera().isOrtho()) {
        camera().setPerspective();
        return;
    }
    // The orthographic box is made from the depth of a drawn frame: first, on a change of size, of one in
    // perspective, then of the first orthographic one.
    show();
    resize({static_cast<int>(camera().getWidth()), static_cast<int>(camera().getHeight())});
    camera().setOrtho();
    show();
}

void Stage::show() {
    drawFrame();
    display->finishFrame();
}

PixelImage Stage::picture() {
    drawFrame();
    // Finishing the frame draws these too, but leaves nothing to read: it exchanges the buffers.
    camera().drawAxes();
    PixelImage image;
    image.width = static_cast<int>(camera().getWidth());
    image.height = static_cast<int>(camera().getHeight());
    image.rgb.resize(static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height) * 3);
    glReadBuffer(GL_BACK);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, image.width, image.height, GL_RGB, GL_UNSIGNED_BYTE, image.rgb.data());
    display->finishFrame();
    return image;
}

}  // namespace qelview
