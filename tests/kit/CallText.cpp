#include "CallText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <optional>

namespace qel::test {

namespace {

constexpr double kLargestWholeNumberInFull = 1e15;
constexpr std::string_view kToleranceMark = "+-";

template <class T>
std::string shortestText(T value) {
    std::array<char, 64> buffer{};
    const bool inFull =
        std::trunc(value) == value && std::abs(static_cast<double>(value)) < kLargestWholeNumberInFull;
    char* const end = buffer.data() + buffer.size();
    const std::to_chars_result result =
        inFull ? std::to_chars(buffer.data(), end, static_cast<std::int64_t>(value))
               : std::to_chars(buffer.data(), end, value);
    return std::string(buffer.data(), result.ptr);
}

std::string utf8(char32_t code) {
    const auto byte = [](char32_t bits) { return static_cast<char>(static_cast<unsigned char>(bits)); };
    if (code < 0x80) {
        return {byte(code)};
    }
    if (code < 0x800) {
        return {byte(0xC0 | (code >> 6)), byte(0x80 | (code & 0x3F))};
    }
    if (code < 0x10000) {
        return {byte(0xE0 | (code >> 12)), byte(0x80 | ((code >> 6) & 0x3F)), byte(0x80 | (code & 0x3F))};
    }
    return {byte(0xF0 | (code >> 18)), byte(0x80 | ((code >> 12) & 0x3F)), byte(0x80 | ((code >> 6) & 0x3F)),
            byte(0x80 | (code & 0x3F))};
}

/// A wide text is UTF-16 where wchar_t has two bytes and UTF-32 elsewhere.
std::string narrowed(std::wstring_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto code = static_cast<char32_t>(text[i]);
        const bool leads = code >= 0xD800 && code < 0xDC00 && i + 1 < text.size();
        if (leads) {
            ++i;
            code = 0x10000 + ((code - 0xD800) << 10) + (static_cast<char32_t>(text[i]) - 0xDC00);
        }
        result += utf8(code);
    }
    return result;
}

/// A call taken apart: its name and its arguments, split at the commas outside quotes and brackets.
struct Parts {
    std::string_view name;
    std::vector<std::string_view> arguments;
};

std::vector<std::string_view> splitArguments(std::string_view list) {
    std::vector<std::string_view> arguments;
    std::size_t begin = 0;
    int depth = 0;
    bool quoted = false;
    for (std::size_t i = 0; i < list.size(); ++i) {
        const char c = list[i];
        if (quoted) {
            i += c == '\\' ? 1U : 0U;
            quoted = c != '"';
        } else if (c == ',' && depth == 0) {
            arguments.push_back(list.substr(begin, i - begin));
            begin = i + 2;
        } else {
            quoted = c == '"';
            depth += (c == '[' || c == '{') ? 1 : (c == ']' || c == '}') ? -1 : 0;
        }
    }
    if (!list.empty()) {
        arguments.push_back(list.substr(begin));
    }
    return arguments;
}

std::optional<Parts> partsOf(std::string_view call) {
    const std::size_t open = call.find('(');
    if (open == std::string_view::npos || call.back() != ')') {
        return std::nullopt;
    }
    return Parts{call.substr(0, open), splitArguments(call.substr(open + 1, call.size() - open - 2))};
}

std::optional<std::vector<double>> numbersOf(std::string_view text) {
    if (text.size() >= 2 && text.front() == '[' && text.back() == ']') {
        text = text.substr(1, text.size() - 2);
    }
    std::vector<double> numbers;
    while (!text.empty()) {
        double number = 0;
        const std::from_chars_result result = std::from_chars(text.data(), text.data() + text.size(), number);
        if (result.ec != std::errc{}) {
            return std::nullopt;
        }
        numbers.push_back(number);
        text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()));
        if (!text.empty() && text.front() != ' ') {
            return std::nullopt;
        }
        text.remove_prefix(text.empty() ? 0 : 1);
    }
    return numbers;
}

bool numbersMatch(std::string_view actual, std::string_view expected, double tolerance) {
    const auto actualNumbers = numbersOf(actual);
    const auto expectedNumbers = numbersOf(expected);
    if (!actualNumbers || !expectedNumbers || actualNumbers->size() != expectedNumbers->size()) {
        return false;
    }
    for (std::size_t i = 0; i < actualNumbers->size(); ++i) {
        // Written so that a NaN never matches.
        if (!(std::abs((*actualNumbers)[i] - (*expectedNumbers)[i]) <= tolerance)) {
            return false;
        }
    }
    return true;
}

