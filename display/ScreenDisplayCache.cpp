#include <cstddef>
#include <initializer_list>

#include "CQelScreenDisplay.h"
#include "HostEffects.h"
#include "PixelTransferScope.h"
#include "QelTmpGlStateCtrl.h"
#include "detail/PixelArea.h"
#include "detail/PixelPackScope.h"

namespace {

constexpr std::size_t kChannels = 4;

/// The rows of the copy are contiguous, whatever unpack layout the host has set.
void unpackWithoutPadding() {
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    for (const GLenum name : std::initializer_list<GLenum>{GL_UNPACK_SWAP_BYTES, GL_UNPACK_ROW_LENGTH,
                                                           GL_UNPACK_SKIP_ROWS, GL_UNPACK_SKIP_PIXELS}) {
        GLint value = 0;
        glGetIntegerv(name, &value);
        if (value != 0) {
            glPixelStorei(name, 0);
        }
    }
}

/// Draws depth only, everywhere.
void writeDepth(std::int32_t width, std::int32_t height, const float* depth) {
    glDepthFunc(GL_ALWAYS);
    glDepthMask(GL_TRUE);
    glRasterPos2d(0.0, 0.0);
    glDrawPixels(width, height, GL_DEPTH_COMPONENT, GL_FLOAT, depth);
    glGetError();
}

/// Draws colour only: without the depth test no depth is written.
void writeColor(std::int32_t width, std::int32_t height, const float* color) {
    const QelTmpGlStateCtrl depthTest(GL_DEPTH_TEST, false);
    glDrawPixels(width, height, GL_RGBA, GL_FLOAT, color);
    glGetError();
}

}  // namespace

void CQelScreenDisplay::resizeCache() {
    const std::int32_t width = windowContext.viewWidth();
    const std::int32_t height = windowContext.viewHeight();
    if (width == cacheWidth && height == cacheHeight) {
        return;
    }
    if (qel::pixelArea(cacheWidth, cacheHeight) < qel::pixelArea(width, height)) {
        cacheColor.reset();
        cacheDepth.reset();
        // The copy is empty until both are there: a failed allocation must not leave sizes without arrays.
        cacheWidth = cacheHeight = 0;
        auto color = std::make_unique<float[]>(qel::pixelArea(width, height) * kChannels);
        cacheDepth = std::make_unique<float[]>(qel::pixelArea(width, height));
        cacheColor = std::move(color);
    }
    cacheWidth = width;
    cacheHeight = height;
}

void CQelScreenDisplay::keepFrame() {
    glReadBuffer(GL_BACK);
    resizeCache();
    const qel::PixelPackScope packing;
    const PixelTransferScope transfer;
    glReadPixels(0, 0, cacheWidth, cacheHeight, GL_DEPTH_COMPONENT, GL_FLOAT, cacheDepth.get());
    glGetError();
    glReadPixels(0, 0, cacheWidth, cacheHeight, GL_RGBA, GL_FLOAT, cacheColor.get());
    glGetError();
}

std::int32_t CQelScreenDisplay::finishFrame() {
    makeCurrent();
    // Copy and depth are those of the window: a capture only gets the overlays.
    const bool isWindows = !capture.isDrawing();
    if (isWindows) {
        keepFrame();
    }
    const QelTmpGlStateCtrl texture(GL_TEXTURE_2D, false);
    const qel::ref_ptr<CQelTrackBall> controller(trackBall);
    if (showOverlay1) {
        controller->drawTrackBall();
    }
    if (showOverlay2) {
        controller->drawAxes();
    }
    swapBuffers();
    if (stereo) {
        controller->updateView();
    }
    return isWindows ? controller->refreshDepth() : 0;
}

std::int32_t CQelScreenDisplay::restoreCache() {
    setOrtho2D();
    if (drawDepth == 0) {
        // The copy is the finished picture: neither its alpha nor the host's texture may blend or colour it,
        // and nothing may clip it.
        const HostEffects effects;
        glDrawBuffer(GL_BACK);
        glPushAttrib(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | effects.attributes());
        glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
        unpackWithoutPadding();
        effects.switchOff();
        const PixelTransferScope transfer;
        glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_FALSE);
        const QelTmpGlStateCtrl depthTest(GL_DEPTH_TEST, true);
        writeDepth(cacheWidth, cacheHeight, cacheDepth.get());
        glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
        glClearColor(0.0F, 0.0F, 0.0F, 0.0F);
        writeColor(cacheWidth, cacheHeight, cacheColor.get());
        glPopClientAttrib();
        glPopAttrib();
    }
    ++drawDepth;
    return 1;
}
