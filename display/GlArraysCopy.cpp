#include "GlArraysCopy.h"

#include <iterator>

namespace {

struct Names {
    GLenum array;
    GLenum size;
    GLenum type;
    GLenum stride;
    GLenum pointer;
    /// From OpenGL 1.5, which not every system's header declares.
    GLenum buffer;
};

constexpr Names kArrayNames[] = {
    {GL_VERTEX_ARRAY, GL_VERTEX_ARRAY_SIZE, GL_VERTEX_ARRAY_TYPE, GL_VERTEX_ARRAY_STRIDE,
     GL_VERTEX_ARRAY_POINTER, 0x8896},
    {GL_NORMAL_ARRAY, 0, GL_NORMAL_ARRAY_TYPE, GL_NORMAL_ARRAY_STRIDE, GL_NORMAL_ARRAY_POINTER, 0x8897},
    {GL_COLOR_ARRAY, GL_COLOR_ARRAY_SIZE, GL_COLOR_ARRAY_TYPE, GL_COLOR_ARRAY_STRIDE, GL_COLOR_ARRAY_POINTER,
     0x8898},
    {GL_INDEX_ARRAY, 0, GL_INDEX_ARRAY_TYPE, GL_INDEX_ARRAY_STRIDE, GL_INDEX_ARRAY_POINTER, 0x8899},
    {GL_TEXTURE_COORD_ARRAY, GL_TEXTURE_COORD_ARRAY_SIZE, GL_TEXTURE_COORD_ARRAY_TYPE,
     GL_TEXTURE_COORD_ARRAY_STRIDE, GL_TEXTURE_COORD_ARRAY_POINTER, 0x889A},
    {GL_EDGE_FLAG_ARRAY, 0, 0, GL_EDGE_FLAG_ARRAY_STRIDE, GL_EDGE_FLAG_ARRAY_POINTER, 0x889B},
};

GLint valueOf(GLenum name) {
    GLint value = 0;
    if (name != 0) {
        glGetIntegerv(name, &value);
    }
    return value;
}

void namePointer(GLenum array, GLint size, GLenum type, GLsizei stride, const GLvoid* pointer) {
    switch (array) {
        case GL_VERTEX_ARRAY:
            glVertexPointer(size, type, stride, pointer);
            break;
        case GL_NORMAL_ARRAY:
            glNormalPointer(type, stride, pointer);
            break;
        case GL_COLOR_ARRAY:
            glColorPointer(size, type, stride, pointer);
            break;
        case GL_INDEX_ARRAY:
            glIndexPointer(type, stride, pointer);
            break;
        case GL_TEXTURE_COORD_ARRAY:
            glTexCoordPointer(size, type, stride, pointer);
            break;
        default:
            glEdgeFlagPointer(stride, pointer);
            break;
    }
}

}  // namespace

void GlArraysCopy::take(bool mayBeBuffered) {
    static_assert(std::size(kArrayNames) == kArrays);
    for (int index = 0; index < kArrays; ++index) {
        const Names& names = kArrayNames[index];
        Array& array = arrays[index];
        array = Array();
        // The pointer is an offset into the buffer.
        if (mayBeBuffered && valueOf(names.buffer) != 0) {
            continue;
        }
        array.isEnabled = glIsEnabled(names.array) != GL_FALSE;
        array.size = valueOf(names.size);
        array.type = valueOf(names.type);
        array.stride = valueOf(names.stride);
        glGetPointerv(names.pointer, &array.pointer);
    }
}

void GlArraysCopy::put() const {
    for (int index = 0; index < kArrays; ++index) {
        const Names& names = kArrayNames[index];
        const Array& array = arrays[index];
        if (array.pointer == nullptr) {
            continue;
        }
        namePointer(names.array, array.size, static_cast<GLenum>(array.type), array.stride, array.pointer);
        GLvoid* taken = nullptr;
        glGetPointerv(names.pointer, &taken);
        // A driver that refused the array's type would read from a null pointer.
        if (array.isEnabled && taken == array.pointer) {
            glEnableClientState(names.array);
        }
    }
}
