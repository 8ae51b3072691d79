#pragma once

#include <vector>

#include "QelGl.h"

/// How a context stores, transfers, maps and zooms pixels, and its polygon stipple. A part of GlStateCopy.
class GlPixelsCopy {
  public:
    /// Reads the state of the current context.
    void take();
    /// Sets it in the current context.
    void put() const;

  private:
    static constexpr int kStores = 12;
    static constexpr int kTransfers = 14;
    static constexpr int kMaps = 10;

    void takeStippleAndMaps();

    GLint stores[kStores] = {};
    GLfloat transfers[kTransfers] = {};
    GLfloat zoom[2] = {};
    std::vector<GLfloat> maps[kMaps];
    GLubyte stipple[128] = {};
};
