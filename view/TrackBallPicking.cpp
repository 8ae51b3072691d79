#include <algorithm>
#include <cmath>
#include <cstring>

#include "CQelTrackBall.h"
#include "FiniteArguments.h"
#include "QelGl.h"
#include "QelPredicates.h"
#include "detail/FlatBox.h"
#include "detail/PixelDepth.h"
#include "detail/PixelPackScope.h"
#include "detail/QelTruncate.h"

namespace {

/// Half the side, in pixels, of the square in which a pick searches for an object nearby.
constexpr double kPickReach = 20.0;
/// The largest square of depth values that results, edges rounded.
constexpr std::size_t kMostPickPixels = std::size_t{42} * 42;
/// A float of such bytes is NaN.
constexpr int kNotANumberByte = 0xFF;
constexpr double kOnPlane = 0.000001;

/// Mean depth of what is drawn in the square around a window position, clipped to the rectangle of the view.
/// Returns false if nothing is drawn there.
bool meanDepthAround(double x, double y, const qel::Enve2d& view, double& mean) {
    const double left = std::max({0.0, view.xmin, x - kPickReach});
    const double bottom = std::max({0.0, view.ymin, y - kPickReach});
    const double right = std::min(x + kPickReach, view.xmax - 1.0);
    const double top = std::min(y + kPickReach, view.ymax - 1.0);
    // A pick outside the view has an empty square, whose bounds may not fit an integer.
    if (right <= left || top <= bottom) {
        return false;
    }
    const std::int32_t x0 = qel::truncateToInt(left);
    const std::int32_t y0 = qel::truncateToInt(bottom);
    const std::int32_t x1 = qel::truncateToInt(right);
    const std::int32_t y1 = qel::truncateToInt(top);
    if (!qel::isReadablePixel(x1, y1)) {
        return false;
    }
    const std::int32_t width = x1 - x0;
    const std::int32_t height = y1 - y0;
    const std::size_t area = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    float depths[kMostPickPixels];
    // Values that OpenGL does not write stay NaN and so count as not drawn.
    std::memset(depths, kNotANumberByte, area * sizeof *depths);
    {
        const qel::PixelPackScope packing;
        glReadPixels(x0, y0, width, height, GL_DEPTH_COMPONENT, GL_FLOAT, depths);
    }
    double sum = 0.0;
    std::size_t drawn = 0;
    for (std::size_t index = 0; index < area; ++index) {
        if (depths[index] < qel::kBackgroundDepth) {
            sum += static_cast<double>(depths[index]);
            ++drawn;
        }
    }
    mean = drawn > 0 ? sum / static_cast<double>(drawn) : 0.0;
    return drawn > 0;
}

}  // namespace

float CQelTrackBall::depthAt(double x, double y) {
    if (ownerDetached) {
        return qel::kBackgroundDepth;
    }
    glReadBuffer(GL_BACK);
    return qel::readPixelDepth(qel::truncateToInt(x), qel::truncateToInt(y));
}

qel::XPnt3d CQelTrackBall::getModelPntAt(double x, double y) {
    if (!qel::areFinite(x, y)) {
        return qel::XPnt3d::invalid();
    }
    const float depth = depthAt(x, y);
    return depth >= qel::kBackgroundDepth ? qel::XPnt3d::invalid()
                                          : unProject(x, y, static_cast<double>(depth));
}

qel::XPnt3d CQelTrackBall::pickModelPnt(double x, double y) {
    if (!qel::areFinite(x, y)) {
        return target;
    }
    double depth = static_cast<double>(depthAt(x, y));
    if (depth >= 1.0 && (ownerDetached || !meanDepthAround(x, y, viewInWindow(), depth))) {
        depth = getMeanDepth();
    }
    return unProject(x, y, depth);
}

bool CQelTrackBall::isBoxInRect(const qel::Enve2d& rect, const qel::Enve3d& box) {
    const qel::Enve3d solid = qel::withZRange(box);
    qel::Enve2d image;
    image.setInvalid();
    for (const double z : {solid.zmin, solid.zmax}) {
        const qel::XPnt3d corners[] = {{box.xmin, box.ymin, z},
                                       {box.xmax, box.ymin, z},
                                       {box.xmax, box.ymax, z},
                                       {box.xmin, box.ymax, z}};
        for (const qel::XPnt3d& corner : corners) {
            const qel::XPnt3d window = project(corner.x, corner.y, corner.z);
            if (window.z < 1.0) {
                image.SetBox(window);
            }
        }
    }
    return rect.isIntersect(image);
}

bool CQelTrackBall::isBoxVisible(const qel::Enve3d& box) {
    return isBoxInRect(viewInWindow(), box);
}

bool CQelTrackBall::isPntInView(double x, double y, double z) {
    const qel::Enve2d view = viewInWindow();
    const qel::XPnt3d n00 = unProject(view.xmin, view.ymin, 0.0);
    const qel::XPnt3d n10 = unProject(view.xmax, view.ymin, 0.0);
    const qel::XPnt3d n01 = unProject(view.xmin, view.ymax, 0.0);
    const qel::XPnt3d n11 = unProject(view.xmax, view.ymax, 0.0);
    const qel::XPnt3d f00 = unProject(view.xmin, view.ymin, 1.0);
    const qel::XPnt3d f10 = unProject(view.xmax, view.ymin, 1.0);
    const qel::XPnt3d f01 = unProject(view.xmin, view.ymax, 1.0);
    const qel::XPnt3d f11 = unProject(view.xmax, view.ymax, 1.0);
    const qel::XPnt3d point(x, y, z);
    const auto inFront = [&](const qel::XPnt3d& a, const qel::XPnt3d& b, const qel::XPnt3d& c) {
        return qel::isPntInFront(a, b, c, point, kOnPlane) != 0;
    };
    return inFront(n11, f11, f10) && inFront(n01, n00, f00) && inFront(n00, n10, f10) &&
           inFront(n11, n01, f01) && inFront(f01, f00, f10) && inFront(n10, n00, n01);
}

bool isLineThroughQuad(const qel::XPnt3d& p0, const qel::XPnt3d& p1, const qel::XPnt3d& a,
                       const qel::XPnt3d& b, const qel::XPnt3d& c, const qel::XPnt3d& d) {
    qel::XPnt3d hit;
    if (!qel::intersect(a, b, c, p0, p1, hit)) {
        return false;
    }
    // A point off the plane makes each edge span a plane with it.
    const qel::XPnt3d off = hit + qel::cross(c, a, b);
    const auto inside = [&](const qel::XPnt3d& from, const qel::XPnt3d& to) {
        return qel::isPntInFront(off, to, from, hit, kOnPlane) != 0;
    };
    return inside(a, b) && inside(b, c) && inside(c, d) && inside(d, a);
}
