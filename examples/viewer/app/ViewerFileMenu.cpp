#include <QtGlobal>
#include <filesystem>

#include "ViewerMenu.h"
#include "ViewerWindow.h"

/// What the menu of the viewer window has beyond the keys.

namespace qelview {

void ViewerWindow::markMenu() {
    showMarks(GetMenu(window.get()),
              {stage->camera().isOrtho(), stage->camera().getOverlayOption(), stage->isStereo()});
}

void ViewerWindow::remember(const std::vector<std::string>& files) {
    for (const std::string& file : files) {
        // The next run may begin in another folder.
        std::error_code error;
        const std::filesystem::path whole = std::filesystem::absolute(toWide(file), error);
        recent.add(error ? file : toUtf8(whole.wstring()));
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
    if (surroundings.writeRecent) {
        surroundings.writeRecent(recent.names());
    }
}

std::string ViewerWindow::aboutText() {
    return "qelview " QELVIEW_VERSION ", a viewer of models and maps\nDrawn by QelDisplay64t " QELVIEW_VERSION
           "\n\n" +
           stage->driverText() + "\nQt " + qVersion();
}

void ViewerWindow::showAbout() {
    if (!surroundings.isAttended) {
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
