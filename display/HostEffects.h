#pragma once

#include "QelGl.h"

/// State of a host that would change drawn pixels on their way into the buffers, or discard them: tests,
/// blending, fog, textures, clipping planes and a zoom. Only what is enabled is switched off, and an
/// attribute push restores it.
class HostEffects {
  public:
    /// Queries the current context.
    HostEffects();
    /// The attributes to push together with those of the colour buffer.
    [[nodiscard]] GLbitfield attributes() const noexcept;
    /// Disables them; call it after the push.
    void switchOff() const;

  private:
    static constexpr int kEffects = 14;

    [[nodiscard]] bool isZoomed() const noexcept { return zoom[0] != 1.0F || zoom[1] != 1.0F; }

    GLenum found[kEffects] = {};
    int count = 0;
    bool needsEnables = false;
    GLfloat zoom[2] = {1.0F, 1.0F};
};
