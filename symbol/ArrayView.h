#pragma once

#include <cstdint>

#include "IQelArray.h"
#include "QelRefPtr.h"

/// A view of a host's array for one call: its elements and their number, each asked for once, and the size of
/// an element in bytes. The caller keeps the reference.
struct ArrayView {
    template <class Element>
    explicit ArrayView(const qel::ref_ptr<IQelArray<Element>>& array)
        : given(static_cast<bool>(array)),
          count(given ? array->count() : 0),
          data(given ? array->data() : nullptr),
          stride(static_cast<std::int32_t>(sizeof(Element))) {}

    /// True if there is something to draw from. A container may count elements and still have no memory for
    /// them; reading it would end the process.
    [[nodiscard]] bool holdsElements() const { return count > 0 && data != nullptr; }
    /// True if every vertex has its element, or the array was not given at all.
    [[nodiscard]] bool isAbsentOrMatches(const ArrayView& vertices) const {
        return !given || (count == vertices.count && data != nullptr);
    }

    bool given;
    std::int32_t count;
    const void* data;
    std::int32_t stride;
};
