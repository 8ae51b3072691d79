#include "QelTmpGlStateCtrl.h"

#include "QelGl.h"

namespace {

void setCapability(std::uint32_t capability, bool enabled) {
    if (enabled) {
        glEnable(capability);
    } else {
        glDisable(capability);
    }
}

bool isSize(std::uint32_t parameter) {
    return parameter == GL_LINE_WIDTH || parameter == GL_POINT_SIZE;
}

void setParameter(std::uint32_t parameter, float value) {
    if (parameter == GL_LINE_WIDTH) {
        glLineWidth(value);
    } else if (parameter == GL_POINT_SIZE) {
        glPointSize(value);
    }
}

}  // namespace

QelTmpGlStateCtrl::QelTmpGlStateCtrl(std::uint32_t capability, bool enabled)
    : kind(Kind::Capability), wasEnabled(glIsEnabled(capability) != GL_FALSE), name(capability) {
    setCapability(capability, enabled);
}

QelTmpGlStateCtrl::QelTmpGlStateCtrl(std::uint32_t parameter, float value)
    : kind(Kind::Parameter), name(parameter) {
    // Some OpenGL parameters have sixteen floats or more: a parameter that is not set is not read either.
    if (isSize(parameter)) {
        glGetFloatv(parameter, saved);
        setParameter(parameter, value);
    }
}

QelTmpGlStateCtrl::QelTmpGlStateCtrl(qel::QelColor3f color) : kind(Kind::Color) {
    glGetFloatv(GL_CURRENT_COLOR, saved);
    glColor3f(color.r, color.g, color.b);
}

QelTmpGlStateCtrl::~QelTmpGlStateCtrl() {
    switch (kind) {
        case Kind::Capability:
            setCapability(name, wasEnabled);
            break;
        case Kind::Parameter:
            setParameter(name, saved[0]);
            break;
        case Kind::Color:
            glColor4f(saved[0], saved[1], saved[2], saved[3]);
            break;
    }
}
