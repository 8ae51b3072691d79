#include "FileBeside.h"

#include <fstream>
#include <system_error>

namespace qelview {

bool isNameBeside(std::string_view name) {
    const bool isAbsolute = name.starts_with('/') || name.starts_with('\\');
    const bool hasScheme = name.find(':') != std::string_view::npos;
    return !name.empty() && !isAbsolute && !hasScheme && name.find("..") == std::string_view::npos;
}

std::optional<std::string> bytesBeside(const std::filesystem::path& model, std::string_view name,
                                       std::uintmax_t most) {
    if (!isNameBeside(name)) {
        return std::nullopt;
    }
    const std::filesystem::path file =
        model.parent_path() / std::filesystem::path(std::u8string(name.begin(), name.end()));
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) {
        return std::nullopt;
    }
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    if (error || size > most) {
        return std::nullopt;
    }
    std::string bytes(static_cast<std::size_t>(size), '\0');
    std::ifstream stream(file, std::ios::binary);
    if (!stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()))) {
        return std::nullopt;
    }
    return bytes;
}

}  // namespace qelview
