#include <algorithm>
#include <iterator>

#include "CQelTrackBall.h"
#include "QelGl.h"

std::int32_t CQelTrackBall::readGlMatrices() {
    makeDisplayCurrent();
    if (held.modelviewDirty) {
        glGetDoublev(GL_MODELVIEW_MATRIX, held.modelview);
        held.modelviewDirty = false;
    }
    if (held.projectionDirty) {
        glGetDoublev(GL_PROJECTION_MATRIX, held.projection);
        held.projectionDirty = false;
    }
    if (held.viewportDirty) {
        glGetIntegerv(GL_VIEWPORT, held.viewport);
        held.viewportDirty = false;
    }
    return 0;
}

const double* CQelTrackBall::getModelviewMatrix() {
    updateGlMatrices();
    return held.modelview;
}

const double* CQelTrackBall::getProjectionMatrix() {
    updateGlMatrices();
    return held.projection;
}

void CQelTrackBall::getModelViewMatrix(qel::matrix<double>& m) {
    double values[16] = {};
    if (ownerDetached) {
        std::copy(std::begin(held.modelview), std::end(held.modelview), values);
    } else {
        glGetDoublev(GL_MODELVIEW_MATRIX, values);
    }
    // OpenGL's columns become the rows of a matrix for row vectors.
    for (std::int32_t index = 0; index < 16; ++index) {
        m.setElement(index / 4, index % 4, values[index]);
    }
}

qel::XPnt3d CQelTrackBall::unProject(double x, double y, double z) {
    updateGlMatrices();
    qel::XPnt3d point;
    gluUnProject(x, y, z, held.modelview, held.projection, held.viewport, &point.x, &point.y, &point.z);
    return point;
}

qel::XPnt3d CQelTrackBall::unProjectPnt(const qel::XPnt3d& windowPoint) {
    return unProject(windowPoint.x, windowPoint.y, windowPoint.z);
}

qel::XPnt3d CQelTrackBall::project(double x, double y, double z) {
    updateGlMatrices();
    qel::XPnt3d window;
    gluProject(x, y, z, held.modelview, held.projection, held.viewport, &window.x, &window.y, &window.z);
    return window;
}

qel::XPnt3d CQelTrackBall::projectPnt(const qel::XPnt3d& modelPoint) {
    return project(modelPoint.x, modelPoint.y, modelPoint.z);
}
