#include "ViewerWindow.h"

/// Four views in the viewer window. The one under the mouse takes the keys.

namespace qelview {

void ViewerWindow::switchQuartet() {
    if (quartet) {
        closeQuartet();
        return;
    }
    quartet = Quartet::open(*own, clientSizeOf(window.get()));
    if (quartet == nullptr) {
        say("The graphics driver has no room for four views");
        return;
    }
    stage = &quartet->active();
    stage->makeCurrent();
}

void ViewerWindow::closeQuartet() {
    if (quartet) {
        own->annotations().marks = stage->annotations().marks;
        own->annotations().isMeasuring = stage->annotations().isMeasuring;
        stage = own.get();
        quartet.reset();
        stage->makeCurrent();
        redraw(Stale::Frame);
    }
}

void ViewerWindow::chooseView(const PixelPlace& place) {
    if (!quartet || gesture.isActive()) {
        return;
    }
    refresh();
    if (quartet->choose(place)) {
        stage = &quartet->active();
        stage->makeCurrent();
        redraw(Stale::Overlay);
    }
}

void ViewerWindow::showQuartet() {
    own->showImage(quartet->image());
    stage->makeCurrent();
}

}  // namespace qelview
