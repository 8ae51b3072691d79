#include "FileInput.h"

#include <commdlg.h>
#include <shlobj.h>

#include <algorithm>
#include <cstring>

#include "ReadFile.h"
#include "SystemWindow.h"

namespace qelview {

namespace {

/// Room for the names of many files of one folder.
constexpr std::size_t kLongestAnswer = 32768;

/// "*.obj;*.ply;..."
std::string patternOfModels() {
    std::string pattern;
    for (const char character : knownExtensions()) {
        if (character == '.') {
            pattern += pattern.empty() ? "*." : ";*.";
        } else if (character != ' ') {
            pattern += character;
        }
    }
    return pattern;
}

}  // namespace

std::vector<std::string> askForFiles(HWND owner) {
    std::wstring answer(kLongestAnswer, L'\0');
    const std::wstring filter = nameList({"Models and points", patternOfModels(), "All files", "*.*"});
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = filter.c_str();
    dialog.lpstrFile = answer.data();
    dialog.nMaxFile = kLongestAnswer;
    dialog.Flags =
        OFN_EXPLORER | OFN_ALLOWMULTISELECT | OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    if (GetOpenFileNameW(&dialog) == FALSE) {
        return {};
    }
    return parseDialogResult(answer);
}

std::vector<std::string> parseNameList(const std::wstring& list) {
    std::vector<std::string> names;
    for (std::size_t begin = 0; begin < list.size() && list[begin] != L'\0';) {
        const std::wstring name(list.c_str() + begin);
        begin += name.size() + 1;
        names.push_back(toUtf8(name));
    }
    return names;
}

std::wstring nameList(const std::vector<std::string>& names) {
    std::wstring list;
    for (const std::string& name : names) {
        list += toWide(name) + L'\0';
    }
    return list + L'\0';
}

std::vector<std::string> parseDialogResult(const std::wstring& answer) {
    std::vector<std::string> files = parseNameList(answer);
    if (files.size() < 2) {
        return files;
    }
    const std::string folder = files.front() + (files.front().ends_with('\\') ? "" : "\\");
    files.erase(files.begin());
    for (std::string& file : files) {
        file.insert(0, folder);
    }
    return files;
}

std::vector<std::string> takeDroppedFiles(HDROP drop) {
    constexpr UINT kCount = 0xFFFFFFFF;
    std::vector<std::string> files;
    const UINT count = DragQueryFileW(drop, kCount, nullptr, 0);
    for (UINT i = 0; i < count; ++i) {
        std::wstring name(DragQueryFileW(drop, i, nullptr, 0), L'\0');
        // The system writes the terminating zero too.
        DragQueryFileW(drop, i, name.data(), static_cast<UINT>(name.size()) + 1);
        files.push_back(toUtf8(name));
    }
    DragFinish(drop);
    return files;
}

HDROP makeDrop(const std::vector<std::string>& files) {
    const std::wstring names = nameList(files);
    DROPFILES header{};
    header.pFiles = sizeof header;
    header.fWide = TRUE;
    HGLOBAL const memory = GlobalAlloc(GHND, sizeof header + names.size() * sizeof(wchar_t));
    auto* const bytes = static_cast<char*>(memory != nullptr ? GlobalLock(memory) : nullptr);
    if (bytes == nullptr) {
        return nullptr;
    }
    std::memcpy(bytes, &header, sizeof header);
    std::copy(names.begin(), names.end(), reinterpret_cast<wchar_t*>(bytes + sizeof header));
    GlobalUnlock(memory);
    return static_cast<HDROP>(memory);
}

}  // namespace qelview
