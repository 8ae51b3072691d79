#pragma once

#include <cstddef>

/// The pages behind GuardedHeap: blocks that end at a page without access. Uses no heap itself.

namespace qel::test::guarded {

/// A block of `size` bytes that ends at a guard page, up to `alignment` (a power of two, at most a page), or
/// null when the address space set aside is used up.
void* allocate(std::size_t size, std::size_t alignment);

/// Takes the block's pages away. False if it is none of the blocks here.
bool release(void* block);

/// True if the address is the start of a live block here.
bool isBlock(const void* address);

/// True if the address lies anywhere in the address space set aside, also in a freed block or a guard page.
bool isHere(const void* address);

/// Size that was asked for.
std::size_t sizeOf(const void* block);

/// What stands at the address, for a message: the block it lies in or behind, its size and whether it was
/// freed.
struct Place {
    const void* block = nullptr;
    std::size_t size = 0;
    bool freed = false;
};
Place placeOf(const void* address);

/// Blocks that are not freed, and the bytes that were asked for in them.
std::size_t liveBlocks();
std::size_t liveBytes();

/// Blocks, freed or not, behind whose end something was written. Looks at every live block.
std::size_t damagedBlocks();

}  // namespace qel::test::guarded
