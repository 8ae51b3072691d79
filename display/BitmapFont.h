#pragma once

#include <cstdint>

#include "QelSystem.h"

/// The characters 32 to 127 of a font as OpenGL display lists. The lists live in the context in which they
/// were built, and only that context's lists are ever drawn with or deleted.
class BitmapFont {
  public:
    /// A font without lists: text is invisible.
    BitmapFont() = default;
    /// Builds the lists in a context, which is current on the device context. A font or lists that cannot be
    /// had leave text invisible.
    BitmapFont(HDC deviceContext, HGLRC context);

    /// True if the lists live in this context.
    [[nodiscard]] bool isIn(HGLRC context) const noexcept { return listBase != 0 && context == rc; }
    /// Draws text at the current raster position of the current context, which must be that of the lists.
    void draw(const char* text) const;
    /// The context was made current on another device context: the one it was built on may be gone.
    void follow(HDC deviceContext, HGLRC context) noexcept;
    /// Makes the context of the lists current and deletes them; nothing if they or their context are gone.
    void destroy();

  private:
    /// 0 is no list: OpenGL answers it when it has none to give.
    std::uint32_t listBase = 0;
    HDC dc = nullptr;
    HGLRC rc = nullptr;
};
