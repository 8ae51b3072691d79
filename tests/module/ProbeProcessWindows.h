#pragma once

#include <windows.h>

#include <string>

namespace qel::test {

/// How a scene of the load probe ended, and what it printed.
struct Played {
    DWORD exitCode = 0;
    std::string output;
};

inline constexpr DWORD kLongestScene = 60000;

/// Runs a scene of the probe, with its arguments, in a process of its own; the exit code is 259 (still
/// active) if it does not end in `longest` milliseconds.
Played play(const std::wstring& scene, DWORD longest = kLongestScene);

}  // namespace qel::test
