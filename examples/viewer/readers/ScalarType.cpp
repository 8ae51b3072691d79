#include "ScalarType.h"

#include <array>
#include <limits>
#include <type_traits>

namespace qelview {

namespace {

struct Known {
    std::size_t size;
    double maxValue;
    double (*read)(const char*, ByteOrder);
    void (*readColumn)(const char*, std::size_t, std::size_t, ByteOrder, double*);
};

template <class Scalar>
double readWidened(const char* from, ByteOrder order) {
    if constexpr (std::is_same_v<Scalar, double>) {
        return readScalar<double>(from, order);
    } else {
        return static_cast<double>(readScalar<Scalar>(from, order));
    }
}

template <class Scalar>
void readWidenedColumn(const char* from, std::size_t stride, std::size_t count, ByteOrder order,
                       double* into) {
    for (std::size_t i = 0; i < count; ++i) {
        into[i] = readWidened<Scalar>(from + i * stride, order);
    }
}

template <class Scalar>
constexpr Known known() {
    using Limits = std::numeric_limits<Scalar>;
    if constexpr (Limits::is_integer) {
        return {sizeof(Scalar), static_cast<double>(Limits::max()), readWidened<Scalar>,
                readWidenedColumn<Scalar>};
    } else {
        return {sizeof(Scalar), 1.0, readWidened<Scalar>, readWidenedColumn<Scalar>};
    }
}

/// In the order of the types.
constexpr std::array<Known, 8> kKnown{known<std::int8_t>(),   known<std::uint8_t>(), known<std::int16_t>(),
                                      known<std::uint16_t>(), known<std::int32_t>(), known<std::uint32_t>(),
                                      known<float>(),         known<double>()};

const Known& knownOf(ScalarType type) {
    return kKnown.at(static_cast<std::size_t>(type));
}

}  // namespace

std::size_t sizeOf(ScalarType type) {
    return knownOf(type).size;
}

double readAs(ScalarType type, const char* from, ByteOrder order) {
    return knownOf(type).read(from, order);
}

void readColumn(ScalarType type, const char* from, std::size_t stride, std::size_t count, ByteOrder order,
                double* into) {
    knownOf(type).readColumn(from, stride, count, order, into);
}

double maxValueOf(ScalarType type) {
    return knownOf(type).maxValue;
}

}  // namespace qelview
