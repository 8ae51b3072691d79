#pragma once

#include <cstdint>

#include "IQelArray.h"
#include "QelRefPtr.h"

/// A host's array during one call: elements, their number (each queried once), and the size of an element in
/// bytes. The caller keeps the reference.
struct ArrayView {
    template <class Element>
    explicit ArrayView(const qel::ref_ptr<IQelArray<Element>>& array)
        : given(static_cast<bool>(array)),
          count(given ? array->count() : 0),
          data(given ? array->data() : nullptr),
          stride(static_cast<std::int32_t>(sizeof(Element))) {}

    /// True if there is something to draw from. An array may report a count without memory, and reading it
    /// would crash.
    [[nodiscard]] bool holdsElements() const { return count > 0 && data != nullptr; }
    /// True if every vertex has an element, or the array was not given.
    [[nodiscard]] bool isAbsentOrMatches(const ArrayView& vertices) const {
        return !given || (count == vertices.count && data != nullptr);
    }

    bool given;
    std::int32_t count;
    const void* data;
    std::int32_t stride;
};
