#pragma once

#include <cstdint>

#include "QelReferenced.h"
#include "QelStatus.h"

/// An array of the host's that meshes, point clouds and stippled lines are drawn from.
///
/// Arrays are passed as `qel::ref_ptr` by value: a call that is given an array gives its reference back on
/// every path, so a fresh array can be passed without being kept.
/// @tparam Element one of the structures of QelArrayElements.h, or `qel::XPnt3d`.
template <class Element>
class IQelArray : public qel::QelReferenced {
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
    /// Number of elements.
    virtual std::int32_t count() = 0;
    virtual std::int32_t reservedSlot16() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot17() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot18() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot19() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot20() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot21() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot22() { return qel::kNotImplemented; }
    /// The first element, or null if there is none; the storage belongs to the container and must stay in
    /// place while a reference is held.
    virtual const Element* data() = 0;
};
