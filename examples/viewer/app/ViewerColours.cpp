#include <array>

#include "ViewerWindow.h"

/// Colours and sizes in the viewer window.

namespace qelview {

void ViewerWindow::nextColours() {
    struct Step {
        Colouring colouring;
        const char* notice;
    };
    // What follows own colours, heights, and one colour.
    constexpr std::array<Step, 3> kNext{{
        {Colouring::Height, "Coloured by elevation"},
        {Colouring::Plain, "One colour"},
        {Colouring::Own, "Own colours"},
    }};
    const Step& next = kNext.at(static_cast<std::size_t>(stage->colouring()));
    say(stage->setColouring(next.colouring) ? next.notice : "There is no mesh or point cloud");
}

void ViewerWindow::growPoints(float pixels) {
    const auto size = static_cast<int>(stage->growPoints(pixels));
    say(size > 0 ? "Points of " + std::to_string(size) + (size == 1 ? " pixel" : " pixels")
                 : "There is no point cloud");
}

}  // namespace qelview
