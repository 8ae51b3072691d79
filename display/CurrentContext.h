#pragma once

#include "QelSystem.h"

/// A rendering context and the device context it draws on.
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
    /// Makes it current; without a context, makes none current. Returns false if that fails.
    bool makeCurrent() const { return wglMakeCurrent(dc, rc) != FALSE; }
};

/// Remembers which context was current on this thread before one of ours, to make it current again.
class CurrentContext {
  public:
    CurrentContext() = default;
    CurrentContext(const CurrentContext&) = delete;
    CurrentContext& operator=(const CurrentContext&) = delete;
    /// Makes the remembered context current again, if there is one.
    ~CurrentContext() {
        if (kept.rc != nullptr) {
            kept.makeCurrent();
        }
    }

    /// Remembers what is current, unless that is the given one, which replaced the remembered one.
    void rememberUnless(const ContextBinding& current, HGLRC ours) noexcept {
        if (current.rc == nullptr || current.rc != ours) {
            kept = current;
        }
    }
    [[nodiscard]] const ContextBinding& remembered() const noexcept { return kept; }
    /// Called when a context is destroyed: if it is the remembered one, nothing is remembered.
    void forget(HGLRC going) noexcept {
        if (kept.rc == going) {
            kept = {};
        }
    }

  private:
    ContextBinding kept;
};
