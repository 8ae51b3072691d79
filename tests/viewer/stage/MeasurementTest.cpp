#include "Measurement.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace {

using qelview::measure;
using qelview::Measurement;
using qelview::Points;
using qelview::UpAxis;

std::string valueOf(const std::vector<qelview::MeasurementLine>& lines, const std::string& name) {
    const auto found =
        std::find_if(lines.begin(), lines.end(), [&](const auto& line) { return line.name == name; });
    return found == lines.end() ? "" : found->value;
}

TEST(Measurement, OfTwoPointsIsTheirDistanceAndSlope) {
    const Measurement measured = measure({{1, 2, 3}, {4, 6, 15}}, UpAxis::Z);
    EXPECT_EQ(measured.step.x, 3.0);
    EXPECT_EQ(measured.step.y, 4.0);
    EXPECT_EQ(measured.step.z, 12.0);
    EXPECT_DOUBLE_EQ(measured.distance, 13.0);
    EXPECT_DOUBLE_EQ(measured.horizontal, 5.0);
    EXPECT_EQ(measured.rise, 12.0);
    // The tangent is 12 / 5.
    EXPECT_NEAR(measured.slopeDegrees, 67.3801350519596, 1e-12);
    EXPECT_EQ(measured.area, 0.0);
}

TEST(Measurement, IsHorizontalAcrossTheAxisThatPointsUp) {
    const Measurement measured = measure({{0, 0, 0}, {3, -12, 4}}, UpAxis::Y);
    EXPECT_DOUBLE_EQ(measured.horizontal, 5.0);
    EXPECT_EQ(measured.rise, -12.0);
    EXPECT_LT(measured.slopeDegrees, -67.0);
    EXPECT_EQ(measured.step.y, -12.0);
}

TEST(Measurement, OfMorePointsIsTheirPathAndArea) {
    // A rectangle of 3 x 5 that rises 4 on its 5: 3 x 3 from above.
    const Measurement measured = measure({{0, 0, 0}, {3, 0, 0}, {3, 3, 4}, {0, 3, 4}}, UpAxis::Z);
    EXPECT_DOUBLE_EQ(measured.pathLength, 11.0);
    EXPECT_DOUBLE_EQ(measured.distance, 3.0);
    EXPECT_DOUBLE_EQ(measured.area, 15.0);
    EXPECT_DOUBLE_EQ(measured.areaFromAbove, 9.0);
    // A dart, entered clockwise.
    EXPECT_DOUBLE_EQ(measure({{0, 0, 0}, {0, 4, 0}, {1, 1, 0}, {4, 0, 0}}, UpAxis::Z).area, 4.0);
}

TEST(Measurement, OfOnePointOrTheSamePointTwiceIsNothing) {
    for (const Points& points : {Points{{5, 6, 7}}, Points{{5, 6, 7}, {5, 6, 7}}}) {
        const Measurement measured = measure(points, UpAxis::Z);
        EXPECT_EQ(measured.distance, 0.0);
        EXPECT_EQ(measured.slopeDegrees, 0.0);
        EXPECT_EQ(measured.pathLength, 0.0);
    }
}

TEST(MeasurementLines, GrowWithThePoints) {
    const qel::XPnt3d origin(500000, 4000000, 100);
    EXPECT_EQ(qelview::measurementLines({{0, 0, 0}}, origin, UpAxis::Z, 100.0).size(), 3U);
    const auto two = qelview::measurementLines({{0, 0, 0}, {0.001, 0, 0.0005}}, origin, UpAxis::Z, 100.0);
    EXPECT_EQ(valueOf(two, "x"), "500000.0010");
    EXPECT_EQ(valueOf(two, "dx"), "0.0010");
    EXPECT_EQ(valueOf(two, "distance"), "0.0011");
    EXPECT_EQ(valueOf(two, "slope"), "26.57 deg (50.0 %)");
    EXPECT_EQ(valueOf(two, "area"), "");
    const auto upwards = qelview::measurementLines({{0, 0, 0}, {0, 0, 2}}, origin, UpAxis::Z, 100.0);
    EXPECT_EQ(valueOf(upwards, "slope"), "90.00 deg");
    const auto three = qelview::measurementLines({{0, 0, 0}, {4, 0, 0}, {4, 2, 0}}, origin, UpAxis::Z, 100.0);
    EXPECT_EQ(valueOf(three, "path"), "6.0000");
    EXPECT_EQ(valueOf(three, "area"), "4.0000");
}

TEST(MeasurementTable, LosesNoDigitFarFromTheOrigin) {
    const std::string table = qelview::measurementTable({{0, 0, 0}, {0, 0.0001, 0}, {1, 0, 0}},
                                                        {635578.31, 848889.13, 406.36}, UpAxis::Z);
    EXPECT_EQ(table,
              "point\tx\ty\tz\tdx\tdy\tdz\tdistance\thorizontal\tslope (deg)\tpath\r\n"
              "1\t635578.31\t848889.13\t406.36\r\n"
              "2\t635578.31\t848889.1301\t406.36\t0\t0.0001\t0\t0.0001\t0.0001\t0\t0.0001\r\n"
              "3\t635579.31\t848889.13\t406.36\t1\t-0.0001\t0\t1.000000005\t1.000000005\t0\t1.000100005\r\n"
              "area\t5e-05\r\narea from above\t5e-05\r\n");
}

}  // namespace
