#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Bounds.h"
#include "Pairs.h"
#include "Verdict.h"

namespace qel::bench {

/// What was found out about an operation.
struct Finding {
    std::string name;
    std::string unit;
    Bound bound;
    std::optional<PairResult> pair;
    std::optional<TimeResult> own;
    /// Calls of OpenGL, GLU, WGL and GDI that one unit makes.
    double calls = 0.0;
    /// What so many empty calls take, which the own cost contains.
    double emptyCallsNanoseconds = 0.0;

    [[nodiscard]] Verdict verdict() const;
};

/// A single number that is held against a bound, such as a growth or a number of bytes.
struct Quantity {
    std::string name;
    std::string unit;
    double value = 0.0;
    /// 0 if nothing is promised.
    double bound = 0.0;

    [[nodiscard]] bool isTooLarge() const { return bound > 0.0 && value > bound; }
};

struct Report {
    std::vector<Finding> findings;
    std::vector<Quantity> quantities;
    double emptyCallNanoseconds = 0.0;
    std::string renderer;

    /// True if nothing was found that is too slow or too large.
    [[nodiscard]] bool isWithinBounds() const;
    [[nodiscard]] std::size_t unclearCount() const;
};

/// The line above the table, and the lines of the table.
void printHead();
void printFinding(const Finding& finding);
void printQuantity(const Quantity& quantity);

/// Writes the report as JSON. Throws if the file cannot be written.
void writeJson(const Report& report, const std::string& file);

}  // namespace qel::bench
