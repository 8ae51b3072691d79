#pragma once

#include <windows.h>

#include "ImportTable.h"

namespace qel::bench {

/// While it lives, every function of OpenGL, GLU, WGL and GDI that the module imports does nothing, so that
/// what a call of the module takes is the module's own time and that of so many empty calls. Queries answer
/// what makes the module go its usual way: the matrices and the viewport that were current when this was
/// made, capabilities that are switched off, no errors.
class EmptyGl {
  public:
    EmptyGl();
    EmptyGl(const EmptyGl&) = delete;
    EmptyGl& operator=(const EmptyGl&) = delete;

    /// How many imports were replaced.
    [[nodiscard]] std::size_t count() const { return patches.count(); }

    /// Depth that is read wherever the module reads it: background is 1.
    static void answerDepth(float depth);

    /// Calls an empty function through a pointer in memory so many times, as the module calls its imports.
    static void callEmpty(std::int64_t times);

  private:
    test::ImportPatches patches;
};

}  // namespace qel::bench
