#include "FileBytes.h"

#include <fstream>
#include <system_error>

#include "ReadError.h"

namespace qelview {

std::string utf8(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

std::filesystem::path pathOf(std::string_view name) {
    return {std::u8string(name.begin(), name.end())};
}

std::string readBytes(const std::filesystem::path& file, std::uintmax_t most) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) {
        throw ReadError("the file does not exist");
    }
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    if (error || size == 0) {
        throw ReadError(error ? "the file cannot be read" : "the file is empty");
    }
    if (size > most) {
        throw ReadError("the file is larger than " + std::to_string(most) + " bytes");
    }
    std::string bytes(static_cast<std::size_t>(size), '\0');
    std::ifstream stream(file, std::ios::binary);
    if (!stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()))) {
        throw ReadError("the file cannot be read");
    }
    return bytes;
}

bool isSiblingName(std::string_view name) {
    const bool isAbsolute = name.starts_with('/') || name.starts_with('\\');
    const bool hasScheme = name.find(':') != std::string_view::npos;
    return !name.empty() && !isAbsolute && !hasScheme && name.find("..") == std::string_view::npos;
}

std::optional<std::string> siblingBytes(const std::filesystem::path& model, std::string_view name,
                                        std::uintmax_t most) {
    if (!isSiblingName(name)) {
        return std::nullopt;
    }
    try {
        return readBytes(model.parent_path() / pathOf(name), most);
    } catch (const ReadError&) {
        return std::nullopt;
    }
}

}  // namespace qelview
