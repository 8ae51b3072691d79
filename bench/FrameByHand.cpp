#include "FrameByHand.h"

namespace qel::bench {

void beginFrameByHand(const BareView& view) {
    makeCurrent(view);
    glDrawBuffer(GL_BACK);
    glClearColor(0.0F, 0.0F, 0.0F, 1.0F);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    setLights(view);
    GLint ignored[16];
    glGetIntegerv(GL_LIGHT0, ignored);
}

void endDrawByHand() {
    glDrawBuffer(GL_BACK);
    glGetError();
}

void beginDrawByHand(const BareView& view) {
    makeCurrent(view);
    endDrawByHand();
}

void endFrameByHand(const BareView& view) {
    glDrawBuffer(GL_BACK);
    glGetError();
    asLines(QelColor3f(1.0F, 0.0F, 0.0F), 2.0F, false, false, [] {
        glBegin(GL_LINES);
        glVertex3d(8.0, 10.0, 0.0);
        glVertex3d(12.0, 10.0, 0.0);
        glVertex3d(10.0, 8.0, 0.0);
        glVertex3d(10.0, 12.0, 0.0);
        glVertex3d(10.0, 10.0, -2.0);
        glVertex3d(10.0, 10.0, 2.0);
        glEnd();
    });
    SwapBuffers(view.dc);
    loadCamera(view);
}

}  // namespace qel::bench
