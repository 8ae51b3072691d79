#include "QelMatrix4d.h"

namespace qel {

XPnt3d operator*(const QelMatrix4d& matrix, const XPnt3d& point) noexcept {
    const auto component = [&](const double(&row)[4]) {
        return row[0] * point.x + row[1] * point.y + row[2] * point.z + row[3];
    };
    return {component(matrix.element[0]), component(matrix.element[1]), component(matrix.element[2])};
}

}  // namespace qel
