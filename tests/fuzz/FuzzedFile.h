#pragma once

#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

namespace qel::test {

/// A file that holds one input after the other. It lies in a folder of the process's own, which becomes its
/// current one, so that it is called the same in every run; both go with their owner.
class FuzzedFile {
  public:
    /// @param extension with its point.
    explicit FuzzedFile(const std::string& extension) : name("fuzzed" + extension) {
        std::filesystem::create_directories(folder);
        std::filesystem::current_path(folder);
    }
    ~FuzzedFile() {
        std::error_code error;
        std::filesystem::current_path("/", error);
        std::filesystem::remove_all(folder, error);
    }
    FuzzedFile(const FuzzedFile&) = delete;
    FuzzedFile& operator=(const FuzzedFile&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return name; }
    void write(const std::uint8_t* data, std::size_t size) const {
        std::ofstream(name, std::ios::binary | std::ios::trunc)
            .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    }

  private:
    /// In memory where the system has such a folder: there are thousands a second.
    static std::filesystem::path placeOfProcess() {
        const std::filesystem::path inMemory = "/dev/shm";
        const bool hasMemory = std::filesystem::is_directory(inMemory);
        return (hasMemory ? inMemory : std::filesystem::temp_directory_path()) /
               ("qelview-fuzz-" + std::to_string(getpid()));
    }

    std::filesystem::path folder = placeOfProcess();
    std::filesystem::path name;
};

}  // namespace qel::test
