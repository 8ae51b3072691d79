#pragma once

#include "QelGl.h"

namespace qel {

/// Reads of several rows land one behind the other in our buffers, whatever row padding the host has set for
/// its own reads; with that padding they would end past the buffers. The host's setting is back when the
/// scope ends.
class PixelPackScope {
  public:
    PixelPackScope() {
        glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
        glPixelStorei(GL_PACK_SWAP_BYTES, GL_FALSE);
        glPixelStorei(GL_PACK_ROW_LENGTH, 0);
        glPixelStorei(GL_PACK_SKIP_ROWS, 0);
        glPixelStorei(GL_PACK_SKIP_PIXELS, 0);
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
    }
    ~PixelPackScope() { glPopClientAttrib(); }

    PixelPackScope(const PixelPackScope&) = delete;
    PixelPackScope& operator=(const PixelPackScope&) = delete;
};

}  // namespace qel
