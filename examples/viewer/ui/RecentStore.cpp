#include "RecentStore.h"

#include <windows.h>

#include "FileInput.h"
#include "SystemWindow.h"

namespace qelview {

namespace {

constexpr const wchar_t* kValue = L"RecentFiles";

}  // namespace

std::vector<std::string> readRecentFiles(const wchar_t* key) {
    DWORD bytes = 0;
    if (RegGetValueW(HKEY_CURRENT_USER, key, kValue, RRF_RT_REG_MULTI_SZ, nullptr, nullptr, &bytes) !=
        ERROR_SUCCESS) {
        return {};
    }
    std::wstring names(bytes / sizeof(wchar_t), L'\0');
    if (RegGetValueW(HKEY_CURRENT_USER, key, kValue, RRF_RT_REG_MULTI_SZ, nullptr, names.data(), &bytes) !=
        ERROR_SUCCESS) {
        return {};
    }
    return parseNameList(names);
}

void writeRecentFiles(const wchar_t* key, const std::vector<std::string>& files) {
    std::wstring names;
    for (const std::string& file : files) {
        names += toWide(file) + std::wstring(1, L'\0');
    }
    // One more zero than the names have ends the list.
    const auto bytes = static_cast<DWORD>((names.size() + 1) * sizeof(wchar_t));
    RegSetKeyValueW(HKEY_CURRENT_USER, key, kValue, REG_MULTI_SZ, names.c_str(), bytes);
}

}  // namespace qelview
