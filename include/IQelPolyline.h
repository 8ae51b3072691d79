#pragma once

#include <cstdint>

#include "IQelCurve.h"
#include "IQelGeometry.h"
#include "QelStatus.h"

/// A host's polyline of one or more parts (`qel::GeometryKind::Polyline`), each drawn as an open line strip.
class IQelPolyline : public IQelGeometry {
  public:
    virtual std::int32_t reservedSlot2() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot3() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot4() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot5() { return qel::kNotImplemented; }
    /// Number of parts.
    virtual std::int32_t partCount() = 0;
    virtual std::int32_t reservedSlot7() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot8() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot9() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot10() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot11() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot12() { return qel::kNotImplemented; }
    /// A part by index from 0 to `partCount()` - 1, owned by the polyline. A null part is skipped.
    virtual IQelCurve* part(std::int32_t index) = 0;
};
