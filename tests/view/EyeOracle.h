#pragma once

#include <numbers>

#include "CQelTrackBall.h"
#include "GlOracle.h"

/// The geometry of a camera, worked out from where it stands and not from OpenGL's matrices.

namespace qel::test {

class EyeOracle {
  public:
    explicit EyeOracle(CQelTrackBall& camera)
        : eye(asGlm(camera.getEye())),
          width(static_cast<double>(camera.getWidth())),
          height(static_cast<double>(camera.getHeight())),
          ortho(camera.isOrtho()),
          tangent(std::tan(camera.getFieldOfView() * std::numbers::pi / 360.0)),
          halfWidth(1.0 / camera.getProjectionMatrix()[0]) {
        const glm::dvec3 back = glm::normalize(eye - asGlm(camera.getTarget()));
        const glm::dvec3 right = glm::normalize(glm::cross(asGlm(camera.getUp()), back));
        axes = {right, glm::cross(back, right), back};
    }

    /// A model point in eye coordinates: x to the right, y up, z towards the viewer.
    glm::dvec3 inEye(const glm::dvec3& point) const { return (point - eye) * axes; }

    /// A direction of eye coordinates in the model.
    glm::dvec3 inModel(const glm::dvec3& direction) const { return axes * direction; }

    /// The pixel of a model point, origin lower left.
    glm::dvec2 pixel(const glm::dvec3& point) const {
        const glm::dvec3 seen = inEye(point);
        return {width * 0.5 + seen.x / unitsPerPixel(seen.z), height * 0.5 + seen.y / unitsPerPixel(seen.z)};
    }

    /// The model point under a pixel that is as deep in the view as another point.
    glm::dvec3 pointUnder(const glm::dvec2& at, const glm::dvec3& asDeepAs) const {
        const double z = inEye(asDeepAs).z;
        const double scale = unitsPerPixel(z);
        return eye + inModel({(at.x - width * 0.5) * scale, (at.y - height * 0.5) * scale, z});
    }

    /// Model units of a pixel at a depth in eye coordinates.
    double unitsPerPixel(double z) const {
        return ortho ? 2.0 * halfWidth / width : -z * 2.0 * tangent / height;
    }

    glm::dvec3 eye;
    double width;
    double height;
    bool ortho;

  private:
    double tangent;
    double halfWidth;
    glm::dmat3 axes;
};

/// A turn of the model about a point as a move of the camera: whatever the camera sees turns by `angle`
/// radians about `axis` (right-handed), so the camera itself goes the other way.
struct ModelTurn {
    glm::dvec3 center;
    glm::dvec3 axis;
    double angle = 0.0;

    glm::dvec3 direction(const glm::dvec3& before) const {
        // Without a turn there may be no axis either.
        return angle == 0.0 ? before : glm::dmat3(glm::rotate(glm::dmat4(1.0), -angle, axis)) * before;
    }
    glm::dvec3 place(const glm::dvec3& before) const { return center + direction(before - center); }
};

}  // namespace qel::test
