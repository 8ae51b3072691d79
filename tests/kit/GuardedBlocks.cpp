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
/// Two million blocks and more come and go before an address is given again.
constexpr std::size_t kPages = std::size_t{1} << 22;
/// Each live block splits the address space twice more, and systems allow a process some ten thousand parts.
constexpr std::size_t kMostLiveBlocks = 20000;
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
    /// Where the search for free pages goes on; held while pages are taken.
    std::size_t nextPage = 0;
    std::atomic_flag held;
    std::atomic<std::size_t> damaged = 0;
    std::atomic<std::size_t> live = 0;
    std::atomic<std::size_t> liveBytes = 0;

    Arena()
        : pages(
              static_cast<unsigned char*>(VirtualAlloc(nullptr, kPages * kPage, MEM_RESERVE, PAGE_NOACCESS))),
          entries(static_cast<Entry*>(
              VirtualAlloc(nullptr, kPages * sizeof(Entry), MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE))) {}

    bool exists() const { return pages != nullptr && entries != nullptr; }
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

/// The first page from `page` on behind which `count` pages hold no live block, or kPages.
std::size_t freePagesFrom(std::size_t page, std::size_t count) {
    std::size_t begin = page;
    while (page < kPages && page - begin < count) {
        const Entry& entry = arena().entries[page];
        const bool lives = entry.state.load() == State::kLive;
        page += lives ? entry.pages + 1 : 1;
        begin = lives ? page : begin;
    }
    return page - begin >= count ? begin : kPages;
}

/// Marks pages for a block and its guard as taken; kPages if there are none. Freed pages come up again only
/// when the search has gone through all the others.
std::size_t takePages(std::size_t count) {
    Arena& here = arena();
    while (here.held.test_and_set(std::memory_order_acquire)) {
        SwitchToThread();
    }
    std::size_t page = freePagesFrom(here.nextPage, count + 1);
    page = page < kPages ? page : freePagesFrom(0, count + 1);
    if (page < kPages) {
        for (std::size_t inner = page + 1; inner < page + count + 1; ++inner) {
            here.entries[inner].state = State::kNone;
        }
        here.entries[page].pages = static_cast<std::uint32_t>(count);
        here.entries[page].state = State::kLive;
        here.nextPage = page + count + 1;
    }
    here.held.clear(std::memory_order_release);
    return page;
}

}  // namespace

void* allocate(std::size_t size, std::size_t alignment) {
    Arena& here = arena();
    if (!here.exists() || size > kPages * kPage || here.live.load() >= kMostLiveBlocks) {
        return nullptr;
    }
    // A block of no bytes gets some of its own all the same, so that it has an address of its own.
    const std::size_t room = std::max<std::size_t>((size + alignment - 1) / alignment, 1) * alignment;
    const std::size_t pages = std::max<std::size_t>((room + kPage - 1) / kPage, 1);
    const std::size_t page = takePages(pages);
    if (page == kPages) {
        return nullptr;
    }
    Entry& entry = here.entries[page];
    if (VirtualAlloc(startOf(page), pages * kPage, MEM_COMMIT, PAGE_READWRITE) == nullptr) {
        entry.state = State::kNone;
        return nullptr;
    }
    entry.size = size;
    entry.offset = static_cast<std::uint32_t>(pages * kPage - room);
    unsigned char* const block = startOf(page) + entry.offset;
    std::memset(block + size, kPattern, slackOf(entry));
    ++here.live;
    here.liveBytes += size;
    return block;
}

bool release(void* block) {
    Entry* const entry = liveEntry(block);
    if (entry == nullptr) {
        return false;
    }
    Arena& here = arena();
    const std::size_t page = pageOf(block);
    here.damaged += isDamaged(page) ? 1U : 0U;
    --here.live;
    here.liveBytes -= entry->size;
    // Before the block counts as freed: then its pages may be taken at once.
    VirtualFree(startOf(page), entry->pages * kPage, MEM_DECOMMIT);
    entry->state = State::kFreed;
    return true;
}

bool isBlock(const void* address) {
    return liveEntry(address) != nullptr;
}

bool isHere(const void* address) {
    const Arena& here = arena();
    return here.exists() && pageOf(address) < kPages;
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

std::size_t liveBlocks() {
    return arena().live;
}

std::size_t liveBytes() {
    return arena().liveBytes;
}

std::size_t damagedBlocks() {
    Arena& here = arena();
    std::size_t count = here.damaged;
    for (std::size_t page = 0; here.exists() && page < kPages; ++page) {
        count += here.entries[page].state.load() == State::kLive && isDamaged(page) ? 1U : 0U;
    }
    return count;
}

}  // namespace qel::test::guarded
