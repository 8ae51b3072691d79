#pragma once

#include <cstddef>
#include <iosfwd>

namespace qel::test {

/// How many objects of the system the process holds. Take one before and one after: equal means that
/// everything was given back. Windows only.
///
/// Contexts of OpenGL and device contexts of windows are counted from the first census of the process on, as
/// far as the module or the running program makes them; take the first while no CallTrace is alive. Where the
/// system does not tell its USER handles, they are the windows of the process.
struct Census {
    int gdiHandles = 0;   ///< pens, brushes, fonts, bitmaps, regions, device contexts
    int userHandles = 0;  ///< windows, menus, cursors, hooks
    int glContexts = 0;   ///< made and not deleted
    int windowDcs = 0;    ///< fetched with GetDC and not released

    static Census now();

    bool operator==(const Census&) const = default;
};

std::ostream& operator<<(std::ostream& stream, const Census& census);

/// How much memory the process holds. Unlike handles, these change a little of their own accord, so compare
/// their growth over many repetitions with a bound. Windows only.
struct MemoryCensus {
    std::size_t committedBytes = 0;  ///< memory of the process alone, in pages that are in use
    std::size_t heapBytes = 0;       ///< blocks of all heaps of the process
    std::size_t heapBlocks = 0;

    static MemoryCensus now();

    bool operator==(const MemoryCensus&) const = default;
};

std::ostream& operator<<(std::ostream& stream, const MemoryCensus& census);

}  // namespace qel::test
