#pragma once

#include "QelSystem.h"

/// Which context was current on this thread before one of ours took its place, so that it can be made current
/// again.
class CurrentContext {
  public:
    CurrentContext() = default;
    CurrentContext(const CurrentContext&) = delete;
    CurrentContext& operator=(const CurrentContext&) = delete;
    /// Makes the remembered context current again, if one is remembered.
    ~CurrentContext() {
        if (rc != nullptr) {
            wglMakeCurrent(dc, rc);
        }
    }

    /// Remembers what is current now, unless that is the given one: it took the place of the remembered one.
    void rememberUnless(HGLRC ours) {
        const HGLRC current = wglGetCurrentContext();
        if (current == nullptr || current != ours) {
            rc = current;
            dc = wglGetCurrentDC();
        }
    }
    [[nodiscard]] HDC deviceContext() const noexcept { return dc; }
    [[nodiscard]] HGLRC renderContext() const noexcept { return rc; }
    /// The context goes: if it is the remembered one, nothing is remembered.
    void forget(HGLRC going) noexcept {
        if (rc == going) {
            rc = nullptr;
        }
    }

  private:
    HDC dc = nullptr;
    HGLRC rc = nullptr;
};
