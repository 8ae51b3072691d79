#include <memory>

#include "AllBenches.h"
#include "QelMatrix.h"

/// The small matrices that the camera turns with.

namespace qel::bench {

namespace {

constexpr double kAffine[16] = {0.8, 0.1,  0.2, 0.0, -0.1, 0.9, 0.3, 0.0,
                                0.2, -0.3, 0.7, 0.0, 1.0,  2.0, 3.0, 1.0};

struct MatrixScene {
    matrix<double> wide{4, 4};
    /// Keeps the compiler from leaving results out.
    volatile double kept = 0.0;

    MatrixScene() {
        for (std::int32_t i = 0; i < 16; ++i) {
            wide.setElement(i / 4, i % 4, kAffine[i]);
        }
    }
};

template <class Compute>
void addArithmetic(Operations& all, const char* name, Compute compute) {
    const auto prepare = [compute](Size) {
        const auto scene = std::make_shared<MatrixScene>();
        Forms forms;
        forms.module = repeated([scene, compute] { scene->kept = compute(scene->wide); });
        return forms;
    };
    all.push_back({name, "call", Kind::Arithmetic, prepare});
}

}  // namespace

void addMatrixBenches(Operations& all) {
    using Matrix = matrix<double>;
    addArithmetic(all, "matrix product, 4 x 4", [](Matrix& wide) { return (wide * wide).element(3, 0); });
    addArithmetic(all, "matrix inverse, 4 x 4", [](Matrix& wide) { return wide.inverse().element(3, 0); });
    addArithmetic(all, "transformPoint", [](Matrix& wide) {
        return transformPoint({0.1, 0.2, 0.3}, wide).x;
    });
}

}  // namespace qel::bench
