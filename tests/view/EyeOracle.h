#pragma once

#include <Eigen/Geometry>
#include <numbers>

#include "CQelTrackBall.h"

/// The geometry of a camera, worked out from where it stands and not from OpenGL's matrices.

namespace qel::test {

inline Eigen::Vector3d toEigen(const XPnt3d& p) {
    return {p.x, p.y, p.z};
}
inline XPnt3d fromEigen(const Eigen::Vector3d& v) {
    return {v.x(), v.y(), v.z()};
}

class EyeOracle {
  public:
    explicit EyeOracle(CQelTrackBall& camera)
        : eye(toEigen(camera.getEye())),
          width(static_cast<double>(camera.getWidth())),
          height(static_cast<double>(camera.getHeight())),
          ortho(camera.isOrtho()),
          tangent(std::tan(camera.getFieldOfView() * std::numbers::pi / 360.0)),
          halfWidth(1.0 / camera.getProjectionMatrix()[0]) {
        const Eigen::Vector3d back = (eye - toEigen(camera.getTarget())).normalized();
        const Eigen::Vector3d right = toEigen(camera.getUp()).cross(back).normalized();
        axes.row(0) = right;
        axes.row(1) = back.cross(right);
        axes.row(2) = back;
    }

    /// A model point in eye coordinates: x to the right, y up, z towards the viewer.
    Eigen::Vector3d inEye(const Eigen::Vector3d& point) const { return axes * (point - eye); }

    /// A direction of eye coordinates in the model.
    Eigen::Vector3d inModel(const Eigen::Vector3d& direction) const { return axes.transpose() * direction; }

    /// The pixel of a model point, origin lower left.
    Eigen::Vector2d pixel(const Eigen::Vector3d& point) const {
        const Eigen::Vector3d seen = inEye(point);
        return {width * 0.5 + seen.x() / unitsPerPixel(seen.z()),
                height * 0.5 + seen.y() / unitsPerPixel(seen.z())};
    }

    /// The model point under a pixel that is as deep in the view as another point.
    Eigen::Vector3d pointUnder(const Eigen::Vector2d& at, const Eigen::Vector3d& asDeepAs) const {
        const double z = inEye(asDeepAs).z();
        const double scale = unitsPerPixel(z);
        return eye + inModel({(at.x() - width * 0.5) * scale, (at.y() - height * 0.5) * scale, z});
    }

    /// Model units of a pixel at a depth in eye coordinates.
    double unitsPerPixel(double z) const {
        return ortho ? 2.0 * halfWidth / width : -z * 2.0 * tangent / height;
    }

    Eigen::Vector3d eye;
    double width;
    double height;
    bool ortho;

  private:
    double tangent;
    double halfWidth;
    Eigen::Matrix3d axes;
};

/// A turn of the model about a point as a move of the camera: whatever the camera sees turns by `angle`
/// radians about `axis` (right-handed), so the camera itself goes the other way.
struct ModelTurn {
    Eigen::Vector3d center;
    Eigen::Vector3d axis;
    double angle = 0.0;

    Eigen::Vector3d direction(const Eigen::Vector3d& before) const {
        return Eigen::AngleAxisd(-angle, axis.normalized()) * before;
    }
    Eigen::Vector3d place(const Eigen::Vector3d& before) const { return center + direction(before - center); }
};

}  // namespace qel::test
