#pragma once

#include <cstddef>
#include <functional>

namespace qel::test {

/// Where a guarded block ends.
enum class BlockEnd {
    /// At the guard page, up to the alignment of 16 bytes that every allocation has. The bytes between the
    /// end of the block and the guard page hold a pattern that is checked when the block is freed and by
    /// damagedBlocks().
    kAligned,

    /// Exactly at the guard page, so that the first byte past any block faults. The block may then be less
    /// than 16-byte aligned, which optimised code may not bear unless its size is a multiple of 16.
    kExact,
};

/// Serves the memory that QelDisplay64t.dll, QelGeometry64t.dll and QelBase64t.dll ask for, with malloc and
/// its relatives and with operator new, from pages of their own that end in a page without access: a write or
/// a read past a block faults where it happens. A freed block loses its pages, so its later use faults too;
/// its addresses are not given again before millions of others. A fault ends the process with exit code 3 and
/// a line on standard error that names the block, unless faultsIn catches it.
///
/// While one lives, memory that the running program takes with operator new is guarded as well, since both
/// use the same C++ library. Blocks may outlive it. When the address space set aside for guarded blocks is
/// used up, or too many blocks live at once, the ordinary heap serves on: see unguardedBlocks(). One that is
/// made while another one lives serves in its place until it ends. Windows only.
class GuardedHeap {
  public:
    explicit GuardedHeap(BlockEnd end = BlockEnd::kAligned);
    ~GuardedHeap();
    GuardedHeap(const GuardedHeap&) = delete;
    GuardedHeap& operator=(const GuardedHeap&) = delete;

    /// True while one lives.
    static bool isAlive();

    /// Blocks served since it began to live; blocks that had to be served without a guard.
    std::size_t servedBlocks() const;
    std::size_t unguardedBlocks() const;

    /// The `nth` coming allocation of the calling thread (1 is the next one) finds no memory, so that
    /// operator new throws; 0 for none.
    void refuse(std::size_t nth);
    /// True if an allocation found no memory since `refuse` was called.
    bool hasRefused() const;

    /// Blocks that are not freed, and how many bytes were asked for in them. Counts all guarded blocks of the
    /// process.
    static std::size_t liveBlocks();
    static std::size_t liveBytes();

    /// From now on a request of more than `bytes` finds no memory, on whatever thread; SIZE_MAX for no such
    /// bound.
    void refuseAbove(std::size_t bytes);
    /// The largest request that found none since `refuseAbove` was called, in bytes; 0 if there was none.
    std::size_t largestRefused() const;

    /// Blocks of the process, freed or not, behind whose end something was written within the alignment.
    static std::size_t damagedBlocks();

    /// True if the address is that of a live guarded block.
    static bool guards(const void* address);

    /// Size that was asked for, of a live guarded block.
    static std::size_t sizeOf(const void* block);

  private:
    /// How another one served that lives around this one.
    struct Outer {
        bool serves = false;
        std::size_t alignment = 0;
        std::size_t served = 0;
        std::size_t unguarded = 0;
    };
    Outer outer;
};

/// Runs the body and tells whether it touched memory that it may not touch. What the body had open at that
/// moment is not cleaned up.
bool faultsIn(const std::function<void()>& body);

}  // namespace qel::test
