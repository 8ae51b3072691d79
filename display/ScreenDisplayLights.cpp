#include "CQelScreenDisplay.h"

namespace {

struct Rgba {
    float values[4];
};

constexpr Rgba kModelAmbient{{0.2F, 0.2F, 0.2F, 1.0F}};
constexpr Rgba kBlack{{0.0F, 0.0F, 0.0F, 1.0F}};
constexpr Rgba kGrey{{0.5F, 0.5F, 0.5F, 1.0F}};
constexpr Rgba kHeadLight{{0.1F, 0.5F, 0.8F, 1.0F}};
constexpr Rgba kBackLight{{0.85F, 0.85F, 0.4F, 1.0F}};
constexpr float kShininess = 100.0F;
constexpr GLint kNotASpot = 180;
/// A directional light has no distance, so the factor only changes the numbers that OpenGL reports.
constexpr double kBackLightReach = 1000.0;

/// w = 0: a directional light from this direction.
Rgba directionOf(const qel::XPnt3d& vector) {
    return {{static_cast<float>(vector.x), static_cast<float>(vector.y), static_cast<float>(vector.z), 0.0F}};
}

void setLight(GLenum light, const Rgba& diffuse, const Rgba& position) {
    glLightfv(light, GL_AMBIENT, kBlack.values);
    glLightfv(light, GL_DIFFUSE, diffuse.values);
    glLightfv(light, GL_SPECULAR, kGrey.values);
    glLightfv(light, GL_POSITION, position.values);
    glLighti(light, GL_SPOT_EXPONENT, 0);
    glLighti(light, GL_SPOT_CUTOFF, kNotASpot);
    glEnable(light);
}

void setMaterial() {
    glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT, kGrey.values);
    glMaterialfv(GL_FRONT_AND_BACK, GL_DIFFUSE, kGrey.values);
    glMaterialfv(GL_FRONT_AND_BACK, GL_SPECULAR, kGrey.values);
    glMaterialfv(GL_FRONT_AND_BACK, GL_SHININESS, &kShininess);
    glMaterialfv(GL_FRONT_AND_BACK, GL_EMISSION, kBlack.values);
    glEnable(GL_COLOR_MATERIAL);
    glColorMaterial(GL_FRONT_AND_BACK, GL_DIFFUSE);
}

}  // namespace

std::int32_t CQelScreenDisplay::setupLights() {
    const qel::XPnt3d eye = trackBall->getEye();
    const qel::XPnt3d target = trackBall->getTarget();
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, kModelAmbient.values);
    setLight(GL_LIGHT1, kHeadLight, directionOf(eye - target));
    setLight(GL_LIGHT2, kBackLight, directionOf((target - eye) * kBackLightReach));
    setMaterial();
    glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, 0);
    return 0;
}
