#pragma once

#include <cstdint>

#include "CurrentContext.h"

/// The characters 32 to 127 of a font as OpenGL display lists. The lists live in the context in which they
/// were built, and only that context's lists are ever drawn or deleted.
class BitmapFont {
  public:
    /// A font without lists: text is invisible.
    BitmapFont() = default;
    /// Builds the lists in a context, which must be current. If font or lists cannot be created, text stays
    /// invisible.
    explicit BitmapFont(const ContextBinding& current);

    /// True if the lists live in this context.
    [[nodiscard]] bool isIn(HGLRC context) const noexcept { return listBase != 0 && context == home.rc; }
    /// Draws text at the current raster position of the current context, which must be that of the lists.
    void draw(const char* text) const;
    /// Updates the device context that the lists' context is current on: the one it was built on may be gone.
    void follow(const ContextBinding& binding) noexcept;
    /// Makes the context of the lists current and deletes them; does nothing if they or their context are
    /// gone.
    void destroy();

  private:
    /// 0 is no list: OpenGL returns it if it has none left.
    std::uint32_t listBase = 0;
    ContextBinding home;
};
