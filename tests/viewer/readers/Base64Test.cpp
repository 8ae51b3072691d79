#include "GltfUri.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

struct Coded {
    const char* name;
    std::string text;
    std::optional<std::string> bytes;
};

class Base64 : public testing::TestWithParam<Coded> {};

TEST_P(Base64, IsDecoded) {
    EXPECT_EQ(qelview::decodeBase64(GetParam().text), GetParam().bytes);
}

const std::vector<Coded> kCoded{
    {"Nothing", "", ""},
    {"OneByte", "TQ==", "M"},
    {"TwoBytes", "TWE=", "Ma"},
    {"ThreeBytes", "TWFu", "Man"},
    {"EachKindOfLetter", "AZaz09+/", std::string("\x01\x96\xB3\xD3\xDF\xBF", 6)},
    {"LettersOfTheEnd", "+/8A", std::string("\xFB\xFF\0", 3)},
    {"AByteOfZero", "AAAA", std::string(3, '\0')},
    {"APieceOfFourLetters", "TWF", std::nullopt},
    {"ALetterOfAnotherAlphabet", "TW-u", std::nullopt},
    {"ALineEnd", "TWF\n", std::nullopt},
    {"ThreeSignsOfAnEnd", "T===", std::nullopt},
    {"AnEndInTheMiddle", "TQ==TWFu", std::nullopt},
};
INSTANTIATE_TEST_SUITE_P(Texts, Base64, testing::ValuesIn(kCoded),
                         [](const auto& each) { return each.param.name; });

}  // namespace
