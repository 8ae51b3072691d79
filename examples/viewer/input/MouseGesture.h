#pragma once

#include <cstdint>
#include <optional>

namespace qelview {

/// A pixel of the view, counted from its lower left corner.
struct PixelPlace {
    int x = 0;
    int y = 0;

    bool operator==(const PixelPlace&) const = default;
};

/// A rectangle of pixels between two opposite corners, in either order.
struct PixelBox {
    PixelPlace from;
    PixelPlace to;

    [[nodiscard]] int width() const;
    [[nodiscard]] int height() const;
    [[nodiscard]] PixelPlace middle() const { return {(from.x + to.x) / 2, (from.y + to.y) / 2}; }
};

enum class MouseButton : std::uint8_t { Left, Middle, Right };

/// What a drag does.
enum class DragTool : std::uint8_t { Nothing, Pan, Rotate, Zoom, Rectangle };

/// From a press of a mouse button to its release: which tool it drives, and whether it was a click.
class MouseGesture {
  public:
    /// How far the mouse may stray in a click, in pixels.
    static constexpr int kClickReach = 3;

    /// Begins a gesture: left rotates, or pans with shift, or draws a rectangle; middle pans, right zooms. A
    /// further button while one is held changes nothing, and false is returned.
    bool press(MouseButton button, bool withShift, bool drawsRectangle, const PixelPlace& place);
    /// Follows the mouse. True if the tool has something to do: not while it may still be a click.
    bool move(const PixelPlace& place);
    /// The gesture of this button ends; nothing if it is another button's.
    /// @return the tool that was driven, or Nothing for a click.
    std::optional<DragTool> release(MouseButton button);
    /// The mouse was taken away.
    void cancel() { held.reset(); }

    [[nodiscard]] bool isActive() const { return held.has_value(); }
    /// True once the mouse has moved too far for a click.
    [[nodiscard]] bool isDrag() const { return held.has_value() && strayed; }
    [[nodiscard]] DragTool tool() const { return held ? driven : DragTool::Nothing; }
    /// From the press to where the mouse is.
    [[nodiscard]] const PixelBox& box() const { return path; }

  private:
    std::optional<MouseButton> held;
    DragTool driven = DragTool::Nothing;
    bool strayed = false;
    PixelBox path;
};

}  // namespace qelview
