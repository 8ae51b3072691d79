#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

/// How a recorded call is written, so that what a test expects and what happened are the same text:
/// `glVertex3d(1, 2.5, 0)`, `glLightfv(16384, 4608, [0 0 0 1])`, `glCallLists(5, 5121, "Hello")`.

namespace qel::test {

/// Calls in the order they were made, each as text.
using Calls = std::vector<std::string>;

/// Stands for any one argument in an expected call.
struct Any {};
inline constexpr Any any{};

/// Stands for all arguments that are left in an expected call, also for none.
struct AnyArguments {};
inline constexpr AnyArguments anyArguments{};

/// Stands for a pointer through which the called function gives a result.
struct Out {};
inline constexpr Out out{};

/// Text as it stands in a call, ready made: see values(), about(), aboutValues().
struct Verbatim {
    std::string text;
};

/// Shortest text that reads back as the same number. Whole numbers print as integers and minus zero as 0, so
/// that 1, 1.0 and 1.0f are one and the same argument.
std::string numberText(double value);
std::string numberText(float value);

/// `null`, or the address in hexadecimal.
std::string addressText(const void* address);

/// The text in double quotes, UTF-8, with quotes and unprintable characters escaped.
std::string quotedText(std::string_view text);
std::string quotedText(std::wstring_view text);

/// Text of a structure that a call takes by pointer: specialise with `static std::string text(const T&)` and
/// `static constexpr bool kInput`, true when the content matters even through a pointer to non-const.
template <class T>
struct StructText;

template <class T>
concept HasStructText = requires(const T& value) {
    StructText<T>::text(value);
};

template <class T>
concept NarrowText = std::is_same_v<T, std::string> || std::is_same_v<T, std::string_view>;

template <class T>
concept WideText = std::is_same_v<T, std::wstring> || std::is_same_v<T, std::wstring_view>;

/// Text of an argument that is a pointer. Texts are quoted, known structures are written field by field, a
/// pointer to writable numbers or to a known structure is `out`, everything else is an address.
template <class T>
std::string pointerText(T* pointer) {
    using Target = std::remove_cv_t<T>;
    constexpr bool kWritable = !std::is_const_v<T>;
    if (pointer == nullptr) {
        return "null";
    }
    if constexpr (std::is_function_v<T>) {
        return addressText(reinterpret_cast<const void*>(pointer));
    } else if constexpr (std::is_same_v<T, const char>) {
        return quotedText(std::string_view(pointer));
    } else if constexpr (std::is_same_v<T, const wchar_t>) {
        return quotedText(std::wstring_view(pointer));
    } else if constexpr (HasStructText<Target>) {
        if constexpr (kWritable && !StructText<Target>::kInput) {
            return "out";
        } else {
            return StructText<Target>::text(*pointer);
        }
    } else if constexpr (kWritable && std::is_arithmetic_v<Target>) {
        return "out";
    } else {
        return addressText(pointer);
    }
}

/// Text of one argument, the same for a recorded and for an expected call.
template <class T>
std::string argumentText(const T& value) {
    if constexpr (std::is_same_v<T, Any>) {
        return "*";
    } else if constexpr (std::is_same_v<T, AnyArguments>) {
        return "...";
    } else if constexpr (std::is_same_v<T, Out>) {
        return "out";
    } else if constexpr (std::is_same_v<T, Verbatim>) {
        return value.text;
    } else if constexpr (std::is_same_v<T, std::nullptr_t>) {
        return "null";
    } else if constexpr (std::is_floating_point_v<T>) {
        return numberText(value);
    } else if constexpr (std::is_enum_v<T>) {
        return argumentText(static_cast<std::underlying_type_t<T>>(value));
    } else if constexpr (std::is_integral_v<T>) {
        return std::to_string(+value);
    } else if constexpr (std::is_array_v<T>) {
        return pointerText<const std::remove_extent_t<T>>(value);
    } else if constexpr (std::is_pointer_v<T>) {
        return pointerText(value);
    } else if constexpr (NarrowText<T> || WideText<T>) {
        return quotedText(value);
    } else {
        return StructText<T>::text(value);
    }
}

/// The values behind a pointer, as `[a b c]`.
template <class T>
std::string valuesText(const T* values, std::size_t count) {
    std::string text = "[";
    for (std::size_t i = 0; i < count; ++i) {
        text += (i == 0 ? "" : " ") + argumentText(values[i]);
    }
    return text + "]";
}

/// What a test expects behind a pointer to values: `call("glLightfv", GL_LIGHT0, GL_AMBIENT, values({0, 0, 0,
/// 1}))`.
Verbatim values(std::initializer_list<float> expected);
Verbatim doubleValues(std::initializer_list<double> expected);

/// Matches a number that differs by no more than `tolerance`.
Verbatim about(double expected, double tolerance);

/// Matches as many values behind a pointer, each of which differs by no more than `tolerance`.
Verbatim aboutValues(std::initializer_list<double> expected, double tolerance);

/// The text of a call. `any`, `anyArguments`, `out`, `about` and `values` may stand among the arguments.
template <class... A>
std::string call(const char* name, const A&... arguments) {
    std::string text = std::string(name) + "(";
    [[maybe_unused]] const char* separator = "";
    ((text += separator, text += argumentText(arguments), separator = ", "), ...);
    return text + ")";
}

/// True if the recorded call is the expected one, where `any` and `about` stand for what they say.
bool callMatches(const std::string& actual, const std::string& expected);

/// Succeeds if both lists are equally long and match call by call; else tells the first difference and prints
/// both lists.
::testing::AssertionResult callsMatch(const Calls& actual, const Calls& expected);

/// Succeeds if the expected calls stand in the list in this order, whatever stands between them.
::testing::AssertionResult callsContain(const Calls& actual, const Calls& expectedInOrder);

}  // namespace qel::test
