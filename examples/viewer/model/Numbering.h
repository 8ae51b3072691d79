#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "AllCores.h"

namespace qelview {

/// Loads what is read soon into the processor's cache.
inline void prefetch([[maybe_unused]] const void* address) {
#ifdef __GNUC__
    __builtin_prefetch(address);
#endif
}

/// Assigns numbers to keys, from 0, in the order of first appearance; equal keys have the same number.
template <class Word, std::size_t kWords>
class Numbering {
  public:
    using Key = std::array<Word, kWords>;

    static constexpr std::size_t kBlock = 64;

    /// @param expected number of different keys, for the size of the table; there can be more.
    explicit Numbering(std::size_t expected)
        : slots(std::bit_ceil(std::max(expected * 2, kFewestSlots)), kFree) {
        keys.reserve(expected);
    }

    std::uint32_t numberOf(const Key& key) {
        makeRoom(1);
        return numberFrom(hashOf(key), key);
    }

    /// The numbers of a few keys. The table does not fit into the processor's cache: the loads of a block
    /// overlap.
    /// @param count up to `kBlock`.
    void numberBlock(const Key* block, std::size_t count, std::uint32_t* numbers) {
        makeRoom(count);
        std::array<std::size_t, kBlock> hashes;
        for (std::size_t i = 0; i < count; ++i) {
            hashes[i] = hashOf(block[i]);
            prefetch(&slots[hashes[i] & (slots.size() - 1)]);
        }
        for (std::size_t i = 0; i < count; ++i) {
            numbers[i] = numberFrom(hashes[i], block[i]);
        }
    }
    /// Indexed by number.
    [[nodiscard]] const std::vector<Key>& known() const { return keys; }
    [[nodiscard]] std::vector<Key> takeKnown() { return std::move(keys); }

  private:
    static constexpr std::uint32_t kFree = 0xFFFFFFFF;
    static constexpr std::size_t kFewestSlots = 1024;

    static std::size_t hashOf(const Key& key) {
        std::uint64_t hash = 0;
        for (const Word word : key) {
            // The odd number nearest to 2^64 over the golden ratio spreads neighbours over all bits.
            hash = (hash ^ word) * 0x9E3779B97F4A7C15U;
            hash ^= hash >> 32U;
        }
        return hash;
    }

    /// Branch-free; `operator==` of arrays is a library call.
    static bool areEqual(const Key& a, const Key& b) {
        Word difference = 0;
        for (std::size_t i = 0; i < kWords; ++i) {
            difference |= a[i] ^ b[i];
        }
        return difference == 0;
    }

    std::uint32_t numberFrom(std::size_t hash, const Key& key) {
        std::uint32_t& slot = slotOf(hash, key);
        if (slot == kFree) {
            slot = static_cast<std::uint32_t>(keys.size());
            keys.push_back(key);
        }
        return slot;
    }

    /// The slot of a key, or the free slot for it.
    std::uint32_t& slotOf(std::size_t hash, const Key& key) {
        const std::size_t mask = slots.size() - 1;
        std::size_t at = hash & mask;
        while (slots[at] != kFree && !areEqual(keys[slots[at]], key)) {
            at = (at + 1) & mask;
        }
        return slots[at];
    }

    /// For so many more keys.
    void makeRoom(std::size_t count) {
        if ((keys.size() + count) * 2 <= slots.size()) {
            return;
        }
        slots.assign(slots.size() * 2, kFree);
        for (std::size_t i = 0; i < keys.size(); ++i) {
            slotOf(hashOf(keys[i]), keys[i]) = static_cast<std::uint32_t>(i);
        }
    }

    std::vector<Key> keys;
    /// A power of two; at least half of them are free.
    std::vector<std::uint32_t> slots;
};

/// The result of `numberAll`.
template <class Word, std::size_t kWords>
struct Numbered {
    /// One for each key.
    std::vector<std::uint32_t> numbers;
    /// The different keys, indexed by number.
    std::vector<std::array<Word, kWords>> keys;
};

/// Numbers `count` keys in parallel, with the numbers that one `Numbering` would assign.
/// @param keyAt called with each index below `count`, on several threads.
template <class Word, std::size_t kWords, class KeyAt>
[[nodiscard]] Numbered<Word, kWords> numberAll(std::size_t count, std::size_t expected, const KeyAt& keyAt) {
    constexpr std::size_t kBlock = Numbering<Word, kWords>::kBlock;
    Numbered<Word, kWords> all;
    all.numbers.resize(count);
    const std::vector<Piece> pieces = piecesOf(count);
    std::vector<Numbering<Word, kWords>> known(pieces.size(), Numbering<Word, kWords>(0));
    onAllCores(pieces, [&](std::size_t number) {
        // The others are merged into the first one.
        Numbering<Word, kWords> own(number == 0 ? expected : expected / pieces.size());
        std::array<std::array<Word, kWords>, kBlock> block;
        for (std::size_t i = pieces[number].begin; i < pieces[number].end; i += kBlock) {
            const std::size_t size = std::min(kBlock, pieces[number].end - i);
            for (std::size_t key = 0; key < size; ++key) {
                block[key] = keyAt(i + key);
            }
            own.numberBlock(block.data(), size, &all.numbers[i]);
        }
        known[number] = std::move(own);
    });
    std::vector<std::vector<std::uint32_t>> numbersOfKnown(pieces.size());
    for (std::size_t number = 1; number < pieces.size(); ++number) {
        const auto& keys = known[number].known();
        numbersOfKnown[number].resize(keys.size());
        for (std::size_t i = 0; i < keys.size(); i += kBlock) {
            known.front().numberBlock(&keys[i], std::min(kBlock, keys.size() - i),
                                      &numbersOfKnown[number][i]);
        }
    }
    onAllCores(pieces, [&](std::size_t number) {
        for (std::size_t i = pieces[number].begin; number > 0 && i < pieces[number].end; ++i) {
            all.numbers[i] = numbersOfKnown[number][all.numbers[i]];
        }
    });
    all.keys = known.front().takeKnown();
    return all;
}

}  // namespace qelview
