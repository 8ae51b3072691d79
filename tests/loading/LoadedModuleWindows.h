#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "QelDisplay64t.h"

namespace qel::test {

inline constexpr wchar_t kModule[] = L"QelDisplay64t.dll";

/// A function of the loaded module under its plain name; null if the module is not loaded.
template <class Function>
Function* ofModule(const char* name) {
    return reinterpret_cast<Function*>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(kModule), name)));
}

/// The module while this lives, with a window, a display on it, and a symbol.
class LoadedModule {
  public:
    static constexpr int kSide = 96;

    LoadedModule();
    ~LoadedModule();
    LoadedModule(const LoadedModule&) = delete;
    LoadedModule& operator=(const LoadedModule&) = delete;

    [[nodiscard]] IQelDisplay& display() const { return *shown; }
    [[nodiscard]] IQelTrackBall& camera() const { return *shown->getTrackBall(); }
    [[nodiscard]] IQelSymbol& symbol() const { return *drawn; }
    [[nodiscard]] std::int32_t windowNumber() const { return handleNumber(window); }

    /// Draws a frame with `drawing` in it, without lights, and returns its pixels, three bytes each from the
    /// lower left.
    template <class Drawing>
    std::vector<unsigned char> frameOf(Drawing drawing) {
        beginFrame();
        drawing();
        return endFrame();
    }

  private:
    void beginFrame();
    std::vector<unsigned char> endFrame();

    HMODULE library;
    HWND window = nullptr;
    ref_ptr<IQelDisplay> shown;
    ref_ptr<IQelSymbol> drawn;
};

/// Pixels of a frame that are not black.
int inkOf(const std::vector<unsigned char>& pixels);

}  // namespace qel::test
