#include "Deflate.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstring>
#include <utility>

namespace qelview {

namespace {

constexpr std::size_t kShortestMatch = 4;
constexpr std::size_t kLongestMatch = 258;
constexpr std::size_t kFarthestMatch = 32768;
constexpr unsigned kEndOfBlock = 256;
constexpr unsigned kFirstLengthCode = 257;

/// Up to 48 bits, the lowest of which come first in the stream.
struct Bits {
    std::uint64_t value = 0;
    unsigned count = 0;

    /// These bits, then others.
    [[nodiscard]] constexpr Bits then(const Bits& next) const {
        return {value | next.value << count, count + next.count};
    }
};

/// Codes of the format begin with their highest bit.
constexpr Bits codeOf(unsigned code, unsigned count) {
    Bits reversed{0, count};
    for (unsigned bit = 0; bit < count; ++bit) {
        reversed.value |= static_cast<std::uint64_t>(code >> bit & 1U) << (count - 1 - bit);
    }
    return reversed;
}

/// The fixed code of a byte, of the end of a block or of a length.
constexpr Bits symbolOf(unsigned symbol) {
    if (symbol < 144) {
        return codeOf(0x30 + symbol, 8);
    }
    if (symbol < 256) {
        return codeOf(0x190 + symbol - 144, 9);
    }
    return symbol < 280 ? codeOf(symbol - 256, 7) : codeOf(0xC0 + symbol - 280, 8);
}

constexpr unsigned highestBitOf(unsigned number) {
    return 31 - static_cast<unsigned>(std::countl_zero(number));
}

/// Each power of two from 8 on has four codes with the same number of extra bits.
constexpr Bits lengthBits(std::size_t length) {
    const auto above = static_cast<unsigned>(length - 3);
    if (length == kLongestMatch) {
        return symbolOf(285);
    }
    if (above < 8) {
        return symbolOf(kFirstLengthCode + above);
    }
    const unsigned extra = highestBitOf(above) - 2;
    return symbolOf(kFirstLengthCode + 4 * extra + (above >> extra)).then({above % (1U << extra), extra});
}

/// Each power of two from 4 on has two codes.
constexpr Bits distanceBits(std::size_t distance) {
    const auto above = static_cast<unsigned>(distance - 1);
    if (above < 4) {
        return codeOf(above, 5);
    }
    const unsigned extra = highestBitOf(above) - 1;
    return codeOf(2 * extra + (above >> extra), 5).then({above % (1U << extra), extra});
}

constexpr auto kBytes = [] {
    std::array<Bits, 256> bits{};
    for (unsigned byte = 0; byte < bits.size(); ++byte) {
        bits.at(byte) = symbolOf(byte);
    }
    return bits;
}();

constexpr auto kLengths = [] {
    std::array<Bits, kLongestMatch + 1> bits{};
    for (std::size_t length = 3; length < bits.size(); ++length) {
        bits.at(length) = lengthBits(length);
    }
    return bits;
}();

class Deflating {
  public:
    explicit Deflating(std::span<const std::uint8_t> bytes) : source(bytes), last(kSlots, kNone) {
        stream.reserve(source.size() / 4);
    }

    std::vector<std::uint8_t> run() {
        // Deflate with a window of 32 KiB, and one block of fixed codes.
        stream = {0x78, 0x01};
        put({3, 3});
        std::size_t at = 0;
        while (at < source.size()) {
            const std::size_t length = matchAt(at);
            if (length == 0) {
                put(kBytes[source[at]]);
                ++at;
            } else {
                put(kLengths[length].then(distanceBits(at - candidate)));
                at += length;
                // Runs go on from their last byte, at the shortest distance.
                remember(at - 1);
            }
        }
        put(symbolOf(kEndOfBlock));
        put({0, 7});
        putChecksum();
        return std::move(stream);
    }

  private:
    static constexpr std::size_t kSlots = 1U << 15U;
    static constexpr std::size_t kNone = ~std::size_t{0};

    template <class Word>
    [[nodiscard]] Word wordAt(std::size_t at) const {
        Word word = 0;
        std::memcpy(&word, source.data() + at, sizeof word);
        return word;
    }

    /// The highest bits of the product depend on all of the word.
    [[nodiscard]] std::size_t& slotOf(std::uint32_t word) { return last[word * 0x9E3779B1U >> 17U]; }

    void remember(std::size_t at) {
        if (source.size() - at >= kShortestMatch) {
            slotOf(wordAt<std::uint32_t>(at)) = at;
        }
    }

    /// How many bytes are the same as at the last place that begins alike, which becomes the candidate; 0 if
    /// there is none.
    std::size_t matchAt(std::size_t at) {
        if (source.size() - at < kShortestMatch) {
            return 0;
        }
        const auto begin = wordAt<std::uint32_t>(at);
        candidate = std::exchange(slotOf(begin), at);
        if (candidate == kNone || at - candidate > kFarthestMatch ||
            wordAt<std::uint32_t>(candidate) != begin) {
            return 0;
        }
        const std::size_t most = std::min(source.size() - at, kLongestMatch);
        std::size_t length = kShortestMatch;
        while (length + sizeof(std::uint64_t) <= most &&
               wordAt<std::uint64_t>(at + length) == wordAt<std::uint64_t>(candidate + length)) {
            length += sizeof(std::uint64_t);
        }
        while (length < most && source[at + length] == source[candidate + length]) {
            ++length;
        }
        return length;
    }

    void put(const Bits& bits) {
        waiting = waiting.then(bits);
        while (waiting.count >= 8) {
            stream.push_back(static_cast<std::uint8_t>(waiting.value));
            waiting.value >>= 8U;
            waiting.count -= 8;
        }
    }

    /// Adler-32, from the highest byte.
    void putChecksum() {
        // So many sums cannot overflow.
        constexpr std::size_t kPiece = 5552;
        constexpr std::uint32_t kPrime = 65521;
        std::uint32_t sum = 1;
        std::uint32_t sumOfSums = 0;
        for (std::size_t begin = 0; begin < source.size(); begin += kPiece) {
            for (const std::uint8_t byte : source.subspan(begin, std::min(kPiece, source.size() - begin))) {
                sum += byte;
                sumOfSums += sum;
            }
            sum %= kPrime;
            sumOfSums %= kPrime;
        }
        for (const std::uint32_t part : {sumOfSums, sum}) {
            stream.push_back(static_cast<std::uint8_t>(part >> 8U));
            stream.push_back(static_cast<std::uint8_t>(part & 0xFFU));
        }
    }

    std::span<const std::uint8_t> source;
    std::vector<std::uint8_t> stream;
    /// Where bytes of each hash were last.
    std::vector<std::size_t> last;
    std::size_t candidate = kNone;
    Bits waiting;
};

}  // namespace

std::vector<std::uint8_t> deflated(std::span<const std::uint8_t> bytes) {
    return Deflating(bytes).run();
}

}  // namespace qelview
