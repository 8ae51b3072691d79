#include "ScalarType.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace {

using qelview::ByteOrder;
using qelview::ScalarType;

struct Scalar {
    const char* name;
    ScalarType type;
    /// With the lowest byte first.
    std::string bytes;
    double value;
    double whole;
};

class ScalarTypeScalarOf : public testing::TestWithParam<Scalar> {};

TEST_P(ScalarTypeScalarOf, IsReadInBothByteOrders) {
    const Scalar& scalar = GetParam();
    const qelview::ScalarReading& reading = qelview::readingOf(scalar.type);
    ASSERT_EQ(reading.size, scalar.bytes.size());
    EXPECT_EQ(reading.maxValue, scalar.whole);
    EXPECT_EQ(reading.read(scalar.bytes.data(), ByteOrder::Little), scalar.value);
    const std::string turned(scalar.bytes.rbegin(), scalar.bytes.rend());
    EXPECT_EQ(reading.read(turned.data(), ByteOrder::Big), scalar.value);
}

TEST_P(ScalarTypeScalarOf, IsReadFromEachRecord) {
    const Scalar& scalar = GetParam();
    const std::string record = "x" + scalar.bytes + "yz";
    const std::string records = record + std::string(record.size(), '\0') + record;
    std::array<double, 4> values{7, 7, 7, 7};
    qelview::readingOf(scalar.type)
        .readColumn(records.data() + 1, record.size(), 3, ByteOrder::Little, values.data());
    EXPECT_EQ(values, (std::array<double, 4>{scalar.value, 0, scalar.value, 7}));
}

const std::vector<Scalar> kScalars{
    {"Int8", ScalarType::Int8, "\x80", -128.0, 127.0},
    {"Uint8", ScalarType::Uint8, "\x80", 128.0, 255.0},
    {"Int16", ScalarType::Int16, "\x01\xFF", -255.0, 32767.0},
    {"Uint16", ScalarType::Uint16, "\x01\xFF", 65281.0, 65535.0},
    {"Int32", ScalarType::Int32, std::string("\x02\x00\x00\x80", 4), -2147483646.0, 2147483647.0},
    {"Uint32", ScalarType::Uint32, std::string("\x02\x00\x00\x80", 4), 2147483650.0, 4294967295.0},
    {"Float32", ScalarType::Float32, std::string("\x00\x00\x20\xC0", 4), -2.5, 1.0},
    {"Float64", ScalarType::Float64, std::string("\x00\x00\x00\x00\x00\x00\x04\xC0", 8), -2.5, 1.0},
};
INSTANTIATE_TEST_SUITE_P(Types, ScalarTypeScalarOf, testing::ValuesIn(kScalars),
                         [](const auto& each) { return each.param.name; });

}  // namespace
