#include <array>

#include "ViewerWindow.h"

/// How the scene looks in the viewer window: its colours, the size of points, the plane that cuts it.

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

void ViewerWindow::nextSection() {
    const auto next = static_cast<int>(stage->section()) + 1;
    const bool isLast = next > static_cast<int>(SectionAxis::View);
    stage->setSection(isLast ? SectionAxis::None : static_cast<SectionAxis>(next));
    saySection();
}

void ViewerWindow::changeSection(const KeyCommand& wanted) {
    constexpr double kStep = 0.02;
    if (stage->section() == SectionAxis::None) {
        say("There is no section; X makes one");
        return;
    }
    if (wanted.command == Command::FlipSection) {
        stage->flipSection();
    } else {
        stage->moveSection(wanted.number == 0 ? kStep : -kStep);
    }
    saySection();
}

void ViewerWindow::saySection() {
    const bool isCut = stage->section() != SectionAxis::None;
    say(isCut ? "Section " + stage->sectionText() + "; PageUp and PageDown move it, I turns it round"
              : "No section");
    redraw(Stale::AllViews);
}

}  // namespace qelview
