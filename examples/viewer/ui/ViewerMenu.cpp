#include "ViewerMenu.h"

#include "Menu.h"
#include "SystemWindow.h"

namespace qelview {

namespace {

std::wstring textOf(const MenuLine& line) {
    // The system aligns what follows the tabulator at the right.
    const std::string key = line.key.empty() ? "" : "\t" + std::string(line.key);
    return toWide(std::string(line.text) + key);
}

/// The list of recent files is a submenu, found by its position in the file menu.
HMENU listOfRecentFiles(HMENU bar) {
    HMENU const files = GetSubMenu(bar, 0);
    for (int i = 0; i < GetMenuItemCount(files); ++i) {
        HMENU const list = GetSubMenu(files, i);
        if (list != nullptr) {
            return list;
        }
    }
    return nullptr;
}

void appendLine(HMENU menu, const MenuLine& line) {
    if (line.text.empty()) {
        AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    } else if (line.meaning.command == Command::Recent) {
        AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(CreatePopupMenu()), textOf(line).c_str());
    } else {
        AppendMenuW(menu, MF_STRING, menuNumberOf(line.meaning), textOf(line).c_str());
    }
}

}  // namespace

HMENU makeMenuBar(const std::vector<std::string>& recentFiles) {
    HMENU const bar = CreateMenu();
    for (const MenuColumn& column : menuColumns()) {
        HMENU const menu = CreatePopupMenu();
        for (const MenuLine& line : column.lines) {
            appendLine(menu, line);
        }
        AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(menu),
                    toWide(std::string(column.title)).c_str());
    }
    showRecentFiles(bar, recentFiles);
    return bar;
}

void showRecentFiles(HMENU bar, const std::vector<std::string>& recentFiles) {
    HMENU const list = listOfRecentFiles(bar);
    while (GetMenuItemCount(list) > 0) {
        DeleteMenu(list, 0, MF_BYPOSITION);
    }
    for (unsigned i = 0; i < recentFiles.size(); ++i) {
        AppendMenuW(list, MF_STRING, menuNumberOf({Command::Recent, i}),
                    toWide(recentText(i + 1, recentFiles[i])).c_str());
    }
    if (recentFiles.empty()) {
        AppendMenuW(list, MF_STRING | MF_GRAYED, menuNumberOf({Command::Recent, 0}), L"None yet");
    }
}

void showMark(HMENU bar, Command command, bool isMarked) {
    CheckMenuItem(bar, menuNumberOf({command}),
                  MF_BYCOMMAND | (isMarked ? UINT{MF_CHECKED} : UINT{MF_UNCHECKED}));
}

}  // namespace qelview
