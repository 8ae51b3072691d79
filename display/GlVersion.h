#pragma once

#include "QelGl.h"

namespace qel {

/// The version of the current context as a number: 12 for OpenGL 1.2; 11, the minimum, if it is unknown.
[[nodiscard]] inline int glVersion() {
    constexpr int kLeast = 11;
    const GLubyte* const text = glGetString(GL_VERSION);
    if (text == nullptr || text[0] < '1' || text[0] > '9' || text[1] != '.') {
        return kLeast;
    }
    return (text[0] - '0') * 10 + (text[2] - '0');
}

}  // namespace qel
