#include "QelReferenced.h"

#include <atomic>

namespace qel {

// The count is a plain integer in the header, so that its layout does not depend on the host's standard
// library.

QelReferenced::~QelReferenced() = default;

void QelReferenced::ref() const noexcept {
    std::atomic_ref<std::int32_t>(references).fetch_add(1, std::memory_order_relaxed);
}

void QelReferenced::unref() const noexcept {
    // Acquire on the last one: the deleting thread must see every write made through the other references.
    if (std::atomic_ref<std::int32_t>(references).fetch_sub(1, std::memory_order_acq_rel) == 1) {
        delete this;
    }
}

std::int32_t QelReferenced::referenceCount() const noexcept {
    return std::atomic_ref<std::int32_t>(references).load(std::memory_order_relaxed);
}

}  // namespace qel
