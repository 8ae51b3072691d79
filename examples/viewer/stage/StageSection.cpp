#include <algorithm>
#include <array>

#include "CoordinateText.h"
#include "QelGl.h"
#include "QelTmpGlStateCtrl.h"
#include "Stage.h"

/// The plane that cuts the scene.

namespace qelview {

namespace {

constexpr qel::QelColor3f kOutlineColor{1.0F, 0.45F, 0.25F};
constexpr double kOutlineWidth = 2.0;

/// Nothing beyond a plane is drawn as long as this lives. The camera must be loaded.
class ClipScope {
  public:
    explicit ClipScope(const std::optional<SectionPlane>& plane) : isClipping(plane.has_value()) {
        if (isClipping) {
            const std::array<GLdouble, 4> drawnSide{-plane->normal.x, -plane->normal.y, -plane->normal.z,
                                                    plane->offset};
            glClipPlane(GL_CLIP_PLANE0, drawnSide.data());
            glEnable(GL_CLIP_PLANE0);
        }
    }
    ~ClipScope() {
        if (isClipping) {
            glDisable(GL_CLIP_PLANE0);
        }
    }
    ClipScope(const ClipScope&) = delete;
    ClipScope& operator=(const ClipScope&) = delete;

  private:
    bool isClipping;
};

/// The lowest and the highest place of a box along a direction.
std::pair<double, double> rangeAlong(const qel::XPnt3d& direction, const qel::Enve3d& box) {
    const qel::XPnt3d middle((box.xmin + box.xmax) * 0.5, (box.ymin + box.ymax) * 0.5,
                             (box.zmin + box.zmax) * 0.5);
    const double reach =
        0.5 * (std::abs(direction.x) * (box.xmax - box.xmin) + std::abs(direction.y) * (box.ymax - box.ymin) +
               std::abs(direction.z) * (box.zmax - box.zmin));
    return {qel::dot(direction, middle) - reach, qel::dot(direction, middle) + reach};
}

}  // namespace

void Stage::setSection(SectionAxis axis) {
    sectionAxis = axis;
    sectionShare = 0.5;
    isSectionFlipped = false;
    sectionNormal = axis == SectionAxis::X   ? qel::XPnt3d(1.0, 0.0, 0.0)
                    : axis == SectionAxis::Y ? qel::XPnt3d(0.0, 1.0, 0.0)
                    : axis == SectionAxis::Z ? qel::XPnt3d(0.0, 0.0, 1.0)
                                             : camera().getEye() - camera().getTarget();
    sectionNormal.normalize();
    cutScene();
}

void Stage::moveSection(double share) {
    sectionShare = std::clamp(sectionShare + share, 0.0, 1.0);
    cutScene();
}

void Stage::flipSection() {
    isSectionFlipped = !isSectionFlipped;
    cutScene();
}

void Stage::cutScene() {
    if (sectionAxis == SectionAxis::None) {
        plane.reset();
        sectionLines.clear();
        return;
    }
    const auto [low, high] = rangeAlong(sectionNormal, content.extent);
    const double place = low + sectionShare * (high - low);
    plane =
        isSectionFlipped ? SectionPlane{sectionNormal * -1.0, -place} : SectionPlane{sectionNormal, place};
    sectionLines = content.drawn.sectionLines(*plane);
}

std::string Stage::sectionText() const {
    const double place =
        (isSectionFlipped ? -plane->offset : plane->offset) + qel::dot(sectionNormal, content.origin);
    const std::string text = decimalText(place, content.extent.getDiagonal());
    switch (sectionAxis) {
        case SectionAxis::X:
            return "x = " + text;
        case SectionAxis::Y:
            return "y = " + text;
        case SectionAxis::Z:
            return "z = " + text;
        default:
            return "across the view";
    }
}

void Stage::drawScene() {
    {
        const ClipScope clip(plane);
        content.drawn.draw(*symbol, pixelViewOf(camera()), textures,
                           {&camera(), thinning, static_cast<float>(unit()), plane});
    }
    const QelTmpGlStateCtrl texture(GL_TEXTURE_2D, false);
    const QelTmpGlStateCtrl color(kOutlineColor);
    glLineWidth(static_cast<GLfloat>(kOutlineWidth * unit()));
    glBegin(GL_LINES);
    for (const qel::XPnt3d& point : sectionLines) {
        glVertex3d(point.x, point.y, point.z);
    }
    glEnd();
}

}  // namespace qelview
