#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "examples/SceneSoundness.h"

/// Opens any bytes as a file of the extension that this program is built for.

namespace {

/// In memory where the system has such a folder: there are thousands a second.
std::filesystem::path fileOfThisProcess() {
    const std::filesystem::path inMemory = "/dev/shm";
    const bool hasMemory = std::filesystem::is_directory(inMemory);
    const std::filesystem::path folder = hasMemory ? inMemory : std::filesystem::temp_directory_path();
    return folder / ("qelview-fuzz-" + std::to_string(getpid()) + QEL_FUZZ_EXTENSION);
}

struct OwnFile {
    std::filesystem::path path = fileOfThisProcess();
    ~OwnFile() {
        std::error_code error;
        std::filesystem::remove(path, error);
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const OwnFile file;
    std::ofstream(file.path, std::ios::binary | std::ios::trunc)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    const std::string fault = qel::test::faultOfOpening(file.path);
    if (!fault.empty()) {
        std::fprintf(stderr, "%s\n", fault.c_str());
        std::abort();
    }
    return 0;
}
