#include "CaptureName.h"

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

}  // namespace qelview
