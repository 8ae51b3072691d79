#pragma once

#include <cstdint>

namespace qel::test {

/// A plain window of a known client size without an OpenGL context, for displays that make their own. It
/// keeps one device context all its life (class style CS_OWNDC) and is hidden unless shown. Windows only.
class TestWindow {
  public:
    explicit TestWindow(int width = 256, int height = 256);
    ~TestWindow();
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;

    /// The window (HWND) and its device context (HDC) as numbers.
    std::uintptr_t hwnd() const { return window; }
    std::uintptr_t dc() const { return deviceContext; }

    /// Size of the client area in pixels.
    int width() const;
    int height() const;

    void resize(int width, int height);
    void show();
    void hide();

    /// Handles the messages that wait for this thread.
    static void handleMessages();

  private:
    std::uintptr_t window = 0;
    std::uintptr_t deviceContext = 0;
};

}  // namespace qel::test
