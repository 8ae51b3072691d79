#pragma once

#include <windows.h>

#include "ByHand.h"
#include "CameraByHand.h"

/// The brackets of a frame, for the bare forms.

namespace qel::bench {

void beginFrameByHand(const BareView& view);
void beginDrawByHand(const BareView& view);
void endDrawByHand();
/// The marker in the corner, the swap and the camera loaded anew.
void endFrameByHand(const BareView& view);

/// Asks what the host has set for its reads before it reads.
template <class Read>
void packed(Read read) {
    constexpr GLenum kSettings[] = {GL_PACK_SWAP_BYTES, GL_PACK_ROW_LENGTH, GL_PACK_SKIP_ROWS,
                                    GL_PACK_SKIP_PIXELS, GL_PACK_ALIGNMENT};
    constexpr GLint kInitial[] = {0, 0, 0, 0, 4};
    GLint set[5] = {};
    for (int i = 0; i < 5; ++i) {
        glGetIntegerv(kSettings[i], &set[i]);
        if (set[i] != kInitial[i]) {
            glPixelStorei(kSettings[i], kInitial[i]);
        }
    }
    read();
    for (int i = 0; i < 5; ++i) {
        if (set[i] != kInitial[i]) {
            glPixelStorei(kSettings[i], set[i]);
        }
    }
}

}  // namespace qel::bench
