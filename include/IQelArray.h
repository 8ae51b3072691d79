#pragma once

#include <cstdint>

#include "QelReferenced.h"
#include "QelStatus.h"

/// A host's array that meshes, point clouds and stippled lines are drawn from.
///
/// - Ownership: arrays are passed as `qel::ref_ptr` by value, and every call releases its reference on every
///   path; a new array can be passed without keeping it.
/// - Context: none is needed; the module calls an array only while it draws.
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
    /// Number of elements; not above 0 counts as empty.
    virtual std::int32_t count() = 0;
    virtual std::int32_t reservedSlot16() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot17() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot18() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot19() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot20() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot21() { return qel::kNotImplemented; }
    virtual std::int32_t reservedSlot22() { return qel::kNotImplemented; }
    /// The first element, or null if there is none. The array owns the storage and keeps it in place while a
    /// reference is held.
    virtual const Element* data() = 0;
};
