#pragma once

#include <cstdint>

#include "QelReferenced.h"
#include "QelStatus.h"
#include "XPnt3d.h"

/// The points of a curve: a container that lends its storage for drawing.
///
/// The points lie one behind the other, 32 bytes each, and must stay in place while a reference is held.
class IQelPointArray : public qel::QelReferenced {
  public:
    virtual std::int32_t reservedSlot1() { return qel::kNotImplemented; }
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
    /// Number of points.
    virtual std::int32_t count() = 0;
    virtual std::int32_t reservedSlot16() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot17() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot18() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot19() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot20() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot21() { return qel::kNotImplemented; }
    /// The first point, or null if there is none; the storage belongs to the container.
    virtual const qel::XPnt3d* points() = 0;
};