bool argumentMatches(std::string_view actual, std::string_view expected) {
    if (expected == "*" || actual == expected) {
        return true;
    }
    const std::size_t mark = expected.rfind(kToleranceMark);
    if (expected.front() == '"' || mark == std::string_view::npos) {
        return false;
    }
    const auto tolerance = numbersOf(expected.substr(mark + kToleranceMark.size()));
    return tolerance && tolerance->size() == 1 &&
           numbersMatch(actual, expected.substr(0, mark), tolerance->front());
}

/// Both lists, with a mark at the first line that differs.
std::string listing(const char* title, const Calls& calls, std::size_t marked) {
    std::string text = std::string(title) + " (" + std::to_string(calls.size()) + "):\n";
    for (std::size_t i = 0; i < calls.size(); ++i) {
        text += (i == marked ? "  > " : "    ") + calls[i] + "\n";
    }
    return text;
}

std::string callAt(const Calls& calls, std::size_t index) {
    return index < calls.size() ? calls[index] : "(no further call)";
}

std::string toleranceText(double tolerance) {
    return std::string(kToleranceMark) + numberText(tolerance);
}

}  // namespace

std::string numberText(double value) {
    return shortestText(value);
}

std::string numberText(float value) {
    return shortestText(value);
}

std::string addressText(const void* address) {
    if (address == nullptr) {
        return "null";
    }
    std::array<char, 32> buffer{};
    const std::to_chars_result result = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                                      reinterpret_cast<std::uintptr_t>(address), 16);
    return "0x" + std::string(buffer.data(), result.ptr);
}

std::string quotedText(std::string_view text) {
    std::string result = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') {
            result += '\\';
            result += c;
        } else if (static_cast<unsigned char>(c) < 0x20) {
            std::array<char, 8> buffer{};
            std::snprintf(buffer.data(), buffer.size(), "\\x%02x", static_cast<unsigned>(c));
            result += buffer.data();
        } else {
            result += c;
        }
    }
    return result + "\"";
}

std::string quotedText(std::wstring_view text) {
    return quotedText(std::string_view(narrowed(text)));
}

Verbatim values(std::initializer_list<float> expected) {
    return {valuesText(expected.begin(), expected.size())};
}

Verbatim doubleValues(std::initializer_list<double> expected) {
    return {valuesText(expected.begin(), expected.size())};
}

Verbatim about(double expected, double tolerance) {
    return {numberText(expected) + toleranceText(tolerance)};
}

Verbatim aboutValues(std::initializer_list<double> expected, double tolerance) {
    return {doubleValues(expected).text + toleranceText(tolerance)};
}

bool callMatches(const std::string& actual, const std::string& expected) {
    if (actual == expected) {
        return true;
    }
    const std::optional<Parts> is = partsOf(actual);
    const std::optional<Parts> wanted = partsOf(expected);
    if (!is || !wanted || is->name != wanted->name) {
        return false;
    }
    std::size_t count = wanted->arguments.size();
    const bool open = count > 0 && wanted->arguments.back() == "...";
    count -= open ? 1U : 0U;
    if (open ? is->arguments.size() < count : is->arguments.size() != count) {
        return false;
    }
    for (std::size_t i = 0; i < count; ++i) {
        if (!argumentMatches(is->arguments[i], wanted->arguments[i])) {
            return false;
        }
    }
    return true;
}

::testing::AssertionResult callsMatch(const Calls& actual, const Calls& expected) {
    std::size_t i = 0;
    while (i < actual.size() && i < expected.size() && callMatches(actual[i], expected[i])) {
        ++i;
    }
    if (i == actual.size() && i == expected.size()) {
        return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure()
           << "call " << i + 1 << " is " << callAt(actual, i) << "\nexpected " << callAt(expected, i) << "\n"
           << listing("actual", actual, i) << listing("expected", expected, i);
}

::testing::AssertionResult callsContain(const Calls& actual, const Calls& expectedInOrder) {
    std::size_t found = 0;
    for (const std::string& call : actual) {
        if (found < expectedInOrder.size() && callMatches(call, expectedInOrder[found])) {
            ++found;
        }
    }
    if (found == expectedInOrder.size()) {
        return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure()
           << "missing, after the " << found << " before it: " << expectedInOrder[found] << "\n"
           << listing("actual", actual, actual.size());
}

}  // namespace qel::test
