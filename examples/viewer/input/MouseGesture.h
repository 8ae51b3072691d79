#pragma once

#include <cstdint>
#include <cstdlib>
#include <optional>

namespace qelview {

/// A pixel of the view, counted from its lower-left corner.
struct PixelPlace {
    int x = 0;
    int y = 0;

    bool operator==(const PixelPlace&) const = default;
};

/// A rectangle of pixels between two opposite corners, in either order.
struct PixelBox {
    PixelPlace from;
    PixelPlace to;

    [[nodiscard]] int width() const { return std::abs(to.x - from.x); }
    [[nodiscard]] int height() const { return std::abs(to.y - from.y); }
    [[nodiscard]] PixelPlace middle() const { return {(from.x + to.x) / 2, (from.y + to.y) / 2}; }
};

enum class MouseButton : std::uint8_t { Left, Middle, Right };

/// What a drag does.
enum class DragTool : std::uint8_t { Nothing, Pan, Rotate, Zoom, Rectangle, Section };

/// What the left button drives in place of a rotation; the first one counts.
struct LeftButton {
    bool drawsRectangle = false;
    bool pans = false;
    bool movesSection = false;
};

/// A gesture from the press of a mouse button to its release: which tool it drives, and whether it was a
/// click.
class MouseGesture {
  public:
    /// How far the mouse may move in a click, in pixels.
    static constexpr int kClickReach = 3;

    /// Starts a gesture: middle pans, right zooms. Returns false for another button while one is held, which
    /// changes nothing.
    bool press(MouseButton button, const LeftButton& left, const PixelPlace& place);
    /// Follows the mouse. Returns true if the tool must act: not while it may still be a click.
    bool move(const PixelPlace& place);
    /// Ends the gesture of this button; ignores other buttons.
    /// @return the tool that was driven, or Nothing for a click.
    std::optional<DragTool> release(MouseButton button);
    /// Cancels the gesture: the mouse capture was lost.
    void cancel() { held.reset(); }

    [[nodiscard]] bool isActive() const { return held.has_value(); }
    /// True once the mouse has moved too far for a click.
    [[nodiscard]] bool isDrag() const { return held.has_value() && isDragged; }
    [[nodiscard]] DragTool tool() const { return held ? driven : DragTool::Nothing; }
    /// From the press to the current mouse position.
    [[nodiscard]] const PixelBox& box() const { return path; }

  private:
    std::optional<MouseButton> held;
    DragTool driven = DragTool::Nothing;
    bool isDragged = false;
    PixelBox path;
};

}  // namespace qelview
