#pragma once

#include <windows.h>

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

/// The import tables of the modules of this process, which tell through which slot a module calls a function
/// of another one. Windows only.

namespace qel::test {

/// One imported function of a module.
struct Import {
    HMODULE importer;
    std::string library;  ///< lower case, as "opengl32.dll"
    std::string name;     ///< empty if imported by number
    void** slot;          ///< where the importer keeps the function's address
};

/// Every import of a loaded module, in the order of its table.
std::vector<Import> importsOf(HMODULE module);

/// The modules under test that are loaded now, and the running executable.
std::vector<HMODULE> testedModules();

/// Names of the DLLs under test.
inline constexpr std::array kTestedLibraries = {"QelDisplay64t.dll", "QelGeometry64t.dll", "QelBase64t.dll"};

/// Slots that were redirected, and what they led to. Gives back on destruction what is still redirected as it
/// left it; a module that was unloaded meanwhile is skipped. The pages of the slots stay writable: to change
/// their protection for each slot would be the longest part of most tests.
class ImportPatches {
  public:
    ImportPatches() = default;
    ~ImportPatches();
    ImportPatches(const ImportPatches&) = delete;
    ImportPatches& operator=(const ImportPatches&) = delete;

    /// Leads the import to `replacement`. A slot that already leads there stays.
    void redirect(const Import& import, void* replacement);

    /// Gives all slots back.
    void restore();

    std::size_t count() const { return patched.size(); }

  private:
    struct Slot {
        HMODULE importer;
        void** slot;
        void* original;
        void* replacement;
    };
    std::vector<Slot> patched;
    std::uintptr_t writablePage = 0;
};

}  // namespace qel::test
