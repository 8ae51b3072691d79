#include "SixAxisReports.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

using qelview::motionsOf;
using qelview::MotionStep;

using Bytes = std::vector<std::uint8_t>;

Bytes reportOf(std::uint8_t number, const std::vector<int>& axes) {
    Bytes report{number};
    for (const int axis : axes) {
        const auto word = static_cast<std::uint16_t>(static_cast<std::int16_t>(axis));
        report.push_back(static_cast<std::uint8_t>(word & 0xFFU));
        report.push_back(static_cast<std::uint8_t>(word >> 8U));
    }
    return report;
}

MotionStep onlyMotion(const Bytes& report) {
    const std::vector<MotionStep> motions = motionsOf(report, report.size());
    EXPECT_EQ(motions.size(), 1U);
    return motions.empty() ? MotionStep{} : motions.front();
}

TEST(SixAxisReports, MoveTheSceneWithTheCap) {
    // To the right, away from the user, and up.
    EXPECT_EQ(onlyMotion(reportOf(1, {350, 0, 0})), (MotionStep{12, 0, 0, 0, 0, 0}));
    EXPECT_EQ(onlyMotion(reportOf(1, {0, -350, 0})), (MotionStep{0, 0, -1, 0, 0, 0}));
    EXPECT_EQ(onlyMotion(reportOf(1, {0, 0, -350})), (MotionStep{0, 12, 0, 0, 0, 0}));
    EXPECT_EQ(onlyMotion(reportOf(1, {-175, 0, 0})), (MotionStep{-6, 0, 0, 0, 0, 0}));
}

TEST(SixAxisReports, TurnTheSceneWithTheCap) {
    EXPECT_EQ(onlyMotion(reportOf(2, {350, 0, 0})), (MotionStep{0, 0, 0, 0, -12, 0}));
    EXPECT_EQ(onlyMotion(reportOf(2, {0, 350, 0})), (MotionStep{0, 0, 0, 0, 0, 12}));
    EXPECT_EQ(onlyMotion(reportOf(2, {0, 0, 350})), (MotionStep{0, 0, 0, -12, 0, 0}));
    EXPECT_EQ(onlyMotion(reportOf(1, {350, 0, 0, 0, 0, -350})), (MotionStep{12, 0, 0, 12, 0, 0}))
        << "all six at once";
}

TEST(SixAxisReports, OfACapAtRestMoveNothing) {
    EXPECT_TRUE(motionsOf(reportOf(1, {0, 0, 0}), 7).empty());
    EXPECT_TRUE(motionsOf(reportOf(2, {3, -3, 1}), 7).empty());
}

TEST(SixAxisReports, ComeSeveralInAMessage) {
    Bytes reports = reportOf(1, {350, 0, 0});
    const Bytes second = reportOf(2, {0, 0, -350});
    reports.insert(reports.end(), second.begin(), second.end());
    // The rest of a third one.
    reports.push_back(1);
    reports.push_back(0xFF);
    const std::vector<MotionStep> motions = motionsOf(reports, 7);
    ASSERT_EQ(motions.size(), 2U);
    EXPECT_EQ(motions[0][0], 12.0);
    EXPECT_EQ(motions[1][3], 12.0);
}

TEST(SixAxisReports, BeyondTheEndOfTheWayCountAsItsEnd) {
    EXPECT_EQ(onlyMotion(reportOf(1, {32767, -32768, 500})), (MotionStep{12, -12, -1, 0, 0, 0}));
}

TEST(SixAxisReports, OfOtherNumbersAndLengthsMoveNothing) {
    EXPECT_TRUE(motionsOf({}, 7).empty());
    EXPECT_TRUE(motionsOf(reportOf(1, {350, 0, 0}), 0).empty())
        << "a device that claims reports of no length";
    EXPECT_TRUE(motionsOf(reportOf(1, {350, 0, 0}), 100).empty()) << "or longer ones than it sent";
    EXPECT_TRUE(motionsOf(reportOf(3, {350, 350, 350}), 7).empty()) << "buttons";
    EXPECT_TRUE(motionsOf(Bytes{1}, 1).empty());
    EXPECT_TRUE(motionsOf(Bytes{1, 0xFF, 0x00, 0xFF, 0x00, 0xFF}, 6).empty()) << "a byte is missing";
    EXPECT_TRUE(motionsOf(Bytes(64, 0), 7).empty());
}

TEST(SixAxisReports, OfAnyBytesStayWithinWhatTheCameraTakes) {
    std::mt19937 random(7);
    for (int round = 0; round < 20000; ++round) {
        Bytes bytes(random() % 80);
        for (std::uint8_t& byte : bytes) {
            byte = static_cast<std::uint8_t>(random() % 4 == 0 ? random() % 4 : random());
        }
        for (const MotionStep& step : motionsOf(bytes, random() % 20)) {
            for (const double axis : step) {
                ASSERT_LE(std::abs(axis), 12.0);
            }
        }
    }
}

}  // namespace
