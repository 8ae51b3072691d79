#include <algorithm>
#include <array>
#include <cmath>

#include "CoordinateText.h"
#include "QelGl.h"
#include "QelTmpGlStateCtrl.h"
#include "Stage.h"

/// The plane that cuts the scene.

namespace qelview {

namespace {

constexpr qel::QelColor3f kOutlineColor{1.0F, 0.45F, 0.25F};
constexpr double kOutlineWidth = 2.0;

}  // namespace

void Stage::setSection(SectionAxis axis) {
    content.section = {};
    content.section.axis = axis;
    qel::XPnt3d& normal = content.section.normal;
    normal = axis == SectionAxis::X   ? qel::XPnt3d(1.0, 0.0, 0.0)
             : axis == SectionAxis::Y ? qel::XPnt3d(0.0, 1.0, 0.0)
             : axis == SectionAxis::Z ? qel::XPnt3d(0.0, 0.0, 1.0)
                                      : camera().getEye() - camera().getTarget();
    normal.normalize();
    cutScene();
}

void Stage::moveSection(double share) {
    content.section.share = std::clamp(content.section.share + share, 0.0, 1.0);
    cutScene();
}

void Stage::dragSection(const PixelPlace& from, const PixelPlace& to) {
    // A small part of the way, which no perspective turns round.
    constexpr double kShare = 0.01;
    constexpr double kLeastOfTheView = 0.1 * kShare;
    const auto& [axis, normal, share, isFlipped, plane, lines] = content.section;
    const auto [low, high] = rangeAlong(normal, content.extent);
    const qel::XPnt3d middle = content.extent.MidPoint();
    const qel::XPnt3d at = middle + normal * (low + share * (high - low) - qel::dot(normal, middle));
    qel::XPnt3d way = camera().projectPnt(at + normal * (kShare * (high - low))) - camera().projectPnt(at);
    if (std::hypot(way.x, way.y) < kLeastOfTheView * static_cast<double>(camera().getHeight())) {
        way = {0.0, -kShare * static_cast<double>(camera().getHeight()), 0.0};
    }
    const double along = (to.x - from.x) * way.x + (to.y - from.y) * way.y;
    moveSection(kShare * along / (way.x * way.x + way.y * way.y));
}

void Stage::flipSection() {
    content.section.isFlipped = !content.section.isFlipped;
    cutScene();
}

void Stage::cutScene() {
    Section& section = content.section;
    if (section.axis == SectionAxis::None) {
        return;
    }
    const auto [low, high] = rangeAlong(section.normal, content.extent);
    const double place = low + section.share * (high - low);
    section.plane =
        section.isFlipped ? SectionPlane{section.normal * -1.0, -place} : SectionPlane{section.normal, place};
    section.lines = content.drawn.sectionLines(*section.plane);
}

std::string Stage::sectionText() const {
    const Section& section = content.section;
    if (section.axis == SectionAxis::View) {
        return "across the view";
    }
    const double place = (section.isFlipped ? -section.plane->offset : section.plane->offset) +
                         qel::dot(section.normal, content.origin);
    const char axis = " xyz"[static_cast<std::size_t>(section.axis)];
    return std::string(1, axis) + " = " + fixed(place, decimalsFor(content.extent.getDiagonal()));
}

void Stage::drawScene() {
    const std::optional<SectionPlane>& plane = content.section.plane;
    if (plane) {
        const std::array<GLdouble, 4> drawnSide{-plane->normal.x, -plane->normal.y, -plane->normal.z,
                                                plane->offset};
        glClipPlane(GL_CLIP_PLANE0, drawnSide.data());
    }
    {
        const QelTmpGlStateCtrl clip(GL_CLIP_PLANE0, plane.has_value());
        content.drawn.draw(*symbol, pixelViewOf(camera()), kept,
                           {&camera(), thinning, static_cast<float>(unit()), plane});
    }
    const QelTmpGlStateCtrl texture(GL_TEXTURE_2D, false);
    const QelTmpGlStateCtrl color(kOutlineColor);
    glLineWidth(static_cast<GLfloat>(kOutlineWidth * unit()));
    glBegin(GL_LINES);
    for (const qel::XPnt3d& point : content.section.lines) {
        glVertex3d(point.x, point.y, point.z);
    }
    glEnd();
}

}  // namespace qelview
