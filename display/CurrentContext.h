#pragma once

#include "QelSystem.h"

/// A rendering context on the device context that it draws on.
struct ContextBinding {
    HDC dc = nullptr;
    HGLRC rc = nullptr;

    /// What is current on this thread.
    [[nodiscard]] static ContextBinding current() {
        ContextBinding binding;
        binding.rc = wglGetCurrentContext();
        binding.dc = wglGetCurrentDC();
        return binding;
    }
    /// Makes it current, or no context if it is none; false if it cannot be.
    bool makeCurrent() const { return wglMakeCurrent(dc, rc) != FALSE; }
};

/// Which context was current on this thread before one of ours took its place, so that it can be made current
/// again.
class CurrentContext {
  public:
    CurrentContext() = default;
    CurrentContext(const CurrentContext&) = delete;
    CurrentContext& operator=(const CurrentContext&) = delete;
    /// Makes the remembered context current again, if one is remembered.
    ~CurrentContext() {
        if (kept.rc != nullptr) {
            kept.makeCurrent();
        }
    }

    /// Remembers what is current, unless that is the given one, which took the place of the remembered one.
    void rememberUnless(const ContextBinding& current, HGLRC ours) noexcept {
        if (current.rc == nullptr || current.rc != ours) {
            kept = current;
        }
    }
    [[nodiscard]] const ContextBinding& remembered() const noexcept { return kept; }
    /// The context goes: if it is the remembered one, nothing is remembered.
    void forget(HGLRC going) noexcept {
        if (kept.rc == going) {
            kept = {};
        }
    }

  private:
    ContextBinding kept;
};
