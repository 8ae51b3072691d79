#include <QtGlobal>
#include <filesystem>

#include "ViewerMenu.h"
#include "ViewerWindow.h"

/// What the menu of the viewer window has beyond the keys.

namespace qelview {

void ViewerWindow::markMenu() {
    HMENU const bar = GetMenu(window.get());
    showMark(bar, Command::SwitchProjection, stage->camera().isOrtho());
    showMark(bar, Command::LongAxes, stage->camera().getOverlayOption());
    showMark(bar, Command::TurnUp, stage->up() == UpAxis::Y);
    showMark(bar, Command::Stereo, stage->isStereo());
    showMark(bar, Command::Measure, stage->annotations().isMeasuring);
    showMark(bar, Command::Quartet, quartet != nullptr);
}

void ViewerWindow::remember(const std::vector<std::string>& files) {
    shownFiles.clear();
    for (const std::string& file : files) {
        shownFiles.push_back(absoluteName(file));
        recent.add(shownFiles.back(), stage->up());
    }
    keepRecent();
}

void ViewerWindow::openRecent(std::size_t number) {
    if (number >= recent.names().size()) {
        return;
    }
    const std::string file = recent.names()[number];
    if (!openFiles({file})) {
        recent.remove(file);
        keepRecent();
    }
}

void ViewerWindow::keepRecent() {
    showRecentFiles(GetMenu(window.get()), recent.names());
    if (environment.storeKey != nullptr) {
        writeRecentFiles(environment.storeKey, recent.stored());
    }
}

void ViewerWindow::turnUp() {
    const UpAxis before = stage->up();
    if (!stage->turnUp()) {
        say("The file defines that " + std::string(stage->up() == UpAxis::Y ? "Y" : "Z") + " points up");
        return;
    }
    own->turnView(before);
    if (quartet) {
        quartet->setViews();
        stage->makeCurrent();
    }
    for (const std::string& file : shownFiles) {
        recent.add(file, stage->up());
    }
    keepRecent();
}

std::string ViewerWindow::aboutText() {
    return "qelview " QELVIEW_VERSION ", a viewer of models and maps\nDrawn by QelDisplay64t " QELVIEW_VERSION
           "\n\n" +
           stage->driverText() + "\nQt " + qVersion();
}

void ViewerWindow::showAbout() {
    if (!environment.isAttended) {
        say("qelview " QELVIEW_VERSION);
        return;
    }
    const std::wstring text = toWide(aboutText());
    MSGBOXPARAMSW box{};
    box.cbSize = sizeof box;
    box.hwndOwner = window.get();
    box.hInstance = GetModuleHandleW(nullptr);
    box.lpszText = text.c_str();
    box.lpszCaption = L"About qelview";
    box.dwStyle = MB_OK | MB_USERICON;
    box.lpszIcon = MAKEINTRESOURCEW(1);
    MessageBoxIndirectW(&box);
}

}  // namespace qelview
