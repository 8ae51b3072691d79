#pragma once

#include <vector>

#include "QelArrayElements.h"
#include "SymbolFixture.h"
#include "host/HostGeometries.h"

namespace qel::test {

/// An array of so many elements, all zero.
template <class Element>
ref_ptr<VectorArray<Element>> arrayOf(std::size_t count) {
    return {new VectorArray<Element>(std::vector<Element>(count))};
}

/// An array with memory that claims a number of elements below zero.
template <class Element>
ref_ptr<VectorArray<Element>> countingBackwards(std::int32_t claimed) {
    ref_ptr<VectorArray<Element>> array = arrayOf<Element>(4);
    array->claimedCount = claimed;
    return array;
}

/// Indices 0, 1, 2, ... of which each is below `vertices`.
inline ref_ptr<VectorArray<ArrayIndex>> indicesOf(std::size_t count, std::size_t vertices = 1) {
    ref_ptr<VectorArray<ArrayIndex>> indices = arrayOf<ArrayIndex>(count);
    for (std::size_t i = 0; i < count; ++i) {
        indices->elements[i] = static_cast<ArrayIndex>(i % vertices);
    }
    return indices;
}

/// Where an array's elements lie, as OpenGL is told.
template <class Element>
const void* memoryOf(const ref_ptr<VectorArray<Element>>& array) {
    return array->data();
}

}  // namespace qel::test
