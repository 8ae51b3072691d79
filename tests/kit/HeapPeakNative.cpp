#include "HeapPeak.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <stdexcept>

#ifdef __SANITIZE_ADDRESS__

// The compiler has the sanitizer's functions, but no header of these.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
int __sanitizer_install_malloc_and_free_hooks(void (*taken)(const volatile void*, std::size_t),
                                              void (*freed)(const volatile void*));
std::size_t __sanitizer_get_allocated_size(const volatile void* block);
}
// NOLINTEND(bugprone-reserved-identifier)

#endif

namespace qel::test {

namespace {

std::atomic<bool> isAlive = false;
/// Blocks from before are freed as well, so that it can be negative.
std::atomic<std::ptrdiff_t> held = 0;
std::atomic<std::ptrdiff_t> most = 0;

#ifdef __SANITIZE_ADDRESS__

void countTaken(const volatile void* /*block*/, std::size_t size) {
    if (!isAlive) {
        return;
    }
    const std::ptrdiff_t now = held += static_cast<std::ptrdiff_t>(size);
    std::ptrdiff_t before = most;
    while (before < now && !most.compare_exchange_weak(before, now)) {
    }
}

void countFreed(const volatile void* block) {
    if (isAlive && block != nullptr) {
        held -= static_cast<std::ptrdiff_t>(__sanitizer_get_allocated_size(block));
    }
}

/// Hooks stay for the rest of the process.
bool hasHooks() {
    static const bool areInstalled = __sanitizer_install_malloc_and_free_hooks(countTaken, countFreed) != 0;
    return areInstalled;
}

#else

bool hasHooks() {
    return false;
}

#endif

}  // namespace

HeapPeak::HeapPeak() {
    if (isAlive || !hasHooks()) {
        throw std::logic_error("memory cannot be counted");
    }
    held = 0;
    most = 0;
    isAlive = true;
}

HeapPeak::~HeapPeak() {
    isAlive = false;
}

bool HeapPeak::canCount() {
    return hasHooks();
}

std::size_t HeapPeak::bytes() const {
    return static_cast<std::size_t>(std::max<std::ptrdiff_t>(most, 0));
}

}  // namespace qel::test
