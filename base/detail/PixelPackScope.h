#pragma once

#include "QelGl.h"

namespace qel {

/// Sets OpenGL's default pack layout for reads of floats and restores the host's layout at the end of the
/// scope. With the host's layout a read could run past our buffers.
///
/// The settings are queried and restored one by one, because the stack of client attributes belongs to the
/// host and may be full. A host with default settings costs only the queries.
class PixelPackScope {
  public:
    PixelPackScope() {
        for (Setting& setting : settings) {
            glGetIntegerv(setting.name, &setting.hostValue);
            if (setting.hostValue != setting.initial) {
                glPixelStorei(setting.name, setting.initial);
            }
        }
    }
    ~PixelPackScope() {
        for (const Setting& setting : settings) {
            if (setting.hostValue != setting.initial) {
                glPixelStorei(setting.name, setting.hostValue);
            }
        }
    }

    PixelPackScope(const PixelPackScope&) = delete;
    PixelPackScope& operator=(const PixelPackScope&) = delete;

  private:
    struct Setting {
        GLenum name;
        /// OpenGL's default, with which rows of floats have no padding.
        GLint initial;
        GLint hostValue = initial;
    };

    Setting settings[5] = {{GL_PACK_SWAP_BYTES, GL_FALSE},
                           {GL_PACK_ROW_LENGTH, 0},
                           {GL_PACK_SKIP_ROWS, 0},
                           {GL_PACK_SKIP_PIXELS, 0},
                           {GL_PACK_ALIGNMENT, 4}};
};

}  // namespace qel
