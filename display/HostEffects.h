#pragma once

#include "QelGl.h"

/// What a host may have switched on that would change drawn pixels on their way into the buffers, or keep
/// them out: tests, blending, fog, textures, clipping planes and a zoom. Only what is on is touched, and an
/// attribute push brings it back.
class HostEffects {
  public:
    /// Asks the current context.
    HostEffects();
    /// The attributes to push together with those of the colour buffer.
    [[nodiscard]] GLbitfield attributes() const noexcept;
    /// Switches them off; call it after the push.
    void switchOff() const;

  private:
    static constexpr int kEffects = 14;

    [[nodiscard]] bool isZoomed() const noexcept { return zoom[0] != 1.0F || zoom[1] != 1.0F; }

    GLenum found[kEffects] = {};
    int count = 0;
    bool needsEnables = false;
    GLfloat zoom[2] = {1.0F, 1.0F};
};
