#pragma once

#include <cstdint>

#include "CurrentContext.h"

/// The characters 32 to 127 of a font as OpenGL display lists. The lists live in the context in which they
/// were built, and only that context's lists are ever drawn or deleted.
class BitmapFont {
  public:
    /// A font without lists: text is invisible.
    BitmapFont() = default;
    /// Builds the lists in a context, which is current. A font or lists that cannot be had leave text
    /// invisible.
    explicit BitmapFont(const ContextBinding& current);

    /// True if the lists live in this context.
    [[nodiscard]] bool isIn(HGLRC context) const noexcept { return listBase != 0 && context == home.rc; }
    /// Draws text at the current raster position of the current context, which must be that of the lists.
    void draw(const char* text) const;
    /// Where the context was made current since: the device context it was built on may be gone.
    void follow(const ContextBinding& binding) noexcept;
    /// Makes the context of the lists current and deletes them; nothing if they or their context are gone.
    void destroy();

  private:
    /// 0 is no list: OpenGL answers it when it has none to give.
    std::uint32_t listBase = 0;
    ContextBinding home;
};
