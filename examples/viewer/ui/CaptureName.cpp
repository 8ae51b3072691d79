#include "CaptureName.h"

#include <algorithm>
#include <string>
#include <system_error>

namespace qelview {

std::filesystem::path freeCaptureName(const std::filesystem::path& folder) {
    constexpr int kMost = 999;
    for (int number = 1; number <= kMost; ++number) {
        const std::string digits = std::to_string(number);
        std::filesystem::path file =
            folder / ("qelview-" + std::string(3 - digits.size(), '0') + digits + ".bmp");
        std::error_code error;
        if (!std::filesystem::exists(file, error) && !error) {
            return file;
        }
    }
    return {};
}

bool hasPngEnding(const std::filesystem::path& file) {
    std::u8string ending = file.extension().u8string();
    std::transform(ending.begin(), ending.end(), ending.begin(), [](char8_t letter) {
        return letter >= u8'A' && letter <= u8'Z' ? static_cast<char8_t>(letter - u8'A' + u8'a') : letter;
    });
    return ending == u8".png";
}

}  // namespace qelview
