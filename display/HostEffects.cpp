#include "HostEffects.h"

#include <iterator>

namespace {

/// The first names are attributes of the colour buffer.
constexpr int kOfColorBuffer = 3;
constexpr GLenum kNames[] = {
    GL_ALPHA_TEST,  GL_BLEND,       GL_COLOR_LOGIC_OP, GL_SCISSOR_TEST, GL_STENCIL_TEST,
    GL_FOG,         GL_TEXTURE_1D,  GL_TEXTURE_2D,     GL_CLIP_PLANE0,  GL_CLIP_PLANE1,
    GL_CLIP_PLANE2, GL_CLIP_PLANE3, GL_CLIP_PLANE4,    GL_CLIP_PLANE5,
};

/// Texturing is enabled in every window's context; alone, without an image, it changes nothing.
bool hasEffect(GLenum name) {
    if (glIsEnabled(name) == GL_FALSE) {
        return false;
    }
    GLint width = 1;
    if (name == GL_TEXTURE_1D || name == GL_TEXTURE_2D) {
        glGetTexLevelParameteriv(name, 0, GL_TEXTURE_WIDTH, &width);
    }
    return width > 0;
}

}  // namespace

HostEffects::HostEffects() {
    static_assert(std::size(kNames) == kEffects);
    for (int index = 0; index < kEffects; ++index) {
        if (hasEffect(kNames[index])) {
            found[count] = kNames[index];
            ++count;
            needsEnables = needsEnables || index >= kOfColorBuffer;
        }
    }
    glGetFloatv(GL_ZOOM_X, &zoom[0]);
    glGetFloatv(GL_ZOOM_Y, &zoom[1]);
}

GLbitfield HostEffects::attributes() const noexcept {
    return (needsEnables ? GL_ENABLE_BIT : 0U) | (isZoomed() ? GL_PIXEL_MODE_BIT : 0U);
}

void HostEffects::switchOff() const {
    for (int index = 0; index < count; ++index) {
        glDisable(found[index]);
    }
    if (isZoomed()) {
        glPixelZoom(1.0F, 1.0F);
    }
}
