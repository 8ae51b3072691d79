#include "QelQuad.h"

#include <cmath>

#include "XPnt3d.h"

namespace qel {

QelQuad::~QelQuad() = default;

std::int32_t QelQuad::rotate(float ax, float ay, float az, double angle) {
    XPnt3d axis(static_cast<double>(ax), static_cast<double>(ay), static_cast<double>(az));
    axis.normalize();
    if (!(dot(axis, axis) > 0.0)) {
        return -1;
    }
    const double real = std::cos(angle * 0.5);
    const XPnt3d imaginary = axis * std::sin(angle * 0.5);
    // Hamilton product (turn * held): the left factor acts last.
    const QelQuad held = *this;
    w = real * held.w - imaginary.x * held.x - imaginary.y * held.y - imaginary.z * held.z;
    x = real * held.x + imaginary.x * held.w + imaginary.y * held.z - imaginary.z * held.y;
    y = real * held.y - imaginary.x * held.z + imaginary.y * held.w + imaginary.z * held.x;
    z = real * held.z + imaginary.x * held.y - imaginary.y * held.x + imaginary.z * held.w;
    return 1;
}

QelMatrix4d QelQuad::toMatrix() {
    QelMatrix4d matrix;
    QelQuad::toMatrix(matrix);
    return matrix;
}

std::int32_t QelQuad::toMatrix(QelMatrix4d& matrix) {
    // Dividing by the squared length keeps the result a pure rotation if the quaternion does not have unit
    // length.
    const double squared = w * w + x * x + y * y + z * z;
    const double s = squared > 0.0 ? 2.0 / squared : 0.0;
    matrix = QelMatrix4d{{{1.0 - s * (y * y + z * z), s * (x * y - w * z), s * (x * z + w * y), 0.0},
                          {s * (x * y + w * z), 1.0 - s * (x * x + z * z), s * (y * z - w * x), 0.0},
                          {s * (x * z - w * y), s * (y * z + w * x), 1.0 - s * (x * x + y * y), 0.0},
                          {0.0, 0.0, 0.0, 1.0}}};
    return 1;
}

}  // namespace qel
