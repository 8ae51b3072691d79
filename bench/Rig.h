#pragma once

#include <cstdint>
#include <memory>

#include "QelDisplay64t.h"
#include "TestWindow.h"

namespace qel::bench {

/// A hidden window with an attached display whose context is current, and a symbol. The camera shows a model
/// of the size of `modelExtent`. What is current before a rig is made is not current again after it.
class Rig {
  public:
    Rig(int widthPx, int heightPx);
    ~Rig() = default;
    Rig(const Rig&) = delete;
    Rig& operator=(const Rig&) = delete;

    [[nodiscard]] IQelDisplay& display() const { return *shown; }
    [[nodiscard]] IQelTrackBall& camera() const { return *shown->getTrackBall(); }
    [[nodiscard]] IQelSymbol& symbol() const { return *drawing; }
    [[nodiscard]] int width() const { return pixelWidth; }
    [[nodiscard]] int height() const { return pixelHeight; }
    /// The device context and the rendering context (HDC and HGLRC) that the display draws with.
    [[nodiscard]] void* dc() const;
    [[nodiscard]] void* rc() const { return context; }
    [[nodiscard]] std::uintptr_t window() const { return frame.hwnd(); }

    /// Waits until everything is drawn.
    static void finish();

  private:
    test::TestWindow frame;
    ref_ptr<IQelDisplay> shown;
    ref_ptr<IQelSymbol> drawing;
    void* context = nullptr;
    int pixelWidth;
    int pixelHeight;
};

/// The box around what is drawn: two units wide, about the origin.
[[nodiscard]] Enve3d modelExtent();

}  // namespace qel::bench
