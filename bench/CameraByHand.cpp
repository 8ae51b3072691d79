#include "CameraByHand.h"

#include <cstring>

namespace qel::bench {

namespace {

constexpr GLuint kFirstLetter = 32;

constexpr float kModelAmbient[] = {0.2F, 0.2F, 0.2F, 1.0F};
constexpr float kBlack[] = {0.0F, 0.0F, 0.0F, 1.0F};
constexpr float kGrey[] = {0.5F, 0.5F, 0.5F, 1.0F};
constexpr float kHeadLight[] = {0.1F, 0.5F, 0.8F, 1.0F};
constexpr float kBackLight[] = {0.85F, 0.85F, 0.4F, 1.0F};
constexpr float kShininess = 100.0F;

void setLight(GLenum light, const float* diffuse, const XPnt3d& direction) {
    const float position[] = {static_cast<float>(direction.x), static_cast<float>(direction.y),
                              static_cast<float>(direction.z), 0.0F};
    glLightfv(light, GL_AMBIENT, kBlack);
    glLightfv(light, GL_DIFFUSE, diffuse);
    glLightfv(light, GL_SPECULAR, kGrey);
    glLightfv(light, GL_POSITION, position);
    glLighti(light, GL_SPOT_EXPONENT, 0);
    glLighti(light, GL_SPOT_CUTOFF, 180);
    glEnable(light);
}

/// The letters are the first lists of a context that belongs to the display.
GLuint firstList() {
    GLuint list = 1;
    while (glIsList(list) == GL_FALSE && list < 1000) {
        ++list;
    }
    return list;
}

}  // namespace

BareView::BareView(const Rig& rig)
    : dc(static_cast<HDC>(rig.dc())),
      rc(static_cast<HGLRC>(rig.rc())),
      width(rig.width()),
      height(rig.height()),
      fieldOfView(rig.camera().getFieldOfView()),
      nearPlane(rig.camera().getNearPlane()),
      farPlane(rig.camera().getFarPlane()),
      eye(rig.camera().getEye()),
      target(rig.camera().getTarget()),
      up(rig.camera().getUp()),
      fontLists(firstList()) {
    glGetDoublev(GL_MODELVIEW_MATRIX, modelview);
    glGetDoublev(GL_PROJECTION_MATRIX, projection);
    glGetIntegerv(GL_VIEWPORT, viewport);
}

void loadProjection(const BareView& view) {
    makeCurrent(view);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    const double aspect =
        static_cast<double>(static_cast<float>(view.width) / static_cast<float>(view.height));
    gluPerspective(view.fieldOfView, aspect, view.nearPlane, view.farPlane);
}

void loadModelview(const BareView& view) {
    makeCurrent(view);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    gluLookAt(view.eye.x, view.eye.y, view.eye.z, view.target.x, view.target.y, view.target.z, view.up.x,
              view.up.y, view.up.z);
}

void readMatrices(BareView& view) {
    makeCurrent(view);
    glGetDoublev(GL_MODELVIEW_MATRIX, view.modelview);
    glGetDoublev(GL_PROJECTION_MATRIX, view.projection);
}

void loadPixels(const BareView& view) {
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluOrtho2D(0.0, view.width, 0.0, view.height);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
}

void setLights(const BareView& view) {
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, kModelAmbient);
    setLight(GL_LIGHT1, kHeadLight, view.eye - view.target);
    setLight(GL_LIGHT2, kBackLight, (view.target - view.eye) * 1000.0);
    glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT, kGrey);
    glMaterialfv(GL_FRONT_AND_BACK, GL_DIFFUSE, kGrey);
    glMaterialfv(GL_FRONT_AND_BACK, GL_SPECULAR, kGrey);
    glMaterialfv(GL_FRONT_AND_BACK, GL_SHININESS, &kShininess);
    glMaterialfv(GL_FRONT_AND_BACK, GL_EMISSION, kBlack);
    glEnable(GL_COLOR_MATERIAL);
    glColorMaterial(GL_FRONT_AND_BACK, GL_DIFFUSE);
    glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, 0);
}

void printLetters(const BareView& view, const char* text) {
    glPushAttrib(GL_LIST_BIT);
    glListBase(view.fontLists - kFirstLetter);
    glCallLists(static_cast<GLsizei>(std::strlen(text)), GL_UNSIGNED_BYTE, text);
    glPopAttrib();
}

XPnt3d projected(const BareView& view, const XPnt3d& point) {
    XPnt3d window;
    gluProject(point.x, point.y, point.z, view.modelview, view.projection, view.viewport, &window.x,
               &window.y, &window.z);
    return window;
}

XPnt3d unProjected(const BareView& view, double x, double y, double z) {
    XPnt3d point;
    gluUnProject(x, y, z, view.modelview, view.projection, view.viewport, &point.x, &point.y, &point.z);
    return point;
}

}  // namespace qel::bench
