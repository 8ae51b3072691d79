#pragma once

#include <cstdint>

#include "IQelGeometry.h"
#include "IQelPointArray.h"
#include "QelRefPtr.h"
#include "QelStatus.h"

/// A host's curve (`qel::GeometryKind::Curve` or `OtherCurve`), or anything drawn like one: a part of a
/// polyline, a ring of a polygon.
///
/// A symbol gets the point array, calls `prepareDraw` once, reads the points and releases the array.
class IQelCurve : public IQelGeometry {
  public:
    virtual std::int32_t reservedSlot2() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot3() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot4() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot5() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot6() { return qel::kNotImplemented; }
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
    virtual std::int32_t reservedSlot18() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot19() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot20() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot21() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot22() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot23() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot24() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot25() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot26() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot27() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot28() { return qel::kNotImplemented; }
    /// Called once per drawing, after `pointArray` and before the points are read, so that a host can compute
    /// its points late. Returns any value; it is not used.
    virtual std::int32_t prepareDraw() { return 0; }
    virtual std::int32_t reservedSlot30() { return qel::kNotImplemented; }
    /// The points of the curve; an empty pointer draws nothing.
    virtual qel::ref_ptr<IQelPointArray> pointArray() = 0;
};
