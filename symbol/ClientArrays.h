#pragma once

#include <cstdint>

#include "QelGl.h"

/// The client arrays of one draw call. Each is enabled when its memory is set; the destructor disables all,
/// vertices first. The memory must stay in place until then.
class ClientArrays {
  public:
    /// Three coordinates per vertex; strides in bytes from one element to the next.
    ClientArrays(std::uint32_t type, std::int32_t stride, const void* vertices) {
        glEnableClientState(GL_VERTEX_ARRAY);
        glVertexPointer(3, type, stride, vertices);
    }
    ~ClientArrays() {
        glDisableClientState(GL_VERTEX_ARRAY);
        if (hasNormals) {
            glDisableClientState(GL_NORMAL_ARRAY);
        }
        if (hasColors) {
            glDisableClientState(GL_COLOR_ARRAY);
        }
    }
    ClientArrays(const ClientArrays&) = delete;
    ClientArrays& operator=(const ClientArrays&) = delete;

    void addNormals(std::uint32_t type, std::int32_t stride, const void* normals) {
        hasNormals = true;
        glEnableClientState(GL_NORMAL_ARRAY);
        glNormalPointer(type, stride, normals);
    }
    void addColors(std::uint32_t type, std::int32_t stride, const void* colors) {
        hasColors = true;
        glEnableClientState(GL_COLOR_ARRAY);
        glColorPointer(3, type, stride, colors);
    }

  private:
    bool hasNormals = false;
    bool hasColors = false;
};
