#include "GlSurface.h"

#include "CallTrace.h"
#include "QelGl.h"

namespace qel::test {

namespace {

/// Reads one pixel with the pixel store set to bytes without gaps, and leaves the store as it was.
void readOne(int x, int y, GLenum format, GLenum type, void* pixel) {
    const CallTrace::Pause unrecorded;
    glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glPixelStorei(GL_PACK_ROW_LENGTH, 0);
    glPixelStorei(GL_PACK_SKIP_ROWS, 0);
    glPixelStorei(GL_PACK_SKIP_PIXELS, 0);
    glReadPixels(x, y, 1, 1, format, type, pixel);
    glPopClientAttrib();
}

GLclampf share(std::uint8_t channel) {
    return static_cast<GLclampf>(channel) / 255.0F;
}

}  // namespace

void GlSurface::clear(const Rgba& colour) {
    const CallTrace::Pause unrecorded;
    glPushAttrib(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_SCISSOR_BIT);
    glDisable(GL_SCISSOR_TEST);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glDepthMask(GL_TRUE);
    glClearColor(share(colour[0]), share(colour[1]), share(colour[2]), share(colour[3]));
    glClearDepth(1.0);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glPopAttrib();
}

void GlSurface::startOver() {
    const CallTrace::Pause unrecorded;
    glViewport(0, 0, pixelWidth, pixelHeight);
    clear();
}

Rgba GlSurface::pixel(int x, int y) const {
    Rgba colour{};
    readOne(x, y, GL_RGBA, GL_UNSIGNED_BYTE, colour.data());
    return colour;
}

float GlSurface::depth(int x, int y) const {
    float value = 0;
    readOne(x, y, GL_DEPTH_COMPONENT, GL_FLOAT, &value);
    return value;
}

}  // namespace qel::test
