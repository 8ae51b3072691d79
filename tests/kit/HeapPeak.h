#pragma once

#include <cstddef>

namespace qel::test {

/// The most memory that the program takes at once while one lives, beyond what it held before: blocks of
/// malloc and operator new on all threads, by the sizes that were asked for. One at a time. Counts only under
/// the address sanitizer.
class HeapPeak {
  public:
    HeapPeak();
    ~HeapPeak();
    HeapPeak(const HeapPeak&) = delete;
    HeapPeak& operator=(const HeapPeak&) = delete;

    /// False in a build that cannot count.
    [[nodiscard]] static bool canCount();
    [[nodiscard]] std::size_t bytes() const;
};

}  // namespace qel::test
