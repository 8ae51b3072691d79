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

    /// Remembers what is current now, unless it is the context `own`.
    void remember(HGLRC own) {
        rc = wglGetCurrentContext();
        dc = wglGetCurrentDC();
        if (rc == own) {
            rc = nullptr;
        }
    }

  private:
    HDC dc = nullptr;
    HGLRC rc = nullptr;
};
