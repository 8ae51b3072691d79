#pragma once

#include <functional>
#include <string>
#include <vector>

#include "Report.h"

namespace qel::bench {

/// Something that is measured as one number.
struct Measurement {
    std::string name;
    std::function<Quantity()> measure;
};

using Measurements = std::vector<Measurement>;

void addMemoryMeasurements(Measurements& all);
void addStartMeasurements(Measurements& all);

/// All of them, in the order of the report.
[[nodiscard]] inline Measurements allMeasurements() {
    Measurements all;
    addMemoryMeasurements(all);
    addStartMeasurements(all);
    return all;
}

}  // namespace qel::bench
