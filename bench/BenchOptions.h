#pragma once

#include <string>
#include <vector>

namespace qel::bench {

/// What the command line asks for.
struct Options {
    bool quick = false;        ///< fewer rounds, for a first look
    bool onlyOwnCost = false;  ///< leaves out the comparison on the real OpenGL
    bool onlyPairs = false;    ///< leaves out the own cost
    bool verify = false;       ///< compares the calls of both forms instead of measuring
    bool trace = false;        ///< prints the calls of the module's form instead of measuring
    bool list = false;         ///< prints the names instead of measuring
    double seconds = 0.0;      ///< most for each operation; 0 for the usual time
    std::string json;          ///< file to write
    /// Parts of the names of what is measured; none for everything.
    std::vector<std::string> filters;

    /// Throws std::invalid_argument with a sentence if an option is unknown or lacks its value.
    static Options parse(int count, const char* const* arguments);

    [[nodiscard]] bool wants(const std::string& name) const;
};

}  // namespace qel::bench
