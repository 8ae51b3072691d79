#include "ViewSubject.h"

#include <gtest/gtest.h>

#include "CQelTrackBall.h"
#include "QelGl.h"
#include "kit/CallTrace.h"
#ifdef _WIN32
#include "QelDisplay64t.h"
#endif

namespace qel::test {

ViewSubject::ViewSubject(int width, int height) : surface(width, height) {
#ifdef _WIN32
    display = adopt(newScreenDisplay());
    display->attachDC(static_cast<std::int32_t>(surface.dc()), static_cast<std::int32_t>(surface.rc()));
    controller = display->getTrackBall();
#else
    held = newTrackBall().get();
    controller = held.get();
#endif
    controller->onResize(static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height));
}

ViewSubject::~ViewSubject() {
    expectNoGlErrorButTheMissingBackBuffer();
}

ref_ptr<CQelTrackBall> newTrackBall() {
    return ref_ptr<CQelTrackBall>(new CQelTrackBall);
}

void expectNoGlErrorButTheMissingBackBuffer() {
    const CallTrace::Pause unrecorded;
    GLboolean hasBackBuffer = GL_FALSE;
    glGetBooleanv(GL_DOUBLEBUFFER, &hasBackBuffer);
    const GLenum error = glGetError();
    if (hasBackBuffer != GL_FALSE || error != GL_INVALID_OPERATION) {
        EXPECT_EQ(error, static_cast<GLenum>(GL_NO_ERROR));
    }
}

}  // namespace qel::test
