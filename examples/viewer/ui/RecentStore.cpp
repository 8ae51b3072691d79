#include "RecentStore.h"

#include <windows.h>

#include <array>

#include "FileInput.h"

namespace qelview {

namespace {

constexpr const wchar_t* kValue = L"RecentFiles";
constexpr std::array<const wchar_t*, 3> kLookValues{L"Width", L"Height", L"Orthographic"};

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
    const std::wstring names = nameList(files);
    RegSetKeyValueW(HKEY_CURRENT_USER, key, kValue, REG_MULTI_SZ, names.c_str(),
                    static_cast<DWORD>(names.size() * sizeof(wchar_t)));
}

std::optional<WindowLook> readWindowLook(const wchar_t* key) {
    // Sizes of screens that there are.
    constexpr DWORD kSmallest = 100;
    constexpr DWORD kLargest = 16384;
    std::array<DWORD, kLookValues.size()> values{};
    for (std::size_t i = 0; i < values.size(); ++i) {
        DWORD bytes = sizeof(DWORD);
        if (RegGetValueW(HKEY_CURRENT_USER, key, kLookValues.at(i), RRF_RT_REG_DWORD, nullptr, &values.at(i),
                         &bytes) != ERROR_SUCCESS) {
            return std::nullopt;
        }
    }
    const auto isSize = [](DWORD pixels) { return pixels >= kSmallest && pixels <= kLargest; };
    if (!isSize(values[0]) || !isSize(values[1])) {
        return std::nullopt;
    }
    return WindowLook{static_cast<int>(values[0]), static_cast<int>(values[1]), values[2] != 0};
}

void writeWindowLook(const wchar_t* key, const WindowLook& look) {
    const std::array<DWORD, kLookValues.size()> values{static_cast<DWORD>(look.width),
                                                       static_cast<DWORD>(look.height),
                                                       look.isOrthographic ? DWORD{1} : DWORD{0}};
    for (std::size_t i = 0; i < values.size(); ++i) {
        RegSetKeyValueW(HKEY_CURRENT_USER, key, kLookValues.at(i), REG_DWORD, &values.at(i), sizeof(DWORD));
    }
}

}  // namespace qelview
