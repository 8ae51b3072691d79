#include "detail/QelTruncate.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "ExtremeNumbers.h"

namespace qel::test {
namespace {

struct TruncateCase {
    const char* name;
    double value;
    std::int32_t expected;
};

constexpr TruncateCase kTruncateCases[] = {
    {"Zero", 0.0, 0},
    {"MinusZero", -0.0, 0},
    {"Whole", 7.0, 7},
    {"HalfUp", 0.5, 0},
    {"HalfDown", -0.5, 0},
    {"JustBelowOne", 0.9999999999999999, 0},
    {"JustAboveMinusOne", -0.9999999999999999, 0},
    {"PositiveFraction", 2.9, 2},
    {"NegativeFraction", -2.9, -2},
    {"Denormal", std::numeric_limits<double>::denorm_min(), 0},
    {"Largest", 2147483647.0, 2147483647},
    {"LargestAndAFraction", 2147483647.9999995, 2147483647},
    {"OneTooHigh", 2147483648.0, INT32_MIN},
    {"Lowest", -2147483648.0, INT32_MIN},
    {"LowestAndAFraction", -2147483648.9999995, INT32_MIN},
    {"OneAboveLowest", -2147483647.0, -2147483647},
    {"OneTooLow", -2147483649.0, INT32_MIN},
    {"HugePositive", 1e300, INT32_MIN},
    {"HugeNegative", -1e300, INT32_MIN},
    {"Infinity", kInfinity, INT32_MIN},
    {"MinusInfinity", -kInfinity, INT32_MIN},
    {"NotANumber", kNaN, INT32_MIN},
};

class QelTruncate : public ::testing::TestWithParam<TruncateCase> {};

TEST_P(QelTruncate, CutsTowardZeroAndAnswersTheLowestForWhatDoesNotFit) {
    EXPECT_EQ(truncateToInt(GetParam().value), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(, QelTruncate, ::testing::ValuesIn(kTruncateCases),
                         [](const auto& tested) { return tested.param.name; });

}  // namespace
}  // namespace qel::test
