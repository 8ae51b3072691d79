#pragma once

#include <cstdint>

#include "QelReferenced.h"
#include "QelStatus.h"
#include "XPnt3d.h"

/// The points of a curve, drawn straight from the host's memory: contiguous, 32 bytes each, and kept in place
/// while a reference is held.
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
    /// Number of points; below 0 draws nothing.
    virtual std::int32_t count() = 0;
    virtual std::int32_t reservedSlot16() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot17() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot18() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot19() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot20() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot21() { return qel::kNotImplemented; }
    /// The first point in model units, or null if there is none. The array owns the storage.
    virtual const qel::XPnt3d* points() = 0;
};
