#include "CQelTransform2d.h"
#include "QelGl.h"
#include "detail/FlatBox.h"
#include "detail/PixelDepth.h"
#include "detail/QelTruncate.h"

namespace {

/// What lies up to this far above and below the view extent, in model units, is inside the depth range.
constexpr double kDepthMargin = 3000.0;

/// OpenGL's matrices and viewport at the time of a conversion.
struct CurrentMatrices {
    GLdouble projection[16] = {};
    GLdouble modelview[16] = {};
    GLint viewport[4] = {};

    CurrentMatrices() {
        glGetDoublev(GL_PROJECTION_MATRIX, projection);
        glGetDoublev(GL_MODELVIEW_MATRIX, modelview);
        glGetIntegerv(GL_VIEWPORT, viewport);
    }
};

}  // namespace

bool CQelTransform2d::applyProjection() {
    if (fitPending) {
        const qel::DeviceRect rectangle{
            qel::truncateToInt(deviceExtent.xmin), qel::truncateToInt(deviceExtent.xmax),
            qel::truncateToInt(deviceExtent.ymin), qel::truncateToInt(deviceExtent.ymax)};
        fitExtentToDevice(rectangle, viewExtent, viewExtent);
        fitPending = false;
    }
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    // Near is the larger number: depth grows upwards. Hosts draw maps in order, without the depth test.
    const qel::Enve3d shown = qel::withZRange(viewExtent);
    glOrtho(shown.xmin, shown.xmax, shown.ymin, shown.ymax, shown.zmax + kDepthMargin,
            shown.zmin - kDepthMargin);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    return true;
}

bool CQelTransform2d::resizeViewport() {
    glViewport(0, 0, qel::truncateToInt(deviceExtent.Width()), qel::truncateToInt(deviceExtent.HightY()));
    if (!depthPicking) {
        applyProjection();
    }
    return true;
}

bool CQelTransform2d::fitExtentToDevice(const qel::DeviceRect& rectangle, const qel::Enve3d& source,
                                        qel::Enve3d& destination) {
    const double width = static_cast<double>(rectangle.right) - rectangle.left;
    const double height = static_cast<double>(rectangle.bottom) - rectangle.top;
    const double scaleX = source.Width() / width;
    const double scaleY = source.HightY() / height;
    const double scale = scaleX > scaleY ? scaleX : scaleY;
    const double centerX = (source.xmin + source.xmax) * 0.5;
    const double centerY = (source.ymin + source.ymax) * 0.5;
    destination = source;
    destination.xmin = centerX - width * scale * 0.5;
    destination.xmax = centerX + width * scale * 0.5;
    destination.ymin = centerY - height * scale * 0.5;
    destination.ymax = centerY + height * scale * 0.5;
    return true;
}

void CQelTransform2d::projectPoint(const qel::XPnt3d& point, std::int32_t& x, std::int32_t& y) {
    const CurrentMatrices current;
    qel::XPnt3d window;
    gluProject(point.x - origin.x, point.y - origin.y, point.z - origin.z, current.modelview,
               current.projection, current.viewport, &window.x, &window.y, &window.z);
    x = qel::truncateToInt(window.x);
    // Not flipped: hosts that draw at this pixel need OpenGL's row.
    y = qel::truncateToInt(window.y);
}

qel::XPnt3d CQelTransform2d::unprojectPixel(std::int32_t x, std::int32_t y) {
    const std::int32_t row = qel::truncateToInt(deviceExtent.HightY() - y);
    // Read in both cases: existing hosts rely on it.
    const float read = qel::readPixelDepth(x, row);
    const double depth = depthPicking ? static_cast<double>(read) : 0.0;
    const CurrentMatrices current;
    qel::XPnt3d point;
    gluUnProject(x, row, depth, current.modelview, current.projection, current.viewport, &point.x, &point.y,
                 &point.z);
    return {point.x + origin.x, point.y + origin.y, point.z + origin.z};
}

std::int32_t CQelTransform2d::worldToDevice(qel::XPnt3d point, std::int32_t* x, std::int32_t* y) {
    if (x != nullptr && y != nullptr) {
        projectPoint(point, *x, *y);
    }
    return 0;
}

std::int32_t CQelTransform2d::deviceToWorld(std::int32_t x, std::int32_t y, qel::XPnt3d& point) {
    point = unprojectPixel(x, y);
    return 0;
}
