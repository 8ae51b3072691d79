#include "BenchOptions.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <stdexcept>
#include <vector>

namespace qel::bench {
namespace {

Options parsed(std::initializer_list<const char*> given) {
    std::vector<const char*> arguments{"qel_bench"};
    arguments.insert(arguments.end(), given.begin(), given.end());
    return Options::parse(static_cast<int>(arguments.size()), arguments.data());
}

TEST(BenchOptions, WithoutAnyMeasureEverything) {
    const Options options = parsed({});
    EXPECT_TRUE(options.wants("drawLine"));
    EXPECT_FALSE(options.quick || options.verify || options.list || options.trace);
    EXPECT_EQ(options.seconds, 0.0);
}

TEST(BenchOptions, TakeSwitchesValuesAndPartsOfNamesInAnyOrder) {
    const Options options = parsed({"Circle", "--quick", "--json", "a.json", "frame:", "--seconds", "2.5"});
    EXPECT_TRUE(options.quick);
    EXPECT_EQ(options.json, "a.json");
    EXPECT_EQ(options.seconds, 2.5);
    EXPECT_TRUE(options.wants("drawCircle"));
    EXPECT_TRUE(options.wants("frame: 1,000,000 points"));
    EXPECT_FALSE(options.wants("drawLine"));
}

TEST(BenchOptions, RefuseWhatTheyDoNotKnow) {
    EXPECT_THROW(parsed({"--fast"}), std::invalid_argument);
    EXPECT_THROW(parsed({"--json"}), std::invalid_argument);
    for (const char* const seconds : {"", "soon", "3x", "0", "-1", "nan"}) {
        EXPECT_THROW(parsed({"--seconds", seconds}), std::invalid_argument) << seconds;
    }
}

}  // namespace
}  // namespace qel::bench
