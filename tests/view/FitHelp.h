#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <string>

#include "ViewTraces.h"

/// What the tests of fits and placements share.

namespace qel::test {

inline bool sameBox(const Enve3d& a, const Enve3d& b) {
    return a.xmin == b.xmin && a.xmax == b.xmax && a.ymin == b.ymin && a.ymax == b.ymax && a.zmin == b.zmin &&
           a.zmax == b.zmax;
}

inline glm::dvec3 middleOf(const Enve3d& box) {
    return {(box.xmin + box.xmax) / 2.0, (box.ymin + box.ymax) / 2.0, (box.zmin + box.zmax) / 2.0};
}

inline double diagonalOf(const Enve3d& box) {
    return glm::length(glm::dvec3(box.xmax - box.xmin, box.ymax - box.ymin, box.zmax - box.zmin));
}

inline Enve3d invalidBox() {
    Enve3d box;
    box.setInvalid();
    return box;
}

class Fit : public CameraTrace {
  protected:
    /// The point that the trackball sphere is measured at.
    XPnt3d rotationCenter() {
        const CallTrace trace;
        view->updateSphereRadius();
        const std::string last = trace.callsOf("gluProject").back();
        XPnt3d center;
        EXPECT_EQ(std::sscanf(last.c_str(), "gluProject(%lf, %lf, %lf", &center.x, &center.y, &center.z), 3);
        return center;
    }
};

}  // namespace qel::test
