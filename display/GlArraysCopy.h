#pragma once

#include "QelGl.h"

/// The client arrays of a context that lie in the host's memory. A part of GlStateCopy.
class GlArraysCopy {
  public:
    /// Reads the arrays of the current context; `mayBeBuffered` if it supports buffer objects.
    void take(bool mayBeBuffered);
    /// Sets them in the current context, a new one.
    void put() const;

  private:
    static constexpr int kArrays = 6;

    struct Array {
        bool isEnabled = false;
        GLint size = 0;
        GLint type = 0;
        GLint stride = 0;
        GLvoid* pointer = nullptr;
    };

    Array arrays[kArrays];
};
