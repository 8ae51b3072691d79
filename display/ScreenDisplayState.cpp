#include "CQelScreenDisplay.h"

CQelScreenDisplay::CQelScreenDisplay() : gl(new CQelGL()), trackBall(new CQelTrackBall()) {
    trackBall->AddRef();
    trackBall->setOwner(this);
}

CQelScreenDisplay::~CQelScreenDisplay() {
    // Contexts created here are destroyed with the display; one that the host lent stays, and stays current.
    previousContext.rememberUnless(ContextBinding::current(), capture.renderContext());
    previousContext.forget(windowContext.renderContext());
    endCapture();
    lentFont.follow(previousContext.remembered());
    lentFont.destroy();
    windowFont.destroy();
    trackBall->detachOwner();
    trackBall->Release();
    cacheColor.reset();
    cacheDepth.reset();
    windowContext.destroyContext();
    windowContext.dropLeftovers();
}

std::int32_t CQelScreenDisplay::getDC() {
    return deviceContext;
}

std::int32_t CQelScreenDisplay::getWindow() {
    return windowHandle;
}

IQelGL* CQelScreenDisplay::getGL() {
    return gl.get();
}

IQelTrackBall* CQelScreenDisplay::getTrackBall() {
    return trackBall;
}

std::int32_t CQelScreenDisplay::setBackColor(const qel::QelColor3f& color) {
    backColor = color;
    return 0;
}

qel::QelColor3f CQelScreenDisplay::getBackColor() {
    return backColor;
}

void CQelScreenDisplay::setShowOverlay1(bool show) {
    showOverlay1 = show;
}

bool CQelScreenDisplay::getShowOverlay1() {
    return showOverlay1;
}

void CQelScreenDisplay::setShowOverlay2(bool show) {
    showOverlay2 = show;
}

bool CQelScreenDisplay::getShowOverlay2() {
    return showOverlay2;
}

bool CQelScreenDisplay::isStereo() {
    return stereo;
}

std::int32_t CQelScreenDisplay::setStereoSeparation(float separation) {
    stereoSeparation = separation;
    return 0;
}

std::int32_t CQelScreenDisplay::reservedSlot30() {
    return 0;
}

std::int32_t CQelScreenDisplay::reservedSlot31() {
    return 0;
}

std::int32_t CQelScreenDisplay::reservedSlot32() {
    return 0;
}

std::int32_t CQelScreenDisplay::reservedSlot33() {
    return 0;
}

std::int32_t CQelScreenDisplay::attachObject(qel::QelReferenced* object) {
    if (object == nullptr) {
        return -1;
    }
    attachedObject = object;
    return 1;
}
