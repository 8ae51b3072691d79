#include "Clipboard.h"
#include "ViewerWindow.h"

/// Marked points of the viewer window, and what is measured between them.

namespace qelview {

void ViewerWindow::markPoint(const PixelPlace& place) {
    const qel::XPnt3d point = stage->pointAt(place);
    Annotations& notes = stage->annotations();
    if (notes.isMeasuring) {
        if (!point.isValid()) {
            say("There is no point");
            return;
        }
        notes.marks.push_back({point, std::to_string(notes.marks.size() + 1)});
        return;
    }
    notes.marks.clear();
    if (point.isValid()) {
        notes.marks.push_back({point, stage->textOf(point)});
    }
}

void ViewerWindow::switchMeasuring() {
    Annotations& notes = stage->annotations();
    notes.isMeasuring = !notes.isMeasuring;
    notes.marks.clear();
    notes.notice = notes.isMeasuring ? "Click points to measure; Ctrl+C copies, M ends" : "";
}

void ViewerWindow::copyMeasurements() {
    if (stage->annotations().marks.empty()) {
        say("Click a point first, or several with M");
        return;
    }
    const bool isCopied = copyText(window.get(), stage->measurementTable());
    say(isCopied ? "Points copied" : "The clipboard is in use by another program; try again");
}

}  // namespace qelview
