#include <windows.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "Pairs.h"
#include "Quantities.h"

/// The module loaded into a process.

namespace qel::bench {

namespace {

namespace fs = std::filesystem;

/// The library is loaded with the program. Copies under other names are libraries of their own; the threads
/// that they start run in them, so they are never unloaded. What they need is loaded already.
constexpr int kCopies = 15;

fs::path moduleFile() {
    wchar_t name[MAX_PATH] = {};
    HMODULE const module = GetModuleHandleW(L"QelDisplay64t.dll");
    if (module == nullptr || GetModuleFileNameW(module, name, MAX_PATH) == 0) {
        throw std::runtime_error("the module is not loaded");
    }
    return name;
}

double secondsToLoad(const fs::path& file) {
    HMODULE loaded = nullptr;
    const double seconds = secondsOf([&] { loaded = LoadLibraryW(file.c_str()); });
    if (loaded == nullptr) {
        throw std::runtime_error("a copy of the module cannot be loaded");
    }
    return seconds;
}

Quantity millisecondsToLoad() {
    const fs::path folder = fs::temp_directory_path() / "qel-bench-copies";
    fs::create_directories(folder);
    std::vector<double> seconds;
    for (int i = 0; i < kCopies; ++i) {
        const fs::path copy = folder / ("QelCopy" + std::to_string(i) + ".dll");
        fs::copy_file(moduleFile(), copy, fs::copy_options::overwrite_existing);
        seconds.push_back(secondsToLoad(copy));
    }
    return {"loading the DLL, with what it needs loaded before", "ms", medianOf(seconds) * 1e3, 0.0};
}

}  // namespace

void addStartMeasurements(Measurements& all) {
    all.push_back({"start: loading the DLL", millisecondsToLoad});
}

}  // namespace qel::bench
