#pragma once

#include <cstdint>

#include "QelSystem.h"

/// The characters 32 to 127 of a font as OpenGL display lists. The lists live in the context in which they
/// were built, and only that context's lists are ever deleted.
class BitmapFont {
  public:
    BitmapFont() = default;
    BitmapFont(const BitmapFont&) = delete;
    BitmapFont& operator=(const BitmapFont&) = delete;

    /// Builds the lists in the current context. Lists built before are left to their context. A font or lists
    /// that cannot be had leave text invisible.
    void build(HDC deviceContext);
    /// Draws text at the current raster position of the current context.
    void draw(const char* text) const;
    /// Makes the context of the lists current and deletes them; nothing if they or their context are gone.
    void destroy();
    /// The lists went with their context.
    void forget() noexcept { listBase = 0; }

  private:
    /// 0 is no list: OpenGL answers it when it has none to give.
    std::uint32_t listBase = 0;
    HDC dc = nullptr;
    HGLRC rc = nullptr;
};
