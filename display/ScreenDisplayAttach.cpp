#include "CQelScreenDisplay.h"
#include "Enve3d.h"
#include "detail/QelTruncate.h"

std::int32_t CQelScreenDisplay::attachWindow(std::int32_t window, bool stereoBuffers) {
    if (window == 0) {
        return 0;
    }
    windowHandle = window;
    stereo = stereoBuffers;
    const HWND hwnd = qel::handleFromNumber<HWND>(window);
    RECT client{};
    GetClientRect(hwnd, &client);
    qel::Enve3d area;
    area.xmin = client.left;
    area.xmax = client.right;
    area.ymin = client.top;
    area.ymax = client.bottom;
    area.Normalize();
    // The window's previous context is destroyed, and its fonts with it.
    previousContext.forget(windowContext.renderContext());
    if (lentFont.isIn(windowContext.renderContext())) {
        lentFont = BitmapFont();
    }
    windowFont = BitmapFont();
    const bool created = windowContext.createForWindow(
        qel::truncateToInt(area.Width()), qel::truncateToInt(area.HightY()), false, hwnd, stereoBuffers);
    deviceContext = qel::handleNumber(windowContext.deviceContext());
    renderContext = windowContext.renderContext();
    trackBall->setDisplay(this);
    // If no context was created, another view's may be current, which is left alone.
    if (created) {
        windowFont = BitmapFont(binding());
    }
    returnToCapture();
    return 0;
}

std::int32_t CQelScreenDisplay::attachDC(std::int32_t dc, std::int32_t rc) {
    if (dc == 0 || rc == 0) {
        return 0;
    }
    deviceContext = dc;
    renderContext = qel::handleFromNumber<HGLRC>(rc);
    stereo = false;
    trackBall->setDisplay(this);
    lentFont.follow(binding());
    if (glStateReady) {
        return 0;
    }
    // The host's context, also during a capture. If it cannot be made current, another view's may be, which
    // is left alone.
    if (binding().makeCurrent()) {
        setInitialState();
        lentFont = BitmapFont(binding());
        glStateReady = true;
    }
    returnToCapture();
    return 0;
}

// A host that attaches during a capture continues to draw into the bitmap.
void CQelScreenDisplay::returnToCapture() {
    if (capture.isDrawing()) {
        capture.makeCurrent();
    }
}

void CQelScreenDisplay::setInitialState() {
    glShadeModel(GL_SMOOTH);
    glHint(GL_PERSPECTIVE_CORRECTION_HINT, GL_NICEST);
    glCullFace(GL_BACK);
    glEnable(GL_AUTO_NORMAL);
    glEnable(GL_NORMALIZE);
    glDrawBuffer(GL_BACK);
    glEnable(GL_LIGHTING);
    glDepthFunc(GL_LEQUAL);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glEnable(GL_BLEND);
}

std::int32_t CQelScreenDisplay::onSize(std::int32_t width, std::int32_t height) {
    return setViewSize(width, height);
}

std::int32_t CQelScreenDisplay::setViewSize(std::int32_t width, std::int32_t height) {
    // A negative size would become a huge unsigned one.
    if (width < 0 || height < 0) {
        return 1;
    }
    trackBall->onResize(static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height));
    viewWidth = width;
    viewHeight = height;
    windowContext.setViewSize(width, height);
    return 1;
}
