#include "Stage.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <numbers>
#include <utility>

#include "CameraFit.h"
#include "QelGl.h"
#include "SceneSummary.h"
#include "TextPlaces.h"

namespace qelview {

namespace {

constexpr qel::QelColor3f kBackColor{0.105F, 0.125F, 0.155F};

/// Share of the way to the scene for a notch of the wheel.
constexpr double kStepOfANotch = 0.1;

}  // namespace

Stage::Content::Content(Scene&& scene)
    : extent(scene.bounds()),
      outline(scene.outline()),
      labels(scene.labels),
      title(scene.title),
      summary(summaryOf(scene)),
      origin(scene.origin),
      up(scene.up),
      isUpKnown(scene.isUpKnown),
      warnings(scene.warnings),
      drawn(std::move(scene)) {}

qel::ref_ptr<IQelDisplay> Stage::attach(HWND window, bool isStereo) {
    qel::ref_ptr<IQelDisplay> display = qel::adopt(newScreenDisplay());
    display->attachWindow(qel::handleNumber(window), isStereo);
    display->makeCurrent();
    if (display->getDC() == 0 || wglGetCurrentContext() == nullptr) {
        return {};
    }
    return display;
}

std::unique_ptr<Stage> Stage::open(HWND window, Scene scene) {
    const qel::ref_ptr<IQelDisplay> display = attach(window, false);
    return display ? std::unique_ptr<Stage>(new Stage(display, std::make_shared<Content>(std::move(scene))))
                   : nullptr;
}

std::unique_ptr<Stage> Stage::viewOn(HWND window, bool isStereo) {
    const qel::ref_ptr<IQelDisplay> other = attach(window, isStereo);
    GLboolean hasStereoBuffers = GL_FALSE;
    if (other) {
        glGetBooleanv(GL_STEREO, &hasStereoBuffers);
    }
    if (!other || (isStereo && hasStereoBuffers == GL_FALSE)) {
        display->makeCurrent();
        return nullptr;
    }
    std::unique_ptr<Stage> view(new Stage(other, shared));
    view->notes = notes;
    view->cameras = cameras;
    view->resize({static_cast<int>(camera().getWidth()), static_cast<int>(camera().getHeight())});
    view->camera().setExtent(camera().getExtent(), false);
    view->camera().setCamera(camera().getEye(), camera().getTarget(), camera().getUp());
    if (camera().isOrtho()) {
        view->switchProjection();
    }
    return view;
}

Stage::Stage(qel::ref_ptr<IQelDisplay> attached, std::shared_ptr<Content> shown)
    : display(std::move(attached)),
      symbol(newQelSymbol()),
      shared(std::move(shown)),
      content(*shared),
      underMouse(qel::XPnt3d::invalid()) {
    display->setBackColor(kBackColor);
    // The tripod belongs to the content, so that frames, their copies and captures have the same.
    display->setShowOverlay2(false);
}

void Stage::setScene(Scene scene) {
    replaceContent(std::move(scene));
    sceneChanged({});
}

void Stage::renewScene(Scene scene) {
    const qel::XPnt3d originBefore = content.origin;
    const Colouring colouringBefore = colouring();
    replaceContent(std::move(scene));
    setColouring(colouringBefore);
    sceneChanged(originBefore);
}

void Stage::replaceContent(Scene&& scene) {
    // A scene that does not fit into memory leaves the old one.
    Content other(std::move(scene));
    other.scale = content.scale;
    content = std::move(other);
}

void Stage::sceneChanged(const std::optional<qel::XPnt3d>& originBefore) {
    display->makeCurrent();
    kept.release();
    notes.marks.clear();
    if (!originBefore) {
        cameras.clear();
        return;
    }
    const qel::XPnt3d moved = *originBefore - content.origin;
    const qel::XPnt3d middle = content.extent.MidPoint();
    camera().setExtent(content.extent, false);
    camera().setRotationCenter(middle.x, middle.y, middle.z);
    camera().setCamera(camera().getEye() + moved, camera().getTarget() + moved, camera().getUp());
}

CameraState Stage::cameraState() {
    return {{camera().getEye(), camera().getTarget(), camera().getUp()}, camera().isOrtho()};
}

bool Stage::returnToPreviousCamera() {
    const std::optional<CameraState> before = cameras.back(cameraState());
    if (before) {
        camera().setPerspective();
        camera().setCamera(before->place.eye, before->place.target, before->place.up);
        if (before->isOrthographic) {
            switchProjection();
        }
    }
    return before.has_value();
}

std::string Stage::driverText() {
    display->makeCurrent();
    const auto textOf = [](GLenum name) {
        const GLubyte* const text = glGetString(name);
        return text == nullptr ? std::string("unknown") : std::string(reinterpret_cast<const char*>(text));
    };
    return "OpenGL by " + textOf(GL_RENDERER) + "\nVersion " + textOf(GL_VERSION);
}

void Stage::resize(const ClientSize& size) {
    display->setViewSize(size.width, size.height);
}

void Stage::setView(unsigned number) {
    camera().setExtent(content.extent, false);
    camera().setStandardView(number);
    turnCamera(UpAxis::Z, content.up);
    fit();
}

bool Stage::turnUp() {
    if (content.isUpKnown) {
        return false;
    }
    content.up = content.up == UpAxis::Y ? UpAxis::Z : UpAxis::Y;
    setColouring(colouring());
    return true;
}

void Stage::turnView(UpAxis before) {
    turnCamera(before, content.up);
    fit();
}

void Stage::turnCamera(UpAxis from, UpAxis to) {
    // The scene stays as it is: coordinates, the tripod and the long axes are those of its files.
    const auto turned = [&](const qel::XPnt3d& vector) { return fromUpright(upright(vector, from), to); };
    const qel::XPnt3d target = camera().getTarget();
    camera().setCamera(target + turned(camera().getEye() - target), target, turned(camera().getUp()));
}

void Stage::fit() {
    const bool wasOrtho = camera().isOrtho();
    const qel::XPnt3d middle = content.extent.MidPoint();
    camera().setPerspective();
    camera().setRotationCenter(middle.x, middle.y, middle.z);
    const CameraPlace place =
        placeToSee(content.outline, {camera().getEye(), camera().getTarget(), camera().getUp()},
                   camera().getFieldOfView(), static_cast<double>(camera().getWidth() / camera().getHeight()),
                   usableView());
    camera().setCamera(place.eye, place.target, place.up);
    if (wasOrtho) {
        switchProjection();
        shrinkIntoView();
    }
}

UsableView Stage::usableView() {
    // Between the heading and the strip, as long as that leaves most of the view.
    constexpr double kLeast = 0.6;
    constexpr double kUnderHeading = 5.0;
    UsableView usable;
    const double headingHeight =
        kMargin + (static_cast<double>(heading().size()) - 0.5) * kLineHeight + kUnderHeading;
    const double stripHeight = notes.hasStrip ? kStripHeight : 0.0;
    usable.above = std::clamp(1.0 - 2.0 * headingHeight / layoutHeight(), kLeast, usable.above);
    usable.below = std::clamp(1.0 - 2.0 * stripHeight / layoutHeight(), kLeast, usable.below);
    return usable;
}

void Stage::shrinkIntoView() {
    std::vector<qel::XPnt3d> places;
    std::transform(content.outline.begin(), content.outline.end(), std::back_inserter(places),
                   [this](const qel::XPnt3d& point) { return camera().projectPnt(point); });
    const double excess = shareOfUsableView(places, static_cast<double>(camera().getWidth()),
                                            static_cast<double>(camera().getHeight()), usableView());
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

void Stage::switchLongAxes() {
    camera().setOverlayOption(!camera().getOverlayOption());
}

void Stage::zoom(double notches, const PixelPlace& place) {
    // Each notch leaves the same share of the way, in steps of one notch because the camera slows longer
    // ones. The way is that of the last frame for all steps.
    double left = 1.0;
    const int steps = static_cast<int>(std::ceil(std::abs(notches)));
    for (int step = 0; step < steps; ++step) {
        const double share = std::pow(1.0 - kStepOfANotch, std::min(std::abs(notches) - step, 1.0));
        const double next = notches > 0.0 ? left * share : left / share;
        camera().zoomAt(static_cast<float>(left - next), place.x, place.y);
        left = next;
    }
}

void Stage::zoomInto(const PixelBox& rectangle) {
    const qel::XPnt3d shown = pointAt(rectangle.middle());
    const PixelPlace middle = rectangle.middle();
    const qel::XPnt3d aim = shown.isValid() ? shown : camera().pickModelPnt(middle.x, middle.y);
    // First the middle of the rectangle comes to the middle of the view, at the same distance.
    qel::XPnt3d back = camera().getEye() - camera().getTarget();
    back.normalize();
    const double distance = qel::dot(camera().getEye() - aim, back);
    camera().setCamera(aim + back * distance, aim, camera().getUp());
    if (!camera().isOrtho()) {
        camera().zoomInRect({rectangle.from.x, rectangle.from.y, rectangle.to.x, rectangle.to.y});
        camera().updateSphereRadius();
        return;
    }
    // The size of an orthographic view follows the distance to what is drawn.
    const double share = std::max(rectangle.width() / static_cast<double>(camera().getWidth()),
                                  rectangle.height() / static_cast<double>(camera().getHeight()));
    camera().zoomAt(static_cast<float>(1.0 - share), static_cast<std::int32_t>(camera().getWidth() / 2.0F),
                    static_cast<std::int32_t>(camera().getHeight() / 2.0F));
}

void Stage::rotateAbout(const PixelPlace& place) {
    const qel::XPnt3d shown = pointAt(place);
    if (shown.isValid()) {
        camera().setRotationCenter(shown.x, shown.y, shown.z);
    } else {
        camera().setRotationCenterAt(place.x, place.y);
    }
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

}  // namespace qelview
