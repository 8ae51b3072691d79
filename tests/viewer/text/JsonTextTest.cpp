#include "JsonText.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "viewer/ViewerData.h"

namespace {

struct Fault {
    const char* name;
    const char* text;
    const char* refusal;
};

class JsonTextJsonFault : public testing::TestWithParam<Fault> {};

TEST_P(JsonTextJsonFault, IsNamedWithItsLine) {
    EXPECT_EQ(qel::test::refusalOf([] { return qelview::parseJson(GetParam().text); }), GetParam().refusal);
}

const std::vector<Fault> kFaults{
    {"NothingAtAll", "", "line 1: the file ends in the middle of the JSON text"},
    {"AnEndTooEarly", "{\n\n\"a\": [1,", "line 3: the file ends in the middle of the JSON text"},
    {"ALineEndAtTheFault", "[1,\n]", "line 2: no JSON at ']'"},
    {"TheFirstByte", "?", "line 1: no JSON at '?'"},
    {"MoreThanOneText", "{}\n{}", "line 2: no JSON at '{}'"},
    {"ALargeNumber", "[1e999]", "file: a number is too large"},
};
INSTANTIATE_TEST_SUITE_P(Texts, JsonTextJsonFault, testing::ValuesIn(kFaults),
                         [](const auto& each) { return each.param.name; });

TEST(JsonTextMemberOf, IsNullWhereThereIsNone) {
    const nlohmann::json object = qelview::parseJson(R"({"a": 7, "b": null})");
    EXPECT_EQ(qelview::memberOf(object, "a"), 7);
    EXPECT_TRUE(qelview::memberOf(object, "b").is_null());
    EXPECT_TRUE(qelview::memberOf(object, "c").is_null());
    EXPECT_TRUE(qelview::memberOf(nlohmann::json::array(), "a").is_null());
}

}  // namespace
