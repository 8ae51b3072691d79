#include "ViewName.h"

#include <gtest/gtest.h>

#include <array>
#include <utility>

namespace {

using qelview::viewName;

TEST(ViewName, IsThatOfTheStandardViewFromItsDirectionAtAnyDistance) {
    const std::array<std::pair<qel::XPnt3d, const char*>, 8> views{{{{0, 0, 1}, "Top"},
                                                                    {{0, 0, -30}, "Bottom"},
                                                                    {{0, 2, 0}, "Back"},
                                                                    {{0, -1e5, 0}, "Front"},
                                                                    {{1, 0, 0}, "Right"},
                                                                    {{-1e-3, 0, 0}, "Left"},
                                                                    {{7, 7, 7}, "Isometric"},
                                                                    {{-1, -1, -1}, "Isometric from below"}}};
    for (const auto& [direction, name] : views) {
        EXPECT_EQ(viewName(direction), name);
    }
}

TEST(ViewName, TellsTheSideAndTheHeightOfOtherViews) {
    EXPECT_EQ(viewName({0.0, -1.0, 1.1}), "Front, 48 deg above");
    EXPECT_EQ(viewName({3.0, 1.0, 0.0}), "Right");
    EXPECT_EQ(viewName({-3.0, 1.0, -3.1622776}), "Left, 45 deg below");
    EXPECT_EQ(viewName({0.1, 1.0, 0.02}), "Back, 1 deg above");
}

}  // namespace
