#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace qelview {

/// Numbers different keys from 0 on, in the order in which they come; equal keys have the same number.
template <class Word, std::size_t kWords>
class Numbering {
  public:
    using Key = std::array<Word, kWords>;

    /// @param expected how many different keys may come; there can be more.
    explicit Numbering(std::size_t expected) {
        keys.reserve(expected);
        while (slots.size() < expected * 2) {
            slots.resize(slots.size() * 2, kFree);
        }
    }

    std::uint32_t numberOf(const Key& key) {
        if (keys.size() * 2 > slots.size()) {
            grow();
        }
        std::uint32_t& slot = slotOf(key);
        if (slot == kFree) {
            slot = static_cast<std::uint32_t>(keys.size());
            keys.push_back(key);
        }
        return slot;
    }
    /// By their numbers.
    [[nodiscard]] const std::vector<Key>& known() const { return keys; }

  private:
    static constexpr std::uint32_t kFree = 0xFFFFFFFF;

    static std::size_t hashOf(const Key& key) {
        std::uint64_t hash = 0;
        for (const Word word : key) {
            // The odd number nearest to 2^64 over the golden ratio spreads neighbours over all bits.
            hash = (hash ^ word) * 0x9E3779B97F4A7C15U;
            hash ^= hash >> 29U;
        }
        return hash ^ (hash >> 32U);
    }

    /// The slot of a key, or the free one where it belongs.
    std::uint32_t& slotOf(const Key& key) {
        const std::size_t mask = slots.size() - 1;
        std::size_t at = hashOf(key) & mask;
        while (slots[at] != kFree && keys[slots[at]] != key) {
            at = (at + 1) & mask;
        }
        return slots[at];
    }

    void grow() {
        slots.assign(slots.size() * 2, kFree);
        for (std::size_t i = 0; i < keys.size(); ++i) {
            slotOf(keys[i]) = static_cast<std::uint32_t>(i);
        }
    }

    std::vector<Key> keys;
    /// A power of two; at least half of them are free.
    std::vector<std::uint32_t> slots = std::vector<std::uint32_t>(1024, kFree);
};

}  // namespace qelview
