#pragma once

#include <cstdint>

#include "IQelCurve.h"
#include "IQelGeometry.h"
#include "QelStatus.h"

/// A host's polygon of one or more rings (`qel::GeometryKind::Polygon`). Each ring is drawn as an open line
/// strip: it looks closed only if its points repeat the first one at the end.
class IQelPolygon : public IQelGeometry {
  public:
    virtual std::int32_t reservedSlot2() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot3() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot4() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot5() { return qel::kNotImplemented; }
    /// Number of rings.
    virtual std::int32_t ringCount() = 0;
    virtual std::int32_t reservedSlot7() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot8() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot9() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot10() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot11() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot12() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot13() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot14() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot15() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot16() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot17() { return qel::kNotImplemented; }
    /// A ring by index from 0 to `ringCount()` - 1, owned by the polygon. A null ring is skipped.
    virtual IQelCurve* ring(std::int32_t index) = 0;
};
