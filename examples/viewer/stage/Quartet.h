#pragma once

#include <windows.h>

#include <array>
#include <memory>
#include <optional>

#include "Stage.h"
#include "SystemWindow.h"

namespace qelview {

/// Four views of a scene for one window: from above, from the front, from the right and isometric. Each has a
/// display and a camera of its own, on a hidden window; their pictures are shown side by side.
class Quartet {
  public:
    /// Null if the driver has no room for four more contexts.
    /// @param size of the window.
    [[nodiscard]] static std::unique_ptr<Quartet> open(Stage& one, const ClientSize& size);
    void resize(const ClientSize& size);
    /// The standard view of each, filled by the scene.
    void setViews();
    /// As `Stage::sceneChanged`, with the standard views of a new scene.
    void sceneChanged(const std::optional<qel::XPnt3d>& originBefore);

    /// The view that mouse and keys use.
    [[nodiscard]] Stage& active() { return *views.at(chosen).stage; }
    /// Makes the view at a place of the window the active one.
    /// @return false if it is already.
    bool choose(const PixelPlace& place);
    /// A place of the window in the active view.
    [[nodiscard]] PixelPlace inActive(const PixelPlace& place) const;

    /// Draws the active view, or all, which then have its marks.
    void draw(bool all);
    /// Draws the active view's overlay again.
    void drawOverlay(const std::optional<PixelBox>& rectangle);
    /// What was drawn last, in the size of the window.
    [[nodiscard]] PixelImage image() const;
    /// All as captures; nothing if the driver cannot draw them so large.
    [[nodiscard]] std::optional<PixelImage> capturedPixels(int times);

  private:
    struct View {
        OwnedWindow window;
        std::unique_ptr<Stage> stage;
        PixelImage picture;
    };

    /// The lower left corner of a view in the window.
    [[nodiscard]] PixelPlace cornerOf(std::size_t view) const;

    /// From the upper left, row by row.
    std::array<View, 4> views;
    std::size_t chosen = 3;
    ClientSize tile;
};

}  // namespace qelview
