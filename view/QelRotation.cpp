#include "QelRotation.h"

#include <cmath>

namespace qel {

namespace {

constexpr std::int32_t kBlock = 3;

template <class Function>
void forEachOfBlock(Function function) {
    for (std::int32_t row = 0; row < kBlock; ++row) {
        for (std::int32_t column = 0; column < kBlock; ++column) {
            function(row, column);
        }
    }
}

/// One minus a sum of two products, rounded once.
float oneMinus(float a, float b) {
    return static_cast<float>(1.0 - static_cast<double>(a + b));
}

}  // namespace

float getScale(const matrix<float>& m) {
    float sum = 0.0F;
    forEachOfBlock([&](std::int32_t row, std::int32_t column) {
        sum += m.element(row, column) * m.element(row, column);
    });
    return std::sqrt(sum / 3.0F);
}

void scaleRotation(matrix<float>& m, float scale) {
    forEachOfBlock([&](std::int32_t row, std::int32_t column) {
        m.setElement(row, column, m.element(row, column) * scale);
    });
}

void copyRotation(matrix<float>& m, const matrix<float>& rotation) {
    forEachOfBlock([&](std::int32_t row, std::int32_t column) {
        m.setElement(row, column, rotation.element(row, column));
    });
}

void setRotationKeepScale(matrix<float>& m, const matrix<float>& rotation) {
    const float scale = getScale(m);
    copyRotation(m, rotation);
    scaleRotation(m, scale);
}

void setRotationFromQuat(matrix<float>& m, const QuatF& quat) {
    const auto [x, y, z, w] = quat;
    const float n = x * x + y * y + z * z + w * w;
    const float s = n > 0.0F ? static_cast<float>(2.0 / static_cast<double>(n)) : 0.0F;
    const float xs = x * s;
    const float ys = y * s;
    const float zs = z * s;
    const float wx = w * xs;
    const float wy = w * ys;
    const float wz = w * zs;
    const float xx = x * xs;
    const float xy = x * ys;
    const float xz = x * zs;
    const float yy = y * ys;
    const float yz = y * zs;
    const float zz = z * zs;
    const float block[kBlock][kBlock] = {{oneMinus(zz, yy), xy - wz, xz + wy},
                                         {xy + wz, oneMinus(zz, xx), yz - wx},
                                         {xz - wy, yz + wx, oneMinus(yy, xx)}};
    forEachOfBlock(
        [&](std::int32_t row, std::int32_t column) { m.setElement(row, column, block[row][column]); });
    m.transpose();
}

}  // namespace qel
