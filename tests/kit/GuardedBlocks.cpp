#include "GuardedBlocks.h"

#include <windows.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstring>
#include <new>

namespace qel::test::guarded {

namespace {

constexpr std::size_t kPage = 4096;
constexpr std::size_t kPages = std::size_t{1} << 20;
constexpr unsigned char kPattern = 0xA5;

enum class State : std::uint32_t { kNone, kLive, kFreed };

/// What is known of the block whose pages begin at this page.
struct Entry {
    std::size_t size;
    std::atomic<State> state;
    std::uint32_t pages;   ///< without the guard page
    std::uint32_t offset;  ///< of the block in its first page
};

/// Reserved as a whole; a page gets memory when a block takes it.
struct Arena {
    unsigned char* pages;
    Entry* entries;
    std::atomic<std::size_t> nextPage = 0;
    std::atomic<std::size_t> damaged = 0;

    Arena()
        : pages(
              static_cast<unsigned char*>(VirtualAlloc(nullptr, kPages * kPage, MEM_RESERVE, PAGE_NOACCESS))),
          entries(static_cast<Entry*>(
              VirtualAlloc(nullptr, kPages * sizeof(Entry), MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE))) {
        if (pages == nullptr || entries == nullptr) {
            nextPage = kPages;
        }
    }
};

Arena& arena() {
    // Lives to the end of the process, because blocks may be freed by the last destructors.
    static Arena* const only = [] {
        alignas(Arena) static unsigned char storage[sizeof(Arena)];
        return new (storage) Arena;
    }();
    return *only;
}

std::size_t pageOf(const void* address) {
    return (reinterpret_cast<std::uintptr_t>(address) - reinterpret_cast<std::uintptr_t>(arena().pages)) /
           kPage;
}

unsigned char* startOf(std::size_t page) {
    return arena().pages + page * kPage;
}

/// The bytes between the end of the block and its guard page.
std::size_t slackOf(const Entry& entry) {
    return entry.pages * kPage - entry.offset - entry.size;
}

bool isDamaged(std::size_t page) {
    const Entry& entry = arena().entries[page];
    const unsigned char* const slack = startOf(page) + entry.offset + entry.size;
    return !std::all_of(slack, slack + slackOf(entry), [](unsigned char byte) { return byte == kPattern; });
}

/// The entry of a live block that begins here, or null.
Entry* liveEntry(const void* address) {
    if (!isHere(address)) {
        return nullptr;
    }
    Entry& entry = arena().entries[pageOf(address)];
    const bool begins = startOf(pageOf(address)) + entry.offset == address;
    return begins && entry.state.load() == State::kLive ? &entry : nullptr;
}

}  // namespace

void* allocate(std::size_t size, std::size_t alignment) {
    Arena& here = arena();
    // A block of no bytes gets some of its own all the same, so that it has an address of its own.
    const std::size_t room = std::max<std::size_t>((size + alignment - 1) / alignment, 1) * alignment;
    const std::size_t pages = std::max<std::size_t>((room + kPage - 1) / kPage, 1);
    if (size > kPages * kPage || here.nextPage.load() + pages + 1 > kPages) {
        return nullptr;
    }
    const std::size_t page = here.nextPage.fetch_add(pages + 1);
    if (page + pages + 1 > kPages ||
        VirtualAlloc(startOf(page), pages * kPage, MEM_COMMIT, PAGE_READWRITE) == nullptr) {
        return nullptr;
    }
    Entry& entry = here.entries[page];
    entry.size = size;
    entry.pages = static_cast<std::uint32_t>(pages);
    entry.offset = static_cast<std::uint32_t>(pages * kPage - room);
    unsigned char* const block = startOf(page) + entry.offset;
    std::memset(block + size, kPattern, slackOf(entry));
    entry.state = State::kLive;
    return block;
}

bool release(void* block) {
    Entry* const entry = liveEntry(block);
    if (entry == nullptr) {
        return false;
    }
    const std::size_t page = pageOf(block);
    arena().damaged += isDamaged(page) ? 1U : 0U;
    entry->state = State::kFreed;
    VirtualFree(startOf(page), entry->pages * kPage, MEM_DECOMMIT);
    return true;
}

bool isBlock(const void* address) {
    return liveEntry(address) != nullptr;
}

bool isHere(const void* address) {
    const Arena& here = arena();
    return here.pages != nullptr && pageOf(address) < kPages;
}

std::size_t sizeOf(const void* block) {
    const Entry* const entry = liveEntry(block);
    return entry != nullptr ? entry->size : 0;
}

Place placeOf(const void* address) {
    if (!isHere(address)) {
        return {};
    }
    std::size_t page = pageOf(address);
    while (page > 0 && arena().entries[page].state.load() == State::kNone) {
        --page;
    }
    const Entry& entry = arena().entries[page];
    return {startOf(page) + entry.offset, entry.size, entry.state.load() == State::kFreed};
}

Totals totals() {
    Arena& here = arena();
    Totals result;
    result.damaged = here.damaged;
    const std::size_t used = std::min(here.nextPage.load(), kPages);
    for (std::size_t page = 0; page < used; ++page) {
        const Entry& entry = here.entries[page];
        if (entry.state.load() == State::kLive) {
            ++result.blocks;
            result.bytes += entry.size;
            result.damaged += isDamaged(page) ? 1U : 0U;
        }
    }
    return result;
}

}  // namespace qel::test::guarded
