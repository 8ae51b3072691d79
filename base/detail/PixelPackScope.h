#pragma once

#include "QelGl.h"

namespace qel {

/// Reads of floats land one behind the other in our buffers, whatever layout the host has set for its own
/// reads; with that layout they would end past the buffers. What the host has set is back when the scope
/// ends.
///
/// The settings are asked and put back one by one: the stack of client attributes is the host's and may be
/// full. A host that has set nothing sees questions alone.
class PixelPackScope {
  public:
    PixelPackScope() {
        for (Setting& setting : settings) {
            glGetIntegerv(setting.name, &setting.ofHost);
            if (setting.ofHost != setting.initial) {
                glPixelStorei(setting.name, setting.initial);
            }
        }
    }
    ~PixelPackScope() {
        for (const Setting& setting : settings) {
            if (setting.ofHost != setting.initial) {
                glPixelStorei(setting.name, setting.ofHost);
            }
        }
    }

    PixelPackScope(const PixelPackScope&) = delete;
    PixelPackScope& operator=(const PixelPackScope&) = delete;

  private:
    struct Setting {
        GLenum name;
        /// OpenGL's own value, with which rows of floats have no padding.
        GLint initial;
        GLint ofHost = initial;
    };

    Setting settings[5] = {{GL_PACK_SWAP_BYTES, GL_FALSE},
                           {GL_PACK_ROW_LENGTH, 0},
                           {GL_PACK_SKIP_ROWS, 0},
                           {GL_PACK_SKIP_PIXELS, 0},
                           {GL_PACK_ALIGNMENT, 4}};
};

}  // namespace qel
