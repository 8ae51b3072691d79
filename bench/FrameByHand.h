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

/// Rows without padding for what is read meanwhile.
template <class Read>
void packed(Read read) {
    glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
    glPixelStorei(GL_PACK_SWAP_BYTES, GL_FALSE);
    glPixelStorei(GL_PACK_ROW_LENGTH, 0);
    glPixelStorei(GL_PACK_SKIP_ROWS, 0);
    glPixelStorei(GL_PACK_SKIP_PIXELS, 0);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    read();
    glPopClientAttrib();
}

}  // namespace qel::bench
