#pragma once

#include <cstdint>

#include "QelBaseExport.h"
#include "QelMatrix4d.h"

namespace qel {

/// A quaternion of four doubles that holds a rotation; (1, 0, 0, 0) is the identity.
class QEL_BASE_API QelQuad {
  public:
    /// The identity.
    QelQuad() noexcept = default;
    /// Takes the real part first.
    QelQuad(double realPart, double xPart, double yPart, double zPart) noexcept
        : w(realPart), x(xPart), y(yPart), z(zPart) {}
    /// @{
    /// A copy holds the same rotation.
    QelQuad(const QelQuad&) noexcept = default;
    QelQuad& operator=(const QelQuad&) noexcept = default;
    virtual ~QelQuad();
    /// @}

    /// Appends a right-handed rotation about an axis, applied after the rotation already held.
    /// @param ax, ay, az the axis; its length does not matter.
    /// @param angle in radians.
    /// @return 1; -1 for a zero axis, which changes nothing.
    virtual std::int32_t rotate(float ax, float ay, float az, double angle);
    /// The rotation as a matrix that acts on column points.
    virtual QelMatrix4d toMatrix();
    /// Writes the same to `matrix`. Returns 1.
    virtual std::int32_t toMatrix(QelMatrix4d& matrix);

  private:
    double w = 1.0;
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

}  // namespace qel
