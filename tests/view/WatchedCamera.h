#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "CQelTrackBall.h"
#include "QelRefPtr.h"

namespace qel::test {

/// A camera that notes what its drags call, and passes each call on.
class WatchedCamera : public CQelTrackBall {
  public:
    std::vector<std::string> events;

    std::int32_t updateView() override {
        events.emplace_back("updateView");
        return CQelTrackBall::updateView();
    }
    std::int32_t updateSphereRadius() override {
        events.emplace_back("updateSphereRadius");
        return CQelTrackBall::updateSphereRadius();
    }
    std::int32_t moveBy(double dx, double dy, double dz) override {
        events.push_back(text("moveBy", dx, dy, dz));
        return CQelTrackBall::moveBy(dx, dy, dz);
    }
    std::int32_t zoomAt(float factor, std::int32_t x, std::int32_t y) override {
        events.push_back(text("zoomAt", factor, x, y));
        return CQelTrackBall::zoomAt(factor, x, y);
    }
    std::int32_t onButtonUp() override {
        events.push_back(text("onButtonUp of", getDragButton()));
        return CQelTrackBall::onButtonUp();
    }

    /// What `events` says of a call.
    template <class... Values>
    static std::string text(const char* name, Values... values) {
        std::ostringstream all;
        all.precision(17);
        all << name;
        ((all << ' ' << values), ...);
        return all.str();
    }
};

/// Where a camera stands.
struct Placement {
    XPnt3d eye;
    XPnt3d target;
    XPnt3d up;

    explicit Placement(CQelTrackBall& camera)
        : eye(camera.getEye()), target(camera.getTarget()), up(camera.getUp()) {}
};

inline bool same(const XPnt3d& a, const XPnt3d& b) {
    return a.x == b.x && a.y == b.y && a.z == b.z;
}

inline bool operator==(const Placement& a, const Placement& b) {
    return same(a.eye, b.eye) && same(a.target, b.target) && same(a.up, b.up);
}

inline bool isFinitePoint(const XPnt3d& point) {
    return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

inline bool isFinitePlacement(const Placement& placed) {
    return isFinitePoint(placed.eye) && isFinitePoint(placed.target) && isFinitePoint(placed.up);
}

inline std::ostream& operator<<(std::ostream& stream, const Placement& placed) {
    const auto point = [&](const char* name, const XPnt3d& p) {
        stream << name << " (" << p.x << ", " << p.y << ", " << p.z << ") ";
    };
    stream.precision(17);
    point("eye", placed.eye);
    point("target", placed.target);
    point("up", placed.up);
    return stream;
}

/// Succeeds if two points are no further apart than `tolerance` in each coordinate.
inline ::testing::AssertionResult isNear(const XPnt3d& actual, const XPnt3d& expected, double tolerance) {
    const auto off = [&](double a, double b) { return !(std::fabs(a - b) <= tolerance); };
    if (!off(actual.x, expected.x) && !off(actual.y, expected.y) && !off(actual.z, expected.z)) {
        return ::testing::AssertionSuccess();
    }
    std::ostringstream text;
    text.precision(17);
    text << "is (" << actual.x << ", " << actual.y << ", " << actual.z << "), not (" << expected.x << ", "
         << expected.y << ", " << expected.z << "), within " << tolerance;
    return ::testing::AssertionFailure() << text.str();
}

}  // namespace qel::test
