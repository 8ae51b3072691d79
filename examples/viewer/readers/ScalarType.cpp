#include "ScalarType.h"

#include <array>
#include <limits>
#include <type_traits>

namespace qelview {

namespace {

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
constexpr ScalarReading reading() {
    using Limits = std::numeric_limits<Scalar>;
    constexpr auto kLargest = static_cast<double>((std::uint64_t{1} << Limits::digits) - 1);
    return {sizeof(Scalar), Limits::is_integer ? kLargest : 1.0, readWidened<Scalar>,
            readWidenedColumn<Scalar>};
}

/// In the order of the types.
constexpr std::array<ScalarReading, 8> kReadings{
    reading<std::int8_t>(),  reading<std::uint8_t>(),  reading<std::int16_t>(), reading<std::uint16_t>(),
    reading<std::int32_t>(), reading<std::uint32_t>(), reading<float>(),        reading<double>()};

}  // namespace

const ScalarReading& readingOf(ScalarType type) {
    return kReadings.at(static_cast<std::size_t>(type));
}

}  // namespace qelview
