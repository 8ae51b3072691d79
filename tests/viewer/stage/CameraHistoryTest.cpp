#include "CameraHistory.h"

#include <gtest/gtest.h>

namespace {

using qelview::CameraHistory;
using qelview::CameraState;

CameraState at(double x, bool isOrthographic = false) {
    return {{{x, 0, 0}, {x, 1, 0}, {0, 0, 1}}, isOrthographic};
}

TEST(CameraHistory, GoesBackFromTheLastToTheFirst) {
    CameraHistory history;
    history.add(at(1));
    history.add(at(2));
    history.add(at(2));
    EXPECT_TRUE(history.back(at(3)).value_or(at(0)).isSameAs(at(2)));
    EXPECT_TRUE(history.back(at(2)).value_or(at(0)).isSameAs(at(1)));
    EXPECT_FALSE(history.back(at(1)).has_value());
}

TEST(CameraHistory, LeavesOutTheCameraOfNow) {
    CameraHistory history;
    history.add(at(1));
    history.add(at(2));
    EXPECT_TRUE(history.back(at(2)).value_or(at(0)).isSameAs(at(1)));
    history.add(at(1));
    EXPECT_TRUE(history.back(at(1, true)).value_or(at(0)).isSameAs(at(1)))
        << "another projection is another camera";
}

TEST(CameraHistory, ForgetsTheOldestOfMany) {
    CameraHistory history;
    for (int i = 0; i < 1000; ++i) {
        history.add(at(i));
    }
    int steps = 0;
    while (history.back(at(-1)).has_value()) {
        ++steps;
    }
    EXPECT_EQ(steps, 200);
    history.add(at(1));
    history.clear();
    EXPECT_FALSE(history.back(at(2)).has_value());
}

}  // namespace
