#pragma once

#include <cstddef>
#include <string>
#include <tuple>
#include <type_traits>

#include "CallText.h"
#include "QelGl.h"

/// How the arguments of a traced function are written when a pointer among them must be read. A rule has
/// `argument<I>(all)`, the text of argument I; a rule for one argument leaves the others to Plain.

namespace qel::test::rules {

/// Every argument by its type alone.
struct Plain {
    template <std::size_t I, class Arguments>
    static std::string argument(const Arguments& all) {
        return argumentText(std::get<I>(all));
    }
};

/// Argument `At` is a pointer to `Count` values.
template <std::size_t At, std::size_t Count>
struct ValuesAt {
    template <std::size_t I, class Arguments>
    static std::string argument(const Arguments& all) {
        if constexpr (I == At) {
            return std::get<I>(all) == nullptr ? "null" : valuesText(std::get<I>(all), Count);
        } else {
            return Plain::argument<I>(all);
        }
    }
};

/// Argument `At` is a pointer to as many values as argument `CountAt` says.
template <std::size_t CountAt, std::size_t At>
struct CountedValues {
    template <std::size_t I, class Arguments>
    static std::string argument(const Arguments& all) {
        if constexpr (I == At) {
            const auto count = std::get<CountAt>(all);
            return count < 0 || std::get<I>(all) == nullptr
                       ? Plain::argument<I>(all)
                       : valuesText(std::get<I>(all), static_cast<std::size_t>(count));
        } else {
            return Plain::argument<I>(all);
        }
    }
};

/// Argument `At` is a place that the function fills.
template <std::size_t At>
struct OutAt {
    template <std::size_t I, class Arguments>
    static std::string argument(const Arguments& all) {
        if constexpr (I == At) {
            return std::get<I>(all) == nullptr ? "null" : "out";
        } else {
            return Plain::argument<I>(all);
        }
    }
};

/// How many values a light, light model, material or fog parameter has.
constexpr std::size_t parameterSize(GLenum parameter) {
    switch (parameter) {
        case GL_AMBIENT:
        case GL_DIFFUSE:
        case GL_SPECULAR:
        case GL_EMISSION:
        case GL_AMBIENT_AND_DIFFUSE:
        case GL_POSITION:
        case GL_LIGHT_MODEL_AMBIENT:
        case GL_FOG_COLOR:
            return 4;
        case GL_SPOT_DIRECTION:
        case GL_COLOR_INDEXES:
            return 3;
        default:
            return 1;
    }
}

/// Argument `At` is a pointer to the values of the parameter that argument `ParameterName` names.
template <std::size_t ParameterName, std::size_t At>
struct ParameterAt {
    template <std::size_t I, class Arguments>
    static std::string argument(const Arguments& all) {
        if constexpr (I == At) {
            const std::size_t count = parameterSize(std::get<ParameterName>(all));
            return std::get<I>(all) == nullptr ? "null" : valuesText(std::get<I>(all), count);
        } else {
            return Plain::argument<I>(all);
        }
    }
};

/// The names of glCallLists: as text if they are unsigned bytes.
struct ListNames {
    template <std::size_t I, class Arguments>
    static std::string argument(const Arguments& all) {
        if constexpr (I == 2) {
            const auto [count, type, names] = all;
            const bool isText = type == GL_UNSIGNED_BYTE && names != nullptr && count >= 0;
            return isText ? quotedText(std::string_view(static_cast<const char*>(names),
                                                        static_cast<std::size_t>(count)))
                          : addressText(names);
        } else {
            return Plain::argument<I>(all);
        }
    }
};

/// gluProject and gluUnProject: a point, two matrices, the viewport, and where the result goes.
struct ViewTransform {
    template <std::size_t I, class Arguments>
    static std::string argument(const Arguments& all) {
        if constexpr (I == 3 || I == 4) {
            return ValuesAt<I, 16>::template argument<I>(all);
        } else if constexpr (I == 5) {
            return ValuesAt<I, 4>::template argument<I>(all);
        } else {
            return Plain::argument<I>(all);
        }
    }
};

/// A GDI figure: device context, points, number of points.
struct CountedPoints {
    template <std::size_t I, class Arguments>
    static std::string argument(const Arguments& all) {
        if constexpr (I == 1) {
            const auto [dc, points, count] = all;
            return count < 0 || points == nullptr ? Plain::argument<I>(all)
                                                  : valuesText(points, static_cast<std::size_t>(count));
        } else {
            return Plain::argument<I>(all);
        }
    }
};

/// The v...printf family: the list of values is left out, it has no text of its own.
struct FormatText {
    template <std::size_t I, class Arguments>
    static std::string argument(const Arguments& all) {
        if constexpr (I + 1 == std::tuple_size_v<Arguments>) {
            return "*";
        } else {
            return Plain::argument<I>(all);
        }
    }
};

/// The text of a whole call.
template <class Rule, class... A>
std::string callText(const char* name, const A&... arguments) {
    const std::tuple<const A&...> all(arguments...);
    return [&]<std::size_t... I>(std::index_sequence<I...>) {
        return call(name, Verbatim{Rule::template argument<I>(all)}...);
    }
    (std::index_sequence_for<A...>{});
}

}  // namespace qel::test::rules
