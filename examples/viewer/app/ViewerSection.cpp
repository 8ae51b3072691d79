#include "ViewerWindow.h"

/// The plane that cuts the scene in the viewer window.

namespace qelview {

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
