#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "Bounds.h"

namespace qel::bench {

/// Does one thing so many times, as a loop without anything else in it.
using Form = std::function<void(std::int64_t times)>;

/// The loop around one call.
template <class Call>
Form repeated(Call call) {
    return [call](std::int64_t times) {
        for (std::int64_t i = 0; i < times; ++i) {
            call();
        }
    };
}

/// What is measured against what. Both forms own what they draw.
struct Forms {
    /// The module's call.
    Form module;
    /// The same calls of OpenGL, GLU, WGL and GDI by hand; empty if there is nothing to compare with.
    Form bare;
    /// Ends a sample: what was only begun is waited for. May be empty.
    std::function<void()> settle;
    /// False where nothing sensible is left without the real functions, or where own costs say nothing.
    bool hasOwnCost = true;
    /// Depth that the module reads where the own cost is measured without OpenGL; 1 is background.
    float depthRead = 1.0F;
    /// How many things of the operation's unit one call does.
    std::int64_t units = 1;
};

/// How much data an operation gets: what is measured, or so little that its calls can be listed.
enum class Size : std::uint8_t { Full, Small };

/// One line of the report.
struct Operation {
    std::string name;
    /// What one call does one of: "call", "polyline", "frame".
    std::string unit;
    Kind kind;
    std::function<Forms(Size)> prepare;
    /// Whether both forms make the same calls with the same arguments, addresses apart.
    bool makesSameCalls = true;
};

using Operations = std::vector<Operation>;

}  // namespace qel::bench
