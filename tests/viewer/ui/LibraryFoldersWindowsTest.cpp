#include "LibraryFolders.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <cstdlib>
#include <filesystem>

namespace {

constexpr const wchar_t* kPlantedName = L"qelview-planted.dll";

bool isFound(const wchar_t* name) {
    const HMODULE library = LoadLibraryW(name);
    if (library != nullptr) {
        FreeLibrary(library);
    }
    return library != nullptr;
}

/// A current folder in which somebody left a DLL.
std::filesystem::path plant() {
    wchar_t program[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "qelview-test-planted";
    std::filesystem::create_directories(folder);
    std::filesystem::copy_file(std::filesystem::path(program).parent_path() / "QelBase64t.dll",
                               folder / kPlantedName, std::filesystem::copy_options::overwrite_existing);
    return folder;
}

/// 0 if the planted DLL is found before the restriction and not after it, and the program's own ones still
/// are.
int tryFolders() {
    const bool wasFound = isFound(kPlantedName);
    qelview::restrictLibraryFolders();
    const bool isStillFound = isFound(kPlantedName);
    const bool areOwnFound = isFound(L"QelDisplay64t.dll") && isFound(L"winmm.dll");
    return (wasFound ? 0 : 1) + (isStillFound ? 2 : 0) + (areOwnFound ? 0 : 4);
}

TEST(LibraryFoldersDeathTest, LeaveOutTheCurrentFolder) {
    const std::filesystem::path before = std::filesystem::current_path();
    const std::filesystem::path folder = plant();
    std::filesystem::current_path(folder);
    // In a process of its own: the restriction lasts as long as the process.
    EXPECT_EXIT(std::_Exit(tryFolders()), testing::ExitedWithCode(0), "");
    std::filesystem::current_path(before);
    std::filesystem::remove_all(folder);
}

}  // namespace
