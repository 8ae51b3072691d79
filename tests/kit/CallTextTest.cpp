#include "CallText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace qel::test {
namespace {

struct ArgumentCase {
    const char* name;
    std::string written;
    const char* expected;
};

int number = 0;

TEST(CallText, WritesEachKindOfArgumentOneWay) {
    const char* const noText = nullptr;
    const ArgumentCase cases[] = {
        {"whole double", call("f", 3.0), "f(3)"},
        {"whole float and integer alike", call("f", 3.0F, 3U, 3), "f(3, 3, 3)"},
        {"double", call("f", 0.1), "f(0.1)"},
        {"float is as short as double", call("f", 0.1F), "f(0.1)"},
        {"float that is no short double", call("f", static_cast<double>(0.1F)), "f(0.10000000149011612)"},
        {"large whole number in full", call("f", 1000000.0), "f(1000000)"},
        {"minus zero", call("f", -0.0, -0.0F), "f(0, 0)"},
        {"infinity", call("f", -std::numeric_limits<double>::infinity()), "f(-inf)"},
        {"byte as number", call("f", static_cast<unsigned char>('A'), static_cast<signed char>(-1)),
         "f(65, -1)"},
        {"truth", call("f", true, false), "f(1, 0)"},
        {"text", call("f", "a\"b\\\n"), "f(\"a\\\"b\\\\\\x0a\")"},
        {"wide text", call("f", L"Gr\u00fc\u00df"), "f(\"Gr\xc3\xbc\xc3\x9f\")"},
        {"wide text beyond the first plane", call("f", L"\U0001F600"), "f(\"\xf0\x9f\x98\x80\")"},
        {"no text", call("f", noText), "f(null)"},
        {"null", call("f", nullptr), "f(null)"},
        {"writable number", call("f", &number), "f(out)"},
        {"values", call("f", values({0.2F, 0.2F, 1})), "f([0.2 0.2 1])"},
        {"marks", call("f", any, out, anyArguments), "f(*, out, ...)"},
        {"nothing", call("f"), "f()"},
    };
    for (const ArgumentCase& one : cases) {
        EXPECT_EQ(one.written, one.expected) << one.name;
    }
}

TEST(CallText, WritesAnyOtherPointerAsItsAddress) {
    const void* const address = &number;
    EXPECT_EQ(call("f", address), "f(" + addressText(&number) + ")");
    EXPECT_EQ(addressText(&number).compare(0, 2, "0x"), 0);
}

struct MatchCase {
    const char* name;
    std::string actual;
    std::string expected;
    bool matches;
};

TEST(CallTextMatching, TakesPlaceholdersForWhatTheySay) {
    const MatchCase cases[] = {
        {"same", call("f", 1, 2), call("f", 1, 2), true},
        {"other argument", call("f", 1, 2), call("f", 1, 3), false},
        {"other name", call("f", 1), call("g", 1), false},
        {"any", call("f", 1, "a, b", 3), call("f", 1, any, 3), true},
        {"any is one argument only", call("f", 1, 2), call("f", any), false},
        {"any is not none", call("f"), call("f", any), false},
        {"a star is a text", call("f", "x"), call("f", "*"), false},
        {"any over values", call("f", values({1, 2, 3}), 5), call("f", any, 5), true},
        {"all that follow", call("f", 1, 2, 3), call("f", 1, anyArguments), true},
        {"all that follow may be none", call("f", 1), call("f", 1, anyArguments), true},
        {"all that follow, wrong start", call("f", 2, 2, 3), call("f", 1, anyArguments), false},
        {"about", call("f", 1.0000001), call("f", about(1, 1e-6)), true},
        {"about, too far", call("f", 1.00001), call("f", about(1, 1e-6)), false},
        {"about, no number", call("f", std::nan("")), call("f", about(1, 1e6)), false},
        {"about values", call("f", values({0.5F, 1.0F})), call("f", aboutValues({0.5, 1.001}, 0.01)), true},
        {"about values, too few", call("f", values({0.5F})), call("f", aboutValues({0.5, 1}, 0.01)), false},
        {"about values, too far", call("f", values({0.5F, 1})), call("f", aboutValues({0.5, 2}, 0.01)),
         false},
        {"a note is itself", "begins here", "begins here", true},
        {"a note is not another", "begins here", "begins", false},
    };
    for (const MatchCase& one : cases) {
        EXPECT_EQ(callMatches(one.actual, one.expected), one.matches) << one.name;
    }
}

TEST(CallTextInOrder, TellsTheFirstDifferenceAndBothLists) {
    const Calls actual = {call("f", 1), call("g", 2), call("h", 3)};
    EXPECT_TRUE(callsMatch(actual, {call("f", 1), call("g", any), call("h", 3)}));
    const ::testing::AssertionResult differs = callsMatch(actual, {call("f", 1), call("g", 5), call("h", 3)});
    ASSERT_FALSE(differs);
    const std::string message = differs.message();
    EXPECT_NE(message.find("call 2 is g(2)\nexpected g(5)"), std::string::npos) << message;
    EXPECT_NE(message.find("  > g(2)"), std::string::npos) << message;
    EXPECT_NE(message.find("    h(3)"), std::string::npos) << message;
}

TEST(CallTextInOrder, RefusesAListThatIsLongerOrShorter) {
    const Calls one = {call("f")};
    const Calls two = {call("f"), call("g")};
    EXPECT_FALSE(callsMatch(one, two));
    EXPECT_FALSE(callsMatch(two, one));
    EXPECT_TRUE(callsMatch({}, {}));
}

TEST(CallTextContaining, AsksForTheOrderButNotForWhatStandsBetween) {
    const Calls actual = {call("f"), call("x"), call("g", 1), call("h")};
    EXPECT_TRUE(callsContain(actual, {call("f"), call("g", any)}));
    EXPECT_FALSE(callsContain(actual, {call("g", any), call("f")}));
    EXPECT_FALSE(callsContain(actual, {call("f"), call("f")}));
}

}  // namespace
}  // namespace qel::test
