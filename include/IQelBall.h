#pragma once

#include <cstdint>

#include "IQelGeometry.h"
#include "QelStatus.h"
#include "XPnt3d.h"

/// A host's ball (`qel::GeometryKind::Ball`), drawn as a wire sphere of 20 slices and 20 stacks.
class IQelBall : public IQelGeometry {
  public:
    virtual std::int32_t reservedSlot2() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot3() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot4() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot5() { return qel::kNotImplemented; }
    /// Radius in model units.
    virtual double radius() = 0;
    virtual std::int32_t reservedSlot7() { return qel::kNotImplemented; }
    /// Centre in model units.
    virtual qel::XPnt3d center() = 0;
};
