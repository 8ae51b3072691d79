#pragma once

#include "Operation.h"

namespace qel::bench {

void addMeshBenches(Operations& all);
void addCloudBenches(Operations& all);
void addGeometryBenches(Operations& all);
void addMarkerBenches(Operations& all);
void addTextBenches(Operations& all);
void addFrameBenches(Operations& all);
void addCaptureBenches(Operations& all);
void addStartBenches(Operations& all);
void addPickBenches(Operations& all);
void addTransformBenches(Operations& all);
void addDragBenches(Operations& all);
void addMatrixBenches(Operations& all);
void addGdiBenches(Operations& all);
void addWholeFrameBenches(Operations& all);
void addGrowthBenches(Operations& all);
void addSceneBenches(Operations& all);

/// Everything that is measured, in the order of the report.
[[nodiscard]] inline Operations allOperations() {
    Operations all;
    addMeshBenches(all);
    addCloudBenches(all);
    addGeometryBenches(all);
    addMarkerBenches(all);
    addTextBenches(all);
    addFrameBenches(all);
    addCaptureBenches(all);
    addStartBenches(all);
    addPickBenches(all);
    addTransformBenches(all);
    addDragBenches(all);
    addMatrixBenches(all);
    addGdiBenches(all);
    addWholeFrameBenches(all);
    addGrowthBenches(all);
    addSceneBenches(all);
    return all;
}

}  // namespace qel::bench
