#include <array>
#include <memory>

#include "AllBenches.h"
#include "QelMatrix.h"

/// The small matrices that the camera turns with, against arrays. No calls of OpenGL, so nothing but the
/// arithmetic is compared.

namespace qel::bench {

namespace {

using Values = std::array<double, 16>;

constexpr Values kAffine = {0.8, 0.1, 0.2, 0.0, -0.1, 0.9, 0.3, 0.0, 0.2, -0.3, 0.7, 0.0, 1.0, 2.0, 3.0, 1.0};

matrix<double> filled(const Values& values) {
    matrix<double> result(4, 4);
    for (std::int32_t i = 0; i < 16; ++i) {
        result.setElement(i / 4, i % 4, values[static_cast<std::size_t>(i)]);
    }
    return result;
}

struct MatrixScene {
    matrix<double> wide = filled(kAffine);
    Values values = kAffine;
    /// Keeps the compiler from leaving results out.
    volatile double kept = 0.0;
};

Values product(const Values& a, const Values& b) {
    Values result{};
    for (std::size_t row = 0; row < 4; ++row) {
        for (std::size_t column = 0; column < 4; ++column) {
            double sum = 0.0;
            for (std::size_t k = 0; k < 4; ++k) {
                sum += b[4 * k + column] * a[4 * row + k];
            }
            result[4 * row + column] = sum;
        }
    }
    return result;
}

template <class Module, class Bare>
void addArithmetic(Operations& all, const char* name, Module module, Bare bare) {
    const auto prepare = [module, bare](Size) {
        const auto scene = std::make_shared<MatrixScene>();
        Forms forms;
        forms.module = repeated([scene, module] { scene->kept = module(*scene); });
        if constexpr (!std::is_same_v<Bare, std::nullptr_t>) {
            forms.bare = repeated([scene, bare] { scene->kept = bare(*scene); });
        }
        return forms;
    };
    all.push_back({name, "call", Kind::Arithmetic, prepare, Likeness::None});
}

}  // namespace

void addMatrixBenches(Operations& all) {
    addArithmetic(
        all, "matrix product, 4 x 4",
        [](MatrixScene& scene) { return (scene.wide * scene.wide).element(3, 0); },
        [](MatrixScene& scene) {
            // Another value each time, so that the product is computed each time.
            scene.values[3] = scene.kept;
            return product(scene.values, scene.values)[12];
        });
    addArithmetic(
        all, "matrix inverse, 4 x 4", [](MatrixScene& scene) { return scene.wide.inverse().element(3, 0); },
        nullptr);
    addArithmetic(
        all, "transformPoint",
        [](MatrixScene& scene) {
            return transformPoint({0.1, 0.2, 0.3}, scene.wide).x;
        },
        [](MatrixScene& scene) {
            scene.values[0] = scene.kept;
            return 0.1 * scene.values[0] + 0.2 * scene.values[4] + 0.3 * scene.values[8] + scene.values[12];
        });
}

}  // namespace qel::bench
